#include "years/frmNewFinYear.h"

#include "core/Boxes.h"
#include "core/CarryForward.h"
#include "core/ErrorModule.h"
#include "core/modGeneral.h"
#include "platform/ado/Together.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"

namespace qm {
namespace {

// Message and resume: what a step raises ends that step only, and each failure gives its own box.
void Attempt(const std::function<void()>& step) {
    if (!SkipOnError(step)) Tell("Error Occured ? You may have Make Some Entries Manually");
}

void Attempt(const std::string& statement) {
    Attempt([&] { Conn().Execute(statement); });
}

std::string ShortForm(ado::Recordset& year) {
    return basic::Left(basic::TextOrEmpty(year["Fnncl_Yr"]), 4);
}

}  // namespace

void frmNewFinYear::Wire() {
    ui().txtFrom->Validate = [this](bool& cancel) { txtFrom_Validate(cancel); };
    ui().cmdSave->Click = [this] { cmdSave_Click(); };
    ui().cmdExit->Click = [this] { cmdExit_Click(); };
}

void frmNewFinYear::Form_Load() {
    years_ = std::make_shared<ado::Recordset>();
    years_->Open("Fnncl_Yr_Mstr", shared().Connection);
}

void frmNewFinYear::Form_Unload() {
    years_->Close();
}

// An empty year is refused like any other, so the way to Exit leads over a known one; the window's own close
// asks nothing.
void frmNewFinYear::txtFrom_Validate(bool& cancel) {
    const std::string from = ui().txtFrom->Text();
    const char* refusal = nullptr;
    if (!basic::IsNumeric(from))
        refusal = "Only Numeric Data Acceptable";
    else if (YearExists())
        refusal = "Year Already Added";
    else if (!PreviousYearExists())
        refusal = "Previous Year Data Not Found";
    if (refusal) {
        Tell(refusal);
        cancel = true;
        return;
    }
    ui().txtTo->SetText(basic::NumberText(basic::ToDouble(from) + 1));
}

// After a failed PreviousYearExists the set lies at its end and this walks nothing: a year that is there
// passes once. Kept 88.
bool frmNewFinYear::YearExists() {
    const std::string from = ui().txtFrom->Text();
    bool found = false;
    if (!years_->Bof() && !years_->Eof()) years_->MoveFirst();
    while (!found && !years_->Eof()) {
        found = ShortForm(*years_) == from;
        years_->MoveNext();
    }
    if (years_->RecordCount() > 0) years_->MoveFirst();
    return found;
}

// Leaves the set where the walk ended, on the year found or, after a failure, at the end: YearExists depends
// on it. Kept 88.
bool frmNewFinYear::PreviousYearExists() {
    const double previous = basic::ToDouble(ui().txtFrom->Text()) - 1;
    bool found = years_->Bof() || years_->Eof();  // with no year at all, any one may be the first
    if (!found) years_->MoveFirst();
    while (!found && !years_->Eof()) {
        const std::string year = ShortForm(*years_);
        found = basic::IsNumeric(year) && basic::ToDouble(year) == previous;
        if (!found) years_->MoveNext();
    }
    return found;
}

// In no transaction: what a failing statement leaves undone is told, the rest is done. The current year
// stays. Kept 89.
void frmNewFinYear::cmdSave_Click() {
    const std::string from = ui().txtFrom->Text();
    SetMousePointer(forms::vbHourglass);
    CarryLedgers(from);
    Attempt([&] { RollOpeningBalances(from); });
    RegisterYear(from);
    Attempt("SELECT * INTO tb_Ledger" + from + " From tblsysLedgerstr");
    CarryVoucherRegister(from);
    MakeStockTables(from);
    CarryItems(from);
    SetMousePointer(forms::vbDefault);
    ui().cmdSave->SetEnabled(false);  // one year for each opening
}

// Ledgers that are marked as deleted come along. Kept 90.
void frmNewFinYear::CarryLedgers(const std::string& from) {
    Attempt("INSERT INTO Ledger_Details SELECT Ledger_ID as Ledger_ID, '" + from +
            "' as Fnncl_Yr , Opening_Bal, Closing_Bal, Bal_type, leddetDRTxnTOT, leddetCRTxnTOT  FROM "
            "Ledger_Details Where Fnncl_Yr = " +
            shared().FinYear);
}

void frmNewFinYear::RollOpeningBalances(const std::string& from) {
    ado::Recordset rows;
    rows.Open("Select * from Ledger_Details Where fnncl_yr = " + from, shared().Connection,
              ado::adOpenDynamic, ado::adLockOptimistic, ado::adCmdText);
    // The move stores the edit; a ledger never posted to has Null totals.
    ado::Together(Conn(), [&] {
        for (; !rows.Eof(); rows.MoveNext())
            FoldTotals(rows, basic::NumberOrZero(rows["leddetDrtxntot"]),
                       basic::NumberOrZero(rows["leddetCrtxntot"]));
    });
    rows.Close();
}

void frmNewFinYear::RegisterYear(const std::string& from) {
    Attempt("Insert Into fnncl_Yr_Mstr (fnncl_Yr) Values('" + from + "-" + ui().txtTo->Text() + "')");
}

// Each voucher type starts again at 0 in the new year. Kept 90.
void frmNewFinYear::CarryVoucherRegister(const std::string& from) {
    Attempt(
        "Insert Into tblvchrmst Select vchrmstType,  0 as vchrmstFinYear, 0 as vchrmstLastNo from tblvchrmst "
        "Where  vchrmstFinYear = " +
        shared().FinYear);
    Attempt("Update tblvchrmst Set vchrmstfinyear = " + from + " Where vchrmstFinYear = 0");
}

void frmNewFinYear::MakeStockTables(const std::string& from) {
    Attempt("SELECT * INTO tbLPo" + from + " From tblsysPOstr");
    Attempt("SELECT * INTO tbLPoDet" + from + " From tblsysPODetstr");
    Attempt("SELECT * INTO tbLItemLed" + from + " From tblsysItemLedstr");
    Attempt("Select * Into tblBills" + from + " From tblSysBills");
    Attempt("SELECT * INTO ItemMaster" + from + " From ItemMasterstr");
}

// The balance as the item screen keeps it becomes the opening stock, not the stock on hand. Kept 50.
void frmNewFinYear::CarryItems(const std::string& from) {
    Attempt(
        "Insert Into ItemMaster" + from +
        " Select Item_id as Item_Id,Item_Name as Item_Name, Item_Type as Item_Type,  Unit_Desc as "
        "Unit_Desc, Balance  as OPen_Stock,  Reorder_Level as Reorder_Level, Overflow_Level as  "
        "OverFlow_Level, Unit_Price as Unit_Price, Balance as  Balance, Notes as  Notes, 0 as IssuedQty, 0 "
        "as ReceivedQty From ItemMaster" +
        shared().FinYear);
}

}  // namespace qm
