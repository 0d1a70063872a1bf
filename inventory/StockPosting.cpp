#include "inventory/StockPosting.h"

#include "core/CountedExecution.h"
#include "core/DBCode.h"
#include "core/FDBCode.h"
#include "core/LedgerSide.h"
#include "core/NextNumber.h"
#include "core/Quoting.h"
#include "core/VoucherType.h"
#include "core/modGeneral.h"
#include "platform/basic/Number.h"

namespace qm {

void InsertMovement(const Movement& row) {
    using basic::NumberText;
    ExecuteCounted("Insert Into tblItemLed" + shared().FinYear +
                   "(ItemLedTrnNo, ItemLedTrnDate, ItemLedTrnType, ItemLedItemId, ItemLedPONo, "
                   "ItemLedItemDesc, ItemLedTrnIssQty, ItemLedTrnRptQty, ItemLedNote, ItemledUnitPrice, "
                   "ItemLedBillNo, ItemLandingCost) Values(" +
                   NumberText(row.TxnNo) + ", " + basic::TextOrEmpty(DateNumber(row.Date)) + ", '" +
                   row.Type + "', " + NumberText(row.ItemId) + ", 0, " + Quoted(row.Description) + ", " +
                   NumberText(row.Issued) + ", " + NumberText(row.Received) + ", " + Quoted(row.Note) + ", " +
                   NumberText(row.UnitPrice) + ", 0," +
                   (row.LandingCost ? NumberText(*row.LandingCost) : " 0") + ")");
}

void UpdateRemark(double txnNo, double itemId, const std::string& type, const std::string& remark) {
    ExecuteCounted("Update tblItemLed" + shared().FinYear + " Set ItemLedNote = " + Quoted(remark) +
                   " Where ItemLedTrnNo =  " + basic::NumberText(txnNo) + " And ItemLedItemId = " +
                   basic::NumberText(itemId) + " And ItemLedTrnType = '" + type + "'");
}

void AddReceived(double itemId, double qty) {
    ExecuteCounted("Update ItemMaster" + shared().FinYear +
                   " Set ReceivedQty = Iif(IsNull(ReceivedQty), 0, ReceivedQty) + " + basic::NumberText(qty) +
                   " Where Item_ID = " + basic::NumberText(itemId));
}

void AddIssued(double itemId, double qty) {
    ExecuteCounted("Update ItemMaster" + shared().FinYear +
                   " Set IssuedQty = Iif(IsNull(IssuedQty), 0, IssuedQty) + " + basic::NumberText(qty) +
                   " Where Item_ID = " + basic::NumberText(itemId));
}

void PostBill(const Bill& bill) {
    using basic::NumberText;
    Conn().BeginTrans();
    std::int32_t voucherNo = NextNumber("Select max(LedgerTrnNo) As High from tb_Ledger" + shared().FinYear);
    const auto post = [&](LedgerSide side, const EntrySide& ledger) {
        voucherNo = PostVoucherRow(voucherNo, bill.Date, CodeOf(VoucherType::Journal), CodeOf(side),
                                   bill.Narration, bill.Amount, ledger.LedgerId, ledger.LedgerName);
        RequireRecords(voucherNo != 0);
    };
    post(LedgerSide::Credit, bill.Credit);
    post(LedgerSide::Debit, bill.Debit);
    ExecuteCounted("Insert into tblBills" + shared().FinYear +
                   "(BillID, BillTxnID, BillVchrNo, ISPoBill, InstrumentID, BillDiscount, BillTaxRate, "
                   "BillOtherCharges) Values (" +
                   Quoted(bill.BillNo) + ", " + NumberText(bill.TxnNo) + ", " + NumberText(voucherNo) + ", " +
                   (bill.OfOrder ? "True" : "False") + ", " + NumberText(bill.InstrumentId) + ", " +
                   NumberText(bill.Discount) + ", " + NumberText(bill.TaxRate) + ", " +
                   NumberText(bill.OtherCharges) + ")");
    Conn().CommitTrans();
}

}  // namespace qm
