#include "vouchers/frmDayBook.h"

#include <algorithm>

#include "core/Boxes.h"
#include "core/DBCode.h"
#include "core/GeneralUtils.h"
#include "core/VoucherReversal.h"
#include "core/VoucherType.h"
#include "core/modGeneral.h"
#include "platform/basic/Clock.h"
#include "platform/basic/Dates.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "platform/forms/window/Application.h"
#include "shell/EntryChecks.h"
#include "vouchers/DayBookLines.h"
#include "vouchers/frmVoucher.h"

namespace qm {
namespace {

constexpr int CommandsTop = 1440;  // of cmdOk and cmdClear within the frame
constexpr int SortArrow = 480, CellMargins = 240, ScrollBar = 330, NarrowestLedger = 1800;

// The list's columns, each with a text as wide as most that stand in it.
struct Column {
    const char *Caption, *Usual;
    forms::Alignment Align = forms::Alignment::Left;
};
constexpr Column Columns[] = {
    {"Date", "30-May-2001"},
    {"Ledger", ""},
    {"Voucher No", "000000", forms::Alignment::Right},
    {"Voucher Type", "Payment"},
    {"Dr Amount", "00000000.00", forms::Alignment::Right},
    {"Cr Amount", "00000000.00", forms::Alignment::Right},
};

std::string DayNumber(basic::Date date) {
    return basic::TextOrEmpty(DateNumber(date));
}

std::string DistinctRows() {
    return "Select Distinct LedgerTrnNo, LedgerTrnType, LedgerTxnDate, LedgerDrAmt, LedgerCrAmt, LedgerCode, "
           "LedgerName, LedgerMcGenerated From tb_Ledger" +
           shared().FinYear;
}

}  // namespace

void frmDayBook::Wire() {
    ui().cmdAdd->Click = [this] { cmdAdd_Click(); };
    ui().cmdEdit->Click = [this] { cmdEdit_Click(); };
    ui().cmdDelete->Click = [this] { cmdDelete_Click(); };
    ui().cmdFilter->Click = [this] { cmdFilter_Click(); };
    ui().cmdRefresh->Click = [this] { cmdRefresh_Click(); };
    ui().cmdClose->Click = [this] { cmdClose_Click(); };
    ui().cmdOk->Click = [this] { cmdOk_Click(); };
    ui().cmdClear->Click = [this] { cmdClear_Click(); };
    ui().lvwDayBook->DblClick = [this] { cmdEdit_Click(); };
    ui().lvwDayBook->ColumnClick = [this](int index) { lvwDayBook_ColumnClick(index); };
    ui().cboFilterFld->Click = [this] { cboFilterFld_Click(); };
    ui().cboFilterFld->Change = [this] { cboFilterFld_Click(); };
    ui().dtpDateFrom->Validate = [this](bool& cancel) { dtpDateFrom_Validate(cancel); };
    ui().dtpDateUpTo->Validate = [this](bool& cancel) { dtpDateUpTo_Validate(cancel); };
    ui().txtDtAmt->Validate = [this](bool& cancel) { txtDtAmt_Validate(cancel); };
}

// The one statement without Distinct: only here two rows that are alike show as two lines. Kept 46.
void frmDayBook::Form_Load() {
    MakeColumns();
    FillComboFromArray(*ui().cboFilterFld, {"Date Range", "Date", "Type", "Amount", "Ledger"});
    OpenDayBook(
        "Select LedgerTrnNo, LedgerTrnType, LedgerTxnDate, LedgerDrAmt,LedgerCrAmt, LedgerCode,LedgerName, "
        "LedgerMcGenerated From tb_Ledger" +
        shared().FinYear + " Order By LedgerTxnDate");
    ShowToday();
    ui().dtpDateFrom->SetValue(basic::Clock::Today());
    ui().dtpDateUpTo->SetValue(basic::Clock::Today());
}

void frmDayBook::Form_Activate() {
    Form_Resize();
    FillDayBook();
}

void frmDayBook::Form_Unload() {
    if (DayBookRecordset.State() == ado::adStateOpen) DayBookRecordset.Close();
}

void frmDayBook::MakeColumns() {
    for (const Column& column : Columns)
        ui().lvwDayBook->AddColumn(
            column.Caption,
            std::max(TextWidth(column.Caption) + SortArrow, TextWidth(column.Usual) + CellMargins),
            column.Align);
    ui().lvwDayBook->AddColumn("", 0);  // holds whether the row is machine-generated
}

// The ledger's column takes what the others leave.
void frmDayBook::Form_Resize() {
    forms::ListView& list = *ui().lvwDayBook;
    constexpr int ledger = DayBookLines::LedgerCol + 1;
    if (list.ColumnCount() < ledger) return;
    int left = list.Width() - ScrollBar;
    for (int column = 1; column <= list.ColumnCount(); ++column)
        if (column != ledger) left -= list.ColumnWidth(column);
    list.SetColumnWidth(ledger, std::max(left, NarrowestLedger));
}

std::vector<forms::Form::Command> frmDayBook::CtrlCommands() {
    return {
        {'A', [this] { cmdAdd_Click(); }},    {'E', [this] { cmdEdit_Click(); }},
        {'D', [this] { cmdDelete_Click(); }}, {'R', [this] { cmdRefresh_Click(); }},
        {'X', [this] { cmdClose_Click(); }},  {'F', [this] { cmdFilter_Click(); }},
        {'O', [this] { cmdOk_Click(); }},     {'C', [this] { cmdClear_Click(); }},
    };
}

void frmDayBook::OpenDayBook(const std::string& sql) {
    const forms::WaitPointer wait;
    DayBookSql = sql;
    DayBookRecordset.Open(DayBookSql, shared().Connection, ado::adOpenStatic, ado::adLockReadOnly);
}

void frmDayBook::ShowToday() {
    ui().lvwDayBook->SetEmptyNote("No vouchers today. Filter (Ctrl+F) shows those of other days.");
    DayBookRecordset.SetFilter("LedgerTxnDate = " + DayNumber(basic::Clock::Today()));
}

void frmDayBook::FillDayBook() {
    const forms::WaitPointer wait;
    ui().lvwDayBook->Clear();
    if (DayBookRecordset.Eof() && DayBookRecordset.Bof()) return;
    ui().lvwDayBook->SetRowSource(std::make_shared<DayBookLines>(DayBookRecordset.Keep()));
}

void frmDayBook::cmdAdd_Click() {
    forms::Default<frmVoucher>().Load(0);
    cmdRefresh_Click();
}

// Any voucher can be edited, whoever posted it. What was changed shows only after a refresh.
void frmDayBook::cmdEdit_Click() {
    const auto line = ui().lvwDayBook->SelectedItem();
    if (line) forms::Default<frmVoucher>().Load(VoucherOfKey(line->Key));
}

void frmDayBook::cmdRefresh_Click() {
    {
        const forms::WaitPointer wait;
        DayBookRecordset.Requery();
    }
    FillDayBook();
}

// The voucher screen and the hosts set the mark as well, so only what the stock screens posted can go.
// Kept 44, words included.
void frmDayBook::cmdDelete_Click() {
    const auto line = ui().lvwDayBook->SelectedItem();
    if (!line) return;
    if (!Ask("Delete Voucher\r\n\r\nAre you sure ?")) return;
    const std::string& generated = line->SubItem(DayBookLines::GeneratedCol);
    if (generated == "1" || generated == "True") {
        Tell("This voucher is generated by another application !\r\n\r\nCannot Delete");
        return;
    }
    ReverseVoucher(VoucherOfKey(line->Key), Conn());
    cmdRefresh_Click();
    Tell("Voucher Deleted");
}

void frmDayBook::cmdFilter_Click() {
    ui().frFilter->SetVisible(true);
    for (forms::CommandButton* button : {ui().cmdOk, ui().cmdClear})
        button->Move(button->Left(), CommandsTop, button->Width(), button->Height());
}

// The date's column puts the list back in the order of the record set; its order is turned all the same.
void frmDayBook::lvwDayBook_ColumnClick(int index) {
    forms::ListView& list = *ui().lvwDayBook;
    list.SetSorted(index != 1);
    if (index == 1) cmdRefresh_Click();
    list.SetSortOrder(list.SortKey() == index - 1 && list.SortOrder() == 0 ? 1 : 0);
    list.SetSortKey(index - 1);
}

void frmDayBook::cboFilterFld_Click() {
    const std::string field = ui().cboFilterFld->Text();
    const bool range = field == "Date Range", date = field == "Date", amount = field == "Amount";
    const bool value = field == "Type" || field == "Ledger";
    if (!range && !date && !amount && !value) return;
    ui().lblFrom->SetVisible(range);
    ui().lblTo->SetVisible(range);
    ui().dtpDateFrom->SetVisible(range || date);
    ui().dtpDateUpTo->SetVisible(range);
    ui().txtDtAmt->SetVisible(amount);
    ui().cboFilterValue->SetVisible(value);
    ui().txtDtUpto->SetVisible(false);
    ui().lblComp->SetCaption(amount ? ">=" : "=");
    if (value) ui().cboFilterValue->Clear();
    if (field == "Type") FillComboFromArray(*ui().cboFilterValue, VoucherTypeWords());
    if (field == "Ledger") FillLedgerNames();
}

// Ledgers that are marked as deleted have rows too.
void frmDayBook::FillLedgerNames() {
    const ado::RecordsetPtr ledgers = ExecuteRecordset("Select * From Ledger_Master Order By  Name");
    for (; !ledgers->Eof(); ledgers->MoveNext())
        ui().cboFilterValue->AddItem(basic::TextOrEmpty((*ledgers)["Name"]));
}

// With no field chosen nothing is opened: the rows that Filter had hidden come up. Kept 47.
void frmDayBook::cmdOk_Click() {
    const std::string field = ui().cboFilterFld->Text(), value = ui().cboFilterValue->Text();
    const std::string from = DayNumber(ui().dtpDateFrom->Value());
    DayBookRecordset.SetFilter("");
    ui().lvwDayBook->SetEmptyNote("No vouchers match the filter.");
    if (field == "Date Range")
        Reopen(" Where LedgerTxnDate >= " + from +
               " And LedgerTxnDate <= " + DayNumber(ui().dtpDateUpTo->Value()) + " Order by LedgerTxnDate");
    else if (field == "Date")
        Reopen(" Where LedgerTxnDate = " + from + " Order by LedgerTxnDate");
    else if (field == "Type")
        Reopen(" Where LedgerTrnType = '" + value + "' Order By LedgerTxnDate");
    else if (field == "Ledger")
        Reopen(" where LedgerName = '" + value + "' Order by LedgerTxnDate");
    else if (field == "Amount") {
        const std::string amount = basic::NumberText(basic::PrefixValue(basic::Trim(ui().txtDtAmt->Text())));
        Reopen(" Where (LedgerDrAmt >=" + amount + " OR LedgerCrAmt >= " + amount +
               ") Order by LedgerTxnDate");
    }
    FillDayBook();
    ui().frFilter->SetVisible(false);
}

// Two rows that are alike show as one line from here on. Kept 46.
void frmDayBook::Reopen(const std::string& rest) {
    if (DayBookRecordset.State() == ado::adStateOpen) DayBookRecordset.Close();
    OpenDayBook(DistinctRows() + rest);
}

void frmDayBook::cmdClear_Click() {
    Reopen(" Order by LedgerTxnDate");
    ShowToday();
    FillDayBook();
    ui().frFilter->SetVisible(false);
}

// The first of April by which the year begins, or one of those after it.
basic::Date frmDayBook::FirstOfApril(int yearsOn) const {
    return basic::MakeDate(basic::ToInteger(basic::Value(shared().FinYear)) + yearsOn, 4, 1);
}

bool frmDayBook::FromIsAfterTo() {
    return ui().cboFilterFld->Text() == "Date Range" &&
           basic::DaysBetween(ui().dtpDateUpTo->Value(), ui().dtpDateFrom->Value()) >= 1;
}

void frmDayBook::dtpDateFrom_Validate(bool& cancel) {
    if (!IsInYear(ui().dtpDateFrom->Value(), RangeNamed::CurrentYear)) {
        ui().dtpDateFrom->SetValue(FirstOfApril(0));
        cancel = true;
    } else if (FromIsAfterTo()) {
        Tell("From Date cannot be more than To Date");
        cancel = true;
        ui().dtpDateFrom->SetValue(FirstOfApril(0));
        ui().dtpDateUpTo->SetValue(basic::AddDays(FirstOfApril(1), -1));
    }
}

// Out of the year, the to date goes to the day after it, which is refused in turn; before the from date, it
// is the from date that moves. Both kept 45.
void frmDayBook::dtpDateUpTo_Validate(bool& cancel) {
    if (!IsInYear(ui().dtpDateUpTo->Value(), RangeNamed::CurrentYear)) {
        ui().dtpDateUpTo->SetValue(FirstOfApril(1));
        cancel = true;
    } else if (FromIsAfterTo()) {
        Tell("To Date cannot be less than From Date");
        cancel = true;
        ui().dtpDateFrom->SetValue(FirstOfApril(0));
    }
}

void frmDayBook::txtDtAmt_Validate(bool& cancel) {
    const std::string amount = basic::Trim(ui().txtDtAmt->Text());
    if (ui().cboFilterFld->Text() != "Amount" || amount.empty() || basic::IsNumeric(amount)) return;
    Tell("Please enter a valid amount");
    cancel = true;
}

}  // namespace qm
