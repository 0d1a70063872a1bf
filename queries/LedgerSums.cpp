#include "queries/LedgerSums.h"

#include "core/LedgerSide.h"
#include "platform/basic/Number.h"

namespace queries {
namespace {

double AsWritten(const basic::Value& sum) {
    return basic::PrefixValue(basic::NumberText(basic::NumberOrZero(sum)));
}

}  // namespace

std::string DaysWhere(const Range& range) {
    std::string where;
    const auto add = [&](const char* sign, const std::optional<basic::Date>& date) {
        if (date)
            where += (where.empty() ? " Where " : " And ") + ("LedgerTxnDate " + std::string(sign)) + " " +
                     std::to_string(DayOf(*date));
    };
    add(">=", range.from);
    add("<=", range.upto);
    return where;
}

std::map<std::int32_t, Sides> SumsByLedger(Reading& books, const Range& range) {
    std::map<std::int32_t, Sides> sums;
    const auto rows = books.Select("Select LedgerCode, Sum(LedgerDrAmt) As Dr, Sum(LedgerCrAmt) As Cr From " +
                                   books.Table("tb_Ledger") + DaysWhere(range) + " Group By LedgerCode");
    for (; !rows->Eof(); rows->MoveNext())
        if (const basic::Value code = (*rows)["LedgerCode"]; !code.IsNull())
            sums[basic::ToLong(code)] = {AsWritten((*rows)["Dr"]), AsWritten((*rows)["Cr"])};
    return sums;
}

double SignedOpening(ado::Recordset& details) {
    const bool credit = qm::SideOfLetter(basic::TextOrEmpty(details["Bal_Type"])) == qm::LedgerSide::Credit;
    return basic::NumberOrZero(details["Opening_Bal"]) * (credit ? -1 : 1);
}

}  // namespace queries
