#include "queries/GroupLedgers.h"

#include <algorithm>

#include "core/Quoting.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "queries/Conditions.h"
#include "queries/LedgerDetails.h"

namespace queries {
namespace {

constexpr std::size_t LedgersAtOnce = 500;  // that one statement names

std::string Among(const std::vector<std::int32_t>& ledgers) {
    std::string list;
    for (const std::int32_t ledger : ledgers) list += (list.empty() ? "" : ", ") + std::to_string(ledger);
    return "LedgerCode In (" + list + ")";
}

// By ledger and day, as the rows stand in their index; by day alone the store would have to sort them.
void AddSums(Reading& books, const std::vector<std::int32_t>& ledgers, const Range& range,
             std::map<std::int32_t, Sides>& sums) {
    std::vector<std::string> conditions = DayConditions(range);
    conditions.push_back(Among(ledgers));
    const auto rows = books.Select(
        "Select LedgerCode, LedgerTxnDate, Sum(LedgerDrAmt) As Dr, Sum(LedgerCrAmt) As Cr From " +
        books.Table("tb_Ledger") + WhereAll(conditions) + " Group By LedgerCode, LedgerTxnDate");
    for (; !rows->Eof(); rows->MoveNext()) {
        const basic::Value day = rows->Fields(1).Value();
        if (day.IsNull()) continue;
        Sides& of = sums[basic::ToLong(day)];
        of.debit += basic::NumberOrZero(rows->Fields(2).Value());
        of.credit += basic::NumberOrZero(rows->Fields(3).Value());
    }
}

}  // namespace

std::vector<std::int32_t> LedgersOf(Reading& books, const std::string& group) {
    std::vector<std::int32_t> ledgers;
    const auto rows = books.Select("Select Distinct Ledger_ID From Ledger_Master Where PrimaryGrp = " +
                                   qm::QuotedDoubled(group));
    for (; !rows->Eof(); rows->MoveNext())
        if (const basic::Value id = (*rows)["Ledger_ID"]; !id.IsNull()) ledgers.push_back(basic::ToLong(id));
    return ledgers;
}

// Few are named one by one, which finds their rows at once; of many each row asks.
std::string OfGroup(Reading& books, const std::string& group) {
    const std::vector<std::int32_t> ledgers = LedgersOf(books, group);
    if (!ledgers.empty() && ledgers.size() <= LedgersAtOnce) return Among(ledgers);
    return "LedgerCode = (Select Max(Ledger_ID) From Ledger_Master Where Ledger_ID = LedgerCode And "
           "PrimaryGrp "
           "= " +
           qm::QuotedDoubled(group) + ")";
}

std::map<std::int32_t, Sides> SumsByDay(Reading& books, const std::string& group, const Range& range) {
    std::map<std::int32_t, Sides> sums;
    const std::vector<std::int32_t> ledgers = LedgersOf(books, group);
    for (std::size_t at = 0; at < ledgers.size(); at += LedgersAtOnce) {
        const auto from = ledgers.begin() + static_cast<std::ptrdiff_t>(at);
        const auto upto =
            ledgers.begin() + static_cast<std::ptrdiff_t>(std::min(at + LedgersAtOnce, ledgers.size()));
        AddSums(books, {from, upto}, range, sums);
    }
    return sums;
}

double OpeningOf(Reading& books, const std::string& group) {
    double opening = 0;
    for (const LedgerDetails& ledger : ReadDetails(books, LedgerOrder::AsEntered))
        if (basic::EqualText(ledger.group, group)) opening += ledger.Opening();
    return opening;
}

}  // namespace queries
