#include "queries/LedgerSums.h"

#include <utility>

#include "core/Masks.h"
#include "platform/basic/Format.h"
#include "platform/basic/Number.h"
#include "queries/Conditions.h"

namespace queries {
namespace {

double AsWritten(const basic::Value& sum) {
    return basic::PrefixValue(basic::NumberText(basic::NumberOrZero(sum)));
}

}  // namespace

std::vector<std::string> DayConditions(const Range& range) {
    std::vector<std::string> conditions;
    if (range.from) conditions.push_back("LedgerTxnDate >= " + std::to_string(DayOf(*range.from)));
    if (range.upto) conditions.push_back("LedgerTxnDate <= " + std::to_string(DayOf(*range.upto)));
    return conditions;
}

std::string TitleOf(const Reading& books, const Range& range) {
    const auto shown = [](basic::Date date) { return basic::Format(date, qm::DateMask); };
    return shown(range.from.value_or(books.FirstDay())) + " to " +
           shown(range.upto.value_or(books.LastDay()));
}

basic::Value SideValue(double amount) {
    return amount == 0 ? basic::Value() : basic::Value(amount);
}

Sides SidesOf(const SumsByLedger& sums, std::int32_t ledger) {
    const auto found = sums.find(ledger);
    return found == sums.end() ? Sides() : found->second;
}

// A row outside a range counts there as 0, which leaves the digits of the sum as they are.
void LedgerSums::Read(const std::vector<Range>& ranges) {
    std::string list;
    for (std::size_t at = 0; at < ranges.size(); ++at) {
        std::string within;
        for (const std::string& condition : DayConditions(ranges[at]))
            within += (within.empty() ? "" : " And ") + condition;
        for (const std::string side : {"Dr", "Cr"}) {
            const std::string field = "Ledger" + side + "Amt";
            list += ", Sum(" + (within.empty() ? field : "Iif(" + within + ", " + field + ", 0)") + ") As " +
                    side + std::to_string(at);
        }
    }
    const auto rows = books_.Select("Select LedgerCode" + list + " From " + books_.Table("tb_Ledger") +
                                    " Group By LedgerCode");
    std::vector<SumsByLedger> sums(ranges.size());
    for (; !rows->Eof(); rows->MoveNext()) {
        const basic::Value code = rows->Fields(std::size_t{0}).Value();
        if (code.IsNull()) continue;
        for (std::size_t at = 0; at < ranges.size(); ++at)
            sums[at][basic::ToLong(code)] = {AsWritten(rows->Fields(2 * at + 1).Value()),
                                             AsWritten(rows->Fields(2 * at + 2).Value())};
    }
    for (std::size_t at = 0; at < ranges.size(); ++at) read_.push_back({ranges[at], std::move(sums[at])});
}

const SumsByLedger& LedgerSums::Of(const Range& range) {
    for (const Entry& entry : read_)
        if (entry.range == range) return entry.sums;
    SumsByLedger sums;
    const auto rows =
        books_.Select("Select LedgerCode, Sum(LedgerDrAmt) As Dr, Sum(LedgerCrAmt) As Cr From " +
                      books_.Table("tb_Ledger") + WhereAll(DayConditions(range)) + " Group By LedgerCode");
    for (; !rows->Eof(); rows->MoveNext())
        if (const basic::Value code = (*rows)["LedgerCode"]; !code.IsNull())
            sums[basic::ToLong(code)] = {AsWritten((*rows)["Dr"]), AsWritten((*rows)["Cr"])};
    return read_.emplace_back(Entry{range, std::move(sums)}).sums;
}

bool BeginsTheYear(const Reading& books, const Range& range) {
    return !range.from || *range.from <= books.FirstDay();
}

}  // namespace queries
