#include "queries/GroupLedgers.h"

#include <algorithm>

#include "core/Quoting.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "queries/Conditions.h"
#include "queries/LedgerDetails.h"

namespace queries {
namespace {

constexpr std::size_t LedgersAtOnce = 1000;  // of one statement

void AddSums(Reading& books, const std::vector<std::int32_t>& ledgers, const Range& range,
             std::map<std::int32_t, Sides>& sums) {
    std::vector<std::string> conditions = DayConditions(range);
    conditions.push_back(AmongLedgers(ledgers));
    const auto rows =
        books.Select("Select LedgerTxnDate, Sum(LedgerDrAmt) As Dr, Sum(LedgerCrAmt) As Cr From " +
                     books.Table("tb_Ledger") + WhereAll(conditions) + " Group By LedgerTxnDate");
    for (; !rows->Eof(); rows->MoveNext()) {
        const basic::Value day = (*rows)["LedgerTxnDate"];
        if (day.IsNull()) continue;
        Sides& of = sums[basic::ToLong(day)];
        of.debit += basic::NumberOrZero((*rows)["Dr"]);
        of.credit += basic::NumberOrZero((*rows)["Cr"]);
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

std::string AmongLedgers(const std::vector<std::int32_t>& ledgers) {
    std::string list;
    for (const std::int32_t ledger : ledgers) list += (list.empty() ? "" : ", ") + std::to_string(ledger);
    return list.empty() ? "LedgerCode Is Null And LedgerCode = 0" : "LedgerCode In (" + list + ")";
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
