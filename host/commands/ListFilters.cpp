#include "host/commands/ListFilters.h"

#include <vector>

#include "host/make/Fail.h"
#include "platform/basic/Dates.h"
#include "platform/basic/Text.h"

namespace host {
namespace {

std::optional<basic::Date> DayOf(const char* option, const std::string& text) {
    if (text.empty()) return {};
    if (!basic::IsDate(text))
        Fail(std::string(option) + " '" + text + "' is no date; one is written like 01-Apr-2001");
    return basic::DatePart(basic::ReadDate(text));
}

}  // namespace

queries::Range DaysOf(const ListFilters& filters) {
    const queries::Range days{DayOf("--from", filters.from), DayOf("--upto", filters.upto)};
    if (days.from && days.upto && *days.from > *days.upto) Fail("--from is later than --upto");
    return days;
}

std::optional<qm::VoucherType> VoucherTypeOf(const ListFilters& filters) {
    if (filters.type.empty()) return {};
    for (const std::string& word : qm::VoucherTypeWords())
        if (basic::EqualText(word, filters.type) || basic::EqualText(basic::Left(word, 1), filters.type))
            return qm::TypeOfWord(word);
    Fail("--type '" + filters.type + "' is none of Receipt, Payment, Contra and Journal");
}

std::string MovementTypeOf(const ListFilters& filters) {
    if (filters.type.empty()) return {};
    for (const char* word : {"Receipt", "Issue"})
        if (basic::EqualText(word, filters.type) || basic::EqualText(basic::Left(word, 1), filters.type))
            return word;
    Fail("--type '" + filters.type + "' is none of Receipt and Issue");
}

std::optional<std::int32_t> LedgerOf(const ListFilters& filters, queries::Reading& books) {
    return filters.ledger.empty() ? std::nullopt : std::optional(LedgerNamed(filters.ledger, books));
}

std::int32_t LedgerNamed(const std::string& text, queries::Reading& books) {
    std::vector<std::int32_t> named;
    std::optional<std::int32_t> numbered;
    for (const auto rows =
             books.Select("Select Ledger_Master.Ledger_ID, Name From Ledger_Master, Ledger_Details Where "
                          "Ledger_Master.Ledger_ID = Ledger_Details.Ledger_ID And Fnncl_Yr = " +
                          books.Year());
         !rows->Eof(); rows->MoveNext()) {
        const std::int32_t id = basic::ToLong((*rows)["Ledger_ID"]);
        if (basic::EqualText(basic::TextOrEmpty((*rows)["Name"]), basic::Trim(text)) &&
            (named.empty() || named.back() != id))
            named.push_back(id);
        if (std::to_string(id) == basic::Trim(text)) numbered = id;
    }
    if (named.size() > 1) Fail("two ledgers are named '" + text + "'; give the number");
    if (named.size() == 1) return named.front();
    if (!numbered) Fail("the year " + books.Year() + " has no ledger '" + text + "'");
    return *numbered;
}

}  // namespace host
