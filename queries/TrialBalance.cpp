#include "queries/TrialBalance.h"

#include "platform/basic/Dates.h"
#include "queries/LedgerDetails.h"

namespace queries {
namespace {

TrialRow Named(const LedgerDetails& ledger) {
    TrialRow row;
    row.id = ledger.id;
    row.name = ledger.name;
    row.group = ledger.group;
    row.deleted = ledger.deleted;
    row.opening = ledger.Opening();
    return row;
}

TrialRow AsReported(const LedgerDetails& ledger, const SumsByLedger& sums) {
    TrialRow row = Named(ledger);
    const auto found = sums.find(ledger.id);
    const bool summed = found != sums.end();
    row.debit = summed ? found->second.debit : ledger.debit;
    row.credit = summed ? found->second.credit : ledger.credit;
    row.closing = ledger.ClosingBy(row.debit, row.credit);
    return row;
}

TrialRow ByRows(const LedgerDetails& ledger, const SumsByLedger& before, const SumsByLedger& within) {
    TrialRow row = Named(ledger);
    row.opening += SidesOf(before, ledger.id).Net();
    const Sides of = SidesOf(within, ledger.id);
    row.debit = of.debit;
    row.credit = of.credit;
    row.closing = row.opening + of.debit - of.credit;
    return row;
}

basic::Value OnSide(const std::optional<double>& balance, bool debit) {
    if (!balance || (*balance > 0) != debit) return {};
    return debit ? *balance : 0 - *balance;
}

const std::vector<Filled<TrialRow>>& Columns() {
    using Row = const TrialRow&;
    static const std::vector<Filled<TrialRow>> columns{
        {{"ledger", "Ledger", Kind::Text}, [](Row row) -> basic::Value { return row.name; }},
        {{"group", "Group", Kind::Text}, [](Row row) -> basic::Value { return row.group; }},
        {{"opening", "Opening", Kind::Amount, true}, [](Row row) -> basic::Value { return row.opening; }},
        {{"debit", "Debit", Kind::Amount, true}, [](Row row) { return ValueOf(row.debit); }},
        {{"credit", "Credit", Kind::Amount, true}, [](Row row) { return ValueOf(row.credit); }},
        {{"closing_debit", "Closing Debit", Kind::Amount, true},
         [](Row row) { return OnSide(row.closing, true); }},
        {{"closing_credit", "Closing Credit", Kind::Amount, true},
         [](Row row) { return OnSide(row.closing, false); }},
    };
    return columns;
}

}  // namespace

std::vector<TrialRow> TrialBalance(Reading& books, const Range& range, TrialBy by) {
    const Reading::Moment moment(books);
    LedgerSums sums(books);
    if (by == TrialBy::Rows || !BeginsTheYear(books, range)) return TrialBalance(books, range, sums);
    std::vector<TrialRow> rows;
    const SumsByLedger& within = sums.Of({.from = {}, .upto = range.upto});
    for (const LedgerDetails& ledger : ReadDetails(books, LedgerOrder::AsEntered))
        rows.push_back(AsReported(ledger, within));
    return rows;
}

std::vector<TrialRow> TrialBalance(Reading& books, const Range& range, LedgerSums& sums) {
    const Reading::Moment moment(books);
    const bool whole = BeginsTheYear(books, range);
    const SumsByLedger none;
    const SumsByLedger& before =
        whole ? none : sums.Of({.from = {}, .upto = basic::AddDays(*range.from, -1)});
    const SumsByLedger& within = sums.Of(whole ? Range{.from = {}, .upto = range.upto} : range);
    std::vector<TrialRow> rows;
    for (const LedgerDetails& ledger : ReadDetails(books, LedgerOrder::AsEntered))
        rows.push_back(ByRows(ledger, before, within));
    return rows;
}

std::unique_ptr<SheetOf<TrialRow>> TrialBalanceSheet(Reading& books, const Range& range, TrialBy by) {
    return std::make_unique<SheetOf<TrialRow>>("Trial balance, " + TitleOf(books, range), Columns(),
                                               TrialBalance(books, range, by));
}

}  // namespace queries
