#include "queries/LedgerSums.h"

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

std::map<std::int32_t, Sides> SumsByLedger(Reading& books, const Range& range) {
    std::map<std::int32_t, Sides> sums;
    const auto rows =
        books.Select("Select LedgerCode, Sum(LedgerDrAmt) As Dr, Sum(LedgerCrAmt) As Cr From " +
                     books.Table("tb_Ledger") + WhereAll(DayConditions(range)) + " Group By LedgerCode");
    for (; !rows->Eof(); rows->MoveNext())
        if (const basic::Value code = (*rows)["LedgerCode"]; !code.IsNull())
            sums[basic::ToLong(code)] = {AsWritten((*rows)["Dr"]), AsWritten((*rows)["Cr"])};
    return sums;
}

Sides SidesOf(const std::map<std::int32_t, Sides>& sums, std::int32_t ledger) {
    const auto found = sums.find(ledger);
    return found == sums.end() ? Sides() : found->second;
}

bool BeginsTheYear(const Reading& books, const Range& range) {
    return !range.from || *range.from <= books.FirstDay();
}

}  // namespace queries
