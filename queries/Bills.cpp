#include "queries/Bills.h"

#include <map>

#include "queries/Stock.h"
#include "queries/Words.h"

namespace queries {
namespace {

BillRow Bill(ado::Recordset& bill) {
    BillRow row;
    row.bill = TextOf(bill, "BillID");
    row.receipt = NumberOf(bill, "BillTxnID");
    row.voucher = NumberOf(bill, "BillVchrNo");
    if (basic::ToBoolean(bill["ISPoBill"])) row.order = NumberOf(bill, "InstrumentID");
    row.discount = FigureOf(bill, "BillDiscount").value_or(0);
    row.tax = FigureOf(bill, "BillTaxRate").value_or(0);
    row.charges = FigureOf(bill, "BillOtherCharges").value_or(0);
    return row;
}

// What the vouchers tell of their bills: a row for each of two ledgers.
std::map<std::int32_t, BillRow> VouchersOfBills(Reading& books) {
    std::map<std::int32_t, BillRow> vouchers;
    for (const auto rows = SelectStock(
             books,
             "Select LedgerTrnNo, LedgerCode, LedgerName, LedgerTxnDate, LedgerDrAmt, LedgerCrAmt, "
             "LedgerNarration From " +
                 books.Table("tb_Ledger") + ", " + books.Table("tblBills") +
                 " Where BillVchrNo = LedgerTrnNo");
         !rows->Eof(); rows->MoveNext()) {
        BillRow& voucher = vouchers[NumberOf(*rows, "LedgerTrnNo")];
        voucher.date = DayOf(*rows, "LedgerTxnDate");
        voucher.narration = TextOf(*rows, "LedgerNarration");
        if (const double credit = FigureOf(*rows, "LedgerCrAmt").value_or(0); credit > 0) {
            voucher.supplierLedger = NumberOf(*rows, "LedgerCode");
            voucher.supplier = TextOf(*rows, "LedgerName");
            voucher.posted = credit;
        }
        if (FigureOf(*rows, "LedgerDrAmt").value_or(0) > 0) voucher.debited = TextOf(*rows, "LedgerName");
    }
    return vouchers;
}

std::map<std::int32_t, double> GoodsByReceipt(Reading& books) {
    std::map<std::int32_t, double> goods;
    for (const auto rows =
             SelectStock(books, "Select ItemLedTrnNo, ItemLedTrnRptQty, ItemLedUnitPrice From " +
                                    books.Table("tblItemLed") + " Where ItemLedTrnType = 'Receipt'");
         !rows->Eof(); rows->MoveNext())
        goods[NumberOf(*rows, "ItemLedTrnNo")] +=
            FigureOf(*rows, "ItemLedTrnRptQty").value_or(0) * FigureOf(*rows, "ItemLedUnitPrice").value_or(0);
    return goods;
}

const std::vector<Filled<BillRow>>& Columns() {
    using Row = const BillRow&;
    static const std::vector<Filled<BillRow>> columns{
        {{"date", "Date", Kind::Date}, [](Row row) { return ValueOf(row.date); }},
        {{"bill", "Bill", Kind::Text}, [](Row row) -> basic::Value { return row.bill; }},
        {{"supplier", "Supplier", Kind::Text}, [](Row row) -> basic::Value { return row.supplier; }},
        {{"debited", "Debited To", Kind::Text}, [](Row row) -> basic::Value { return row.debited; }},
        {{"receipt", "Receipt", Kind::Number}, [](Row row) -> basic::Value { return row.receipt; }},
        {{"order", "Order", Kind::Number}, [](Row row) { return ValueOf(row.order); }},
        {{"voucher", "Voucher", Kind::Number}, [](Row row) -> basic::Value { return row.voucher; }},
        {{"goods", "Goods", Kind::Amount, true}, [](Row row) -> basic::Value { return row.goods; }},
        {{"discount", "Discount %", Kind::Quantity}, [](Row row) -> basic::Value { return row.discount; }},
        {{"tax", "Tax %", Kind::Quantity}, [](Row row) -> basic::Value { return row.tax; }},
        {{"charges", "Other Charges", Kind::Amount, true},
         [](Row row) -> basic::Value { return row.charges; }},
        {{"posted", "Posted", Kind::Amount, true}, [](Row row) -> basic::Value { return row.posted; }},
        {{"narration", "Narration", Kind::Text}, [](Row row) -> basic::Value { return row.narration; }},
    };
    return columns;
}

}  // namespace

std::vector<BillRow> Bills(Reading& books, const BillFilter& filter) {
    const Reading::Moment moment(books);
    const auto vouchers = VouchersOfBills(books);
    const auto goods = GoodsByReceipt(books);
    const Words words(filter.words);
    std::vector<BillRow> kept;
    for (const auto bills = SelectStock(books, "Select * From " + books.Table("tblBills")); !bills->Eof();
         bills->MoveNext()) {
        BillRow row = Bill(*bills);
        if (const auto found = vouchers.find(row.voucher); found != vouchers.end()) {
            row.date = found->second.date;
            row.supplierLedger = found->second.supplierLedger;
            row.supplier = found->second.supplier;
            row.debited = found->second.debited;
            row.posted = found->second.posted;
            row.narration = found->second.narration;
        }
        if (const auto found = goods.find(row.receipt); found != goods.end()) row.goods = found->second;
        if (Holds(filter.days, row.date) && (!filter.supplier || row.supplierLedger == filter.supplier) &&
            words.In({row.bill, row.supplier, row.debited, row.narration}))
            kept.push_back(std::move(row));
    }
    return kept;
}

std::unique_ptr<SheetOf<BillRow>> BillsSheet(Reading& books, const BillFilter& filter) {
    return std::make_unique<SheetOf<BillRow>>("Bills, " + TitleOf(books, filter.days), Columns(),
                                              Bills(books, filter));
}

}  // namespace queries
