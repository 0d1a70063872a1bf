#include "platform/basic/Format.h"

#include <array>
#include <cstdlib>
#include <optional>

#include "platform/basic/Dates.h"
#include "platform/basic/Decimal.h"
#include "platform/basic/Error.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"

namespace basic {
namespace {

struct NumberMask {
    std::string_view mask;
    std::size_t leastWhole;  // digits shown before the point even if they are zeros
    int places;
    bool grouped;
};

constexpr std::array<NumberMask, 6> NumberMasks{{{"#,##,###.00", 0, 2, true},
                                                 {"##,#00.00", 2, 2, true},
                                                 {"######.00", 0, 2, false},
                                                 {"#,##,###", 0, 0, true},
                                                 {"0.00", 1, 2, false},
                                                 {"standard", 1, 2, true}}};

struct Grouping {
    char group = ',', point = '.';
    std::size_t first = 3, next = 3;  // digits of the group before the point, and of those before it
};

std::string& LocaleName() {
    static std::string name = [] {
        for (const char* variable : {"LC_ALL", "LC_NUMERIC", "LANG"})
            if (const char* value = std::getenv(variable); value != nullptr && *value != '\0')
                return std::string(value);
        return std::string("C");
    }();
    return name;
}

// Only what "standard" needs, by the name, so that it does not depend on which locales a machine has
// generated.
Grouping GroupingOfLocale() {
    const std::string name = LocaleName().substr(0, LocaleName().find_first_of(".@"));
    if (name.ends_with("_IN")) return {',', '.', 3, 2};
    for (const char* known : {"de", "de_DE", "de_AT", "de_BE", "de_LU", "es_AR", "es_CL", "es_CO", "es_ES",
                              "it_IT", "nl_NL", "nl_BE", "pt_BR", "da_DK", "id_ID", "tr_TR"})
        if (name == known) return {'.', ',', 3, 3};
    return {};
}

std::string Group(const std::string& digits, const Grouping& grouping) {
    std::string text = digits;
    for (std::size_t place = grouping.first; place < digits.size(); place += grouping.next)
        text.insert(digits.size() - place, 1, grouping.group);
    return text;
}

std::string FormatNumber(double number, const NumberMask& mask) {
    const Decimal decimal = Decimal::Of(number).Rounded(mask.places, false);
    const Grouping grouping = mask.mask == "standard" ? GroupingOfLocale() : Grouping{};
    std::string whole = decimal.WholeDigits();
    if (whole.size() < mask.leastWhole) whole.insert(0, mask.leastWhole - whole.size(), '0');
    if (mask.grouped) whole = Group(whole, grouping);
    if (mask.places > 0) whole += grouping.point + decimal.DecimalDigits(mask.places);
    return (decimal.negative ? "-" : "") + whole;
}

std::string TwoDigits(int number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
}

std::string FormatDate(Date date, std::string_view mask) {
    static constexpr std::array<const char*, 12> months{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                        "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const YearMonthDay day = Parts(date);
    std::string year = std::to_string(day.Year);
    year.insert(0, 4 - year.size(), '0');
    if (mask == "dd-MMM-yyyy")
        return TwoDigits(day.Day) + "-" + months[static_cast<std::size_t>(day.Month) - 1] + "-" + year;
    if (mask == "dd/MM/yyyy") return TwoDigits(day.Day) + "/" + TwoDigits(day.Month) + "/" + year;
    const int seconds = SecondsOfDay(date);
    return TwoDigits(seconds / 3600) + ":" + TwoDigits(seconds / 60 % 60) + ":" + TwoDigits(seconds % 60);
}

bool IsDateMask(std::string_view mask) {
    return mask == "dd-MMM-yyyy" || mask == "dd/MM/yyyy" || mask == "hh:mm:ss";
}

bool ReadsAsDate(const Value& text) {
    return IsDate(text) || (IsNumeric(text) && IsDateSerial(ToDouble(text)));
}

const NumberMask& FindNumberMask(std::string_view mask) {
    for (const NumberMask& known : NumberMasks)
        if (known.mask == mask || (known.mask == "standard" && EqualText(mask, known.mask))) return known;
    Raise(error::InvalidCall);
}

}  // namespace

std::string Format(const Value& value, std::string_view mask) {
    const bool isDate = IsDateMask(mask);
    const NumberMask* number = isDate ? nullptr : &FindNumberMask(mask);
    if (value.IsNull()) return {};
    if (const auto* text = value.As<std::string>()) {
        if (isDate) return ReadsAsDate(value) ? FormatDate(ToDate(value), mask) : *text;
        return IsNumeric(value) ? FormatNumber(WholeNumber(*text), *number) : *text;
    }
    return isDate ? FormatDate(ToDate(value), mask) : FormatNumber(ToDouble(value), *number);
}

void SetNumberLocale(std::string_view name) {
    LocaleName() = name;
}

}  // namespace basic
