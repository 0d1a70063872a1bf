#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/basic/Value.h"

namespace qm {

// What the stock screens write. Values go into the statements as they stand: a text with a double quote makes
// its statement fail. A statement that affects no record raises error 0, which the screen's failure step
// takes. The transactions are the screens', but for PostBill.

// A row of tblItemLed<FinYear> that belongs to no order; frmPOReceipt writes the others.
struct Movement {
    std::int32_t TxnNo = 0;
    basic::Date Date;
    std::string Type;  // "Receipt" or "Issue"
    double ItemId = 0;
    std::string Description;
    double Issued = 0, Received = 0;
    std::string Note;
    double UnitPrice = 0;
    std::optional<double> LandingCost;  // of a receipt
};
void InsertMovement(const Movement& row);

// Of a row that is saved, only the remark is ever written again.
void UpdateRemark(double txnNo, double itemId, const std::string& type, const std::string& remark);

// Each adds to a counter of the item, ReceivedQty or IssuedQty. Its Balance is left as it stands. Kept 50.
void AddReceived(double itemId, double qty);
void AddIssued(double itemId, double qty);

// A ledger as an entry's row bears it.
struct EntrySide {
    std::int32_t LedgerId = 0;
    std::string LedgerName;
};

// A supplier's bill with its entry: two rows of one amount.
struct Bill {
    std::int32_t TxnNo = 0;
    basic::Date Date;
    std::string Narration;
    double Amount = 0;
    EntrySide Credit, Debit;
    std::string BillNo;
    bool OfOrder = false;
    std::int32_t InstrumentId = 0;  // the order's number
    double Discount = 0, TaxRate = 0, OtherCharges = 0;
};

// Draws the entry's number, writes the credit row, the debit row and the bill, in one transaction that it
// begins and commits. A failure leaves it open and raises. The running totals of Ledger_Details are not
// touched: kept 52.
void PostBill(const Bill& bill);

}  // namespace qm
