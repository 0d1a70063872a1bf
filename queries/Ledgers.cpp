#include "queries/Ledgers.h"

#include "core/Quoting.h"
#include "queries/LedgerDetails.h"
#include "queries/LedgerSums.h"

namespace queries {
namespace {

LedgerRow Row(const LedgerDetails& ledger, const SumsByLedger& sums) {
    LedgerRow row;
    row.id = ledger.id;
    row.name = ledger.name;
    row.group = ledger.group;
    row.deleted = ledger.deleted;
    row.opening = ledger.Opening();
    const Sides of = SidesOf(sums, row.id);
    row.debit = of.debit;
    row.credit = of.credit;
    row.closing = row.opening + row.debit - row.credit;
    row.postedDebit = ledger.debit;
    row.postedCredit = ledger.credit;
    row.postedClosing = ledger.closing;
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
    LedgerSums read(books);
    const SumsByLedger& sums = read.Of({});
    std::vector<LedgerRow> rows;
    for (const LedgerDetails& ledger : ReadDetails(books, LedgerOrder::ByName))
        rows.push_back(Row(ledger, sums));
    return rows;
}

std::optional<std::int32_t> LedgerCalled(Reading& books, const std::string& name) {
    const auto found =
        books.Select("Select Ledger_ID From Ledger_Master Where Name = " + qm::QuotedDoubled(name));
    if (found->Eof()) return std::nullopt;
    return basic::ToLong((*found)["Ledger_ID"]);
}

std::unique_ptr<SheetOf<LedgerRow>> LedgersSheet(Reading& books) {
    return std::make_unique<SheetOf<LedgerRow>>("Ledgers, " + books.LongYear(), Columns(), Ledgers(books));
}

}  // namespace queries
