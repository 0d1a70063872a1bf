#include "queries/Parties.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>

#include "core/Masks.h"
#include "platform/basic/Clock.h"
#include "platform/basic/Dates.h"
#include "platform/basic/Format.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "queries/Conditions.h"
#include "queries/GroupLedgers.h"
#include "queries/LedgerDetails.h"

namespace queries {
namespace {

constexpr std::array Ages{30, 60, 90};  // days, the last of each part; the fourth has no end
constexpr std::size_t Parts = Ages.size() + 1;
using ByAge = std::array<Sides, Parts>;

std::size_t PartOf(std::int32_t age) {
    return static_cast<std::size_t>(std::upper_bound(Ages.begin(), Ages.end(), age, std::less_equal<>()) -
                                    Ages.begin());
}

// Both sums of the rows not older than so many days, under names that end in `part`.
std::string SumsOfPart(std::size_t part, basic::Date asOf) {
    const std::string end = std::to_string(part);
    const auto sum = [&](const std::string& field) {
        if (part == Ages.size()) return "Sum(" + field + ")";
        const std::string first = std::to_string(DayOf(basic::AddDays(asOf, -Ages[part])));
        return "Sum(Iif(LedgerTxnDate >= " + first + ", " + field + ", 0))";
    };
    return ", " + sum("LedgerDrAmt") + " As Dr" + end + ", " + sum("LedgerCrAmt") + " As Cr" + end;
}

// What was posted to each ledger up to the day, by age.
std::map<std::int32_t, ByAge> SumsByAge(Reading& books, basic::Date asOf) {
    std::string list;
    for (std::size_t part = 0; part < Parts; ++part) list += SumsOfPart(part, asOf);
    const auto rows =
        books.Select("Select LedgerCode" + list + " From " + books.Table("tb_Ledger") +
                     WhereAll(DayConditions({.from = {}, .upto = asOf})) + " Group By LedgerCode");
    std::map<std::int32_t, ByAge> sums;
    for (; !rows->Eof(); rows->MoveNext()) {
        const basic::Value code = (*rows)["LedgerCode"];
        if (code.IsNull()) continue;
        Sides before;
        std::size_t field = 0;
        for (Sides& of : sums[basic::ToLong(code)]) {
            const Sides upto{basic::NumberOrZero(rows->Fields(++field).Value()),
                             basic::NumberOrZero(rows->Fields(++field).Value())};
            of = {upto.debit - before.debit, upto.credit - before.credit};
            before = upto;
        }
    }
    return sums;
}

double Paise(double amount) {
    return basic::Round(amount, 2);
}

// The newest rows of the balance's own side make it up; what they leave is of the opening.
PartyRow Aged(const LedgerDetails& ledger, const ByAge& sums, std::size_t opening) {
    PartyRow row;
    row.id = ledger.id;
    row.name = ledger.name;
    row.group = ledger.group;
    row.balance = ledger.Opening();
    for (const Sides& of : sums) row.balance += of.Net();
    row.balance = Paise(row.balance);
    const bool debit = row.balance > 0;
    double left = std::abs(row.balance);
    std::array<double, Parts> parts{};
    for (std::size_t part = 0; part < Parts; ++part) {
        parts[part] = std::min(left, std::max(0.0, Paise(debit ? sums[part].debit : sums[part].credit)));
        left = Paise(left - parts[part]);
    }
    parts[opening] = Paise(parts[opening] + left);
    const double sign = debit ? 1 : -1;
    row.upto30 = sign * parts[0], row.upto60 = sign * parts[1], row.upto90 = sign * parts[2];
    row.older = sign * parts[3];
    return row;
}

bool Fits(const PartyRow& row, const PartyFilter& filter) {
    if (row.balance == 0 ||
        (filter.owing != Owing::Both && (row.balance > 0) != (filter.owing == Owing::ToUs)))
        return false;
    const std::array parts{row.upto30, row.upto60, row.upto90, row.older};
    double wanted = 0;
    for (std::size_t part = 0; part < Parts; ++part) {
        const bool oldEnough = part == 0 ? filter.olderThan == 0 : Ages[part - 1] >= filter.olderThan;
        const bool youngEnough = filter.upto == 0 || (part < Ages.size() && Ages[part] <= filter.upto);
        if (oldEnough && youngEnough) wanted += parts[part];
    }
    return Paise(wanted) != 0;
}

basic::Date DayOrToday(const Reading& books, std::optional<basic::Date> asOf) {
    return asOf.value_or(std::min(basic::Clock::Today(), books.LastDay()));
}

const std::vector<Filled<PartyRow>>& Columns() {
    using Row = const PartyRow&;
    static const std::vector<Filled<PartyRow>> columns{
        {{"party", "Party", Kind::Text}, [](Row row) -> basic::Value { return row.name; }},
        {{"group", "Group", Kind::Text}, [](Row row) -> basic::Value { return row.group; }},
        {{"balance", "Balance", Kind::Amount, true}, [](Row row) -> basic::Value { return row.balance; }},
        {{"upto_30_days", "Up to 30 Days", Kind::Amount, true},
         [](Row row) { return SideValue(row.upto30); }},
        {{"upto_60_days", "31 to 60", Kind::Amount, true}, [](Row row) { return SideValue(row.upto60); }},
        {{"upto_90_days", "61 to 90", Kind::Amount, true}, [](Row row) { return SideValue(row.upto90); }},
        {{"older", "Over 90", Kind::Amount, true}, [](Row row) { return SideValue(row.older); }},
    };
    return columns;
}

}  // namespace

std::vector<PartyRow> Parties(Reading& books, std::optional<basic::Date> asOf, const PartyFilter& filter) {
    const Reading::Moment moment(books);
    const basic::Date day = DayOrToday(books, asOf);
    const auto sums = SumsByAge(books, day);
    const std::size_t opening = PartOf(basic::DaysBetween(books.FirstDay(), day) + 1);
    std::set<std::int32_t> met;
    std::vector<PartyRow> rows;
    for (const LedgerDetails& ledger : ReadDetails(books, LedgerOrder::ByName)) {
        const bool party =
            basic::EqualText(ledger.group, DebtorsGroup) || basic::EqualText(ledger.group, SuppliersGroup);
        if (!party || !met.insert(ledger.id).second) continue;
        const auto found = sums.find(ledger.id);
        PartyRow row = Aged(ledger, found == sums.end() ? ByAge() : found->second, opening);
        if (Fits(row, filter)) rows.push_back(std::move(row));
    }
    return rows;
}

std::unique_ptr<SheetOf<PartyRow>> PartiesSheet(Reading& books, std::optional<basic::Date> asOf,
                                                const PartyFilter& filter) {
    const basic::Date day = DayOrToday(books, asOf);
    return std::make_unique<SheetOf<PartyRow>>("Parties by age, " + basic::Format(day, qm::DateMask),
                                               Columns(), Parties(books, day, filter));
}

}  // namespace queries
