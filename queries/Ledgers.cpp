#include "queries/Ledgers.h"

#include "queries/LedgerSums.h"

namespace queries {
namespace {

std::optional<double> Figure(const basic::Value& stored) {
    return stored.IsNull() ? std::nullopt : std::optional(basic::ToDouble(stored));
}

LedgerRow Row(ado::Recordset& ledger, const std::map<std::int32_t, Sides>& sums) {
    LedgerRow row;
    row.id = basic::ToLong(ledger["Ledger_ID"]);
    row.name = basic::TextOrEmpty(ledger["Name"]);
    row.group = basic::TextOrEmpty(ledger["PrimaryGrp"]);
    row.deleted = basic::ToBoolean(ledger["Deleted"]);
    row.opening = SignedOpening(ledger);
    if (const auto found = sums.find(row.id); found != sums.end()) {
        row.debit = found->second.debit;
        row.credit = found->second.credit;
    }
    row.closing = row.opening + row.debit - row.credit;
    row.postedDebit = Figure(ledger["LedDetDRTxnTot"]);
    row.postedCredit = Figure(ledger["LedDetCRTxnTot"]);
    row.postedClosing = Figure(ledger["Closing_Bal"]);
    return row;
}

const std::vector<Filled<LedgerRow>>& Columns() {
    using Row = const LedgerRow&;
    static const std::vector<Filled<LedgerRow>> columns{
        {{"ledger", "Ledger", Kind::Text}, [](Row row) -> basic::Value { return row.name; }},
        {{"group", "Group", Kind::Text}, [](Row row) -> basic::Value { return row.group; }},
        {{"opening", "Opening", Kind::Amount, true}, [](Row row) -> basic::Value { return row.opening; }},
        {{"debit", "Debit", Kind::Amount, true}, [](Row row) -> basic::Value { return row.debit; }},
        {{"credit", "Credit", Kind::Amount, true}, [](Row row) -> basic::Value { return row.credit; }},
        {{"closing", "Closing", Kind::Amount, true}, [](Row row) -> basic::Value { return row.closing; }},
        {{"posted_debit", "Posted Debit", Kind::Amount, true},
         [](Row row) { return ValueOf(row.postedDebit); }},
        {{"posted_credit", "Posted Credit", Kind::Amount, true},
         [](Row row) { return ValueOf(row.postedCredit); }},
        {{"posted_closing", "Posted Closing", Kind::Amount, true},
         [](Row row) { return ValueOf(row.postedClosing); }},
        {{"deleted", "Deleted", Kind::Flag}, [](Row row) -> basic::Value { return row.deleted; }},
    };
    return columns;
}

}  // namespace

std::vector<LedgerRow> Ledgers(Reading& books) {
    const Reading::Moment moment(books);
    const std::map<std::int32_t, Sides> sums = SumsByLedger(books);
    const auto ledgers = books.Select(
        "Select Ledger_Master.Ledger_ID, Name, PrimaryGrp, Deleted, Opening_Bal, Bal_Type, LedDetDRTxnTot, "
        "LedDetCRTxnTot, Closing_Bal From Ledger_Master, Ledger_Details Where Ledger_Master.Ledger_ID = "
        "Ledger_Details.Ledger_ID And Fnncl_Yr = " +
        books.Year() + " Order By Name");
    std::vector<LedgerRow> rows;
    for (; !ledgers->Eof(); ledgers->MoveNext()) rows.push_back(Row(*ledgers, sums));
    return rows;
}

std::unique_ptr<SheetOf<LedgerRow>> LedgersSheet(Reading& books) {
    return std::make_unique<SheetOf<LedgerRow>>("Ledgers, " + books.LongYear(), Columns(), Ledgers(books));
}

}  // namespace queries
