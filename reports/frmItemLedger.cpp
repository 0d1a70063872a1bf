#include "reports/frmItemLedger.h"

#include "core/modGeneral.h"
#include "platform/basic/Clock.h"
#include "platform/basic/Dates.h"
#include "platform/basic/Number.h"
#include "reports/SelectionReport.h"
#include "reports/frmLedger.h"

namespace qm {

void frmItemLedger::Wire() {
    ui().ucItemLedger->OkClick = [this] { ucItemLedger_OkClick(); };
    ui().ucItemLedger->CancelClick = [this] { ucItemLedger_CancelClick(); };
    range_.emplace(*ui().dtpDateFrom, *ui().dtpDateUpTo, DateRange::LastOfYear);
}

// The from date is 1 April of the calendar year of today, which before April is no date of the year. Kept 79.
void frmItemLedger::Form_Load() {
    if (items_ && items_->State() != ado::adStateClosed) {
        items_->Requery();
    } else {
        items_ = std::make_shared<ado::Recordset>();
        items_->Open("Select * from itemMaster" + shared().FinYear + " Order by Item_Name",
                     shared().Connection, ado::adOpenDynamic);
    }
    ui().ucItemLedger->SetADORecordset(items_);
    ui().ucItemLedger->SetSelFldName("Item_Name");
    ui().ucItemLedger->SetSelpkFld("Item_id");
    ui().dtpDateFrom->SetValue(basic::MakeDate(basic::Parts(basic::Clock::Today()).Year, 4, 1));
    ui().dtpDateUpTo->SetValue(basic::Clock::Today());
}

// The focus is what fills the list.
void frmItemLedger::Form_Activate() {
    ui().ucItemLedger->SetFocus();
}

// optSumm is "Short Supply", which has no report.
void frmItemLedger::ucItemLedger_OkClick() {
    if (!ui().optSumm->Value()) PrintStockLedger();
}

// One opening quantity for all items: one whose own is Null starts where the item before it ended. Kept 71.
void frmItemLedger::PrintStockLedger() {
    auto& page = forms::Default<frmLedger>();
    page.SetFromDate(ui().dtpDateFrom->Value());
    page.SetToDate(ui().dtpDateUpTo->Value());
    const std::int32_t from = range_->From(), upto = range_->Upto();
    double opening = 0;
    PrintSelected("Stock Ledger", ui().ucItemLedger->itemSel(), [&](const std::string& itemId) {
        OpeningOf(itemId, from, opening);
        const ado::RecordsetPtr item = Conn().Execute("Select Item_name from ItemMaster" + shared().FinYear +
                                                      " Where item_id = " + itemId);
        ado::Recordset rows;
        rows.Open(" SELECT  *  From tblitemLed" + shared().FinYear + " WHERE itemledItemid = " + itemId +
                      " And itemledtrnDate >= " + std::to_string(from) + " And itemledtrnDate <= " +
                      std::to_string(upto) + " Order by  itemledtrndate, itemledTrnType Desc",
                  shared().Connection, ado::adOpenForwardOnly, ado::adLockReadOnly, ado::adCmdText);
        page.ItemPrnLed(opening, rows, basic::ToText((*item)["Item_name"]), basic::ToInteger(itemId));
        rows.Close();
    });
    Unload();
}

void frmItemLedger::OpeningOf(const std::string& itemId, std::int32_t from, double& opening) {
    const ado::RecordsetPtr stored =
        Conn().Execute("Select open_Stock from ItemMaster" + shared().FinYear + " WHERE Item_Id =" + itemId);
    const std::string earlier = shared().FinYear + " WHERE itemledtrndate < " + std::to_string(from) +
                                " AND itemledItemid = " + itemId;
    const ado::RecordsetPtr received =
        Conn().Execute("SELECT SUM(itemledTrnRptqty) As drVal From  tblitemled" + earlier);
    const ado::RecordsetPtr issued =
        Conn().Execute("SELECT SUM(itemledTrnissqty) As crVal From  tblitemled" + earlier);
    const basic::Value stock = (*stored)["open_Stock"];
    if (!stock.IsNull()) opening = basic::ToDouble(stock);
    opening = opening + basic::NumberOrZero((*received)["drVal"]) - basic::NumberOrZero((*issued)["crVal"]);
}

}  // namespace qm
