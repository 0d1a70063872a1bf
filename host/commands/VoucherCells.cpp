#include "host/commands/VoucherCells.h"

#include <algorithm>
#include <regex>
#include <string_view>

#include "platform/basic/Dates.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"

namespace host {
namespace {

constexpr std::size_t MostShown = 40;   // characters of a cell in a message
constexpr std::size_t MostDigits = 15;  // of a number in the books
constexpr std::size_t Decimals = 2;

bool IsControl(char16_t c) {
    return c < 0x20 || (c >= 0x7F && c < 0xA0);
}

bool AreDigits(std::string_view text) {
    return text.find_first_not_of("0123456789") == std::string_view::npos;
}

// Whether the commas stand where they group thousands, lakhs or millions: 1,00,000 and 100,000, but not 1,50.
bool GroupsRight(std::string_view rupees) {
    std::size_t length = rupees.find(',');
    if (length == std::string_view::npos) return true;
    if (length < 1 || length > 3) return false;
    while (length != std::string_view::npos) {
        rupees.remove_prefix(length + 1);
        length = rupees.find(',');
        if (length != std::string_view::npos && length != 2 && length != 3) return false;
    }
    return rupees.size() == 3;
}

}  // namespace

std::string Shown(const std::string& cell) {
    const bool isLong = basic::Len(cell) > MostShown;
    std::u16string text = basic::ToUtf16(isLong ? basic::Left(cell, MostShown) : cell);
    std::replace_if(text.begin(), text.end(), IsControl, u'\uFFFD');
    return "'" + basic::FromUtf16(text) + (isLong ? "...'" : "'");
}

std::string TextFault(const std::string& cell, bool lineEnds) {
    if (!basic::IsUtf8(cell)) return Shown(cell) + " is not UTF-8: save the file as UTF-8";
    for (const char16_t c : basic::ToUtf16(cell))
        if (IsControl(c) && !(lineEnds && (c == u'\n' || c == u'\r')))
            return "a control character stands in " + Shown(cell);
    return {};
}

std::optional<Amount> ReadAmount(const std::string& cell, std::string& reason) {
    const std::string text = basic::Trim(cell);
    const std::size_t point = std::min(text.find('.'), text.size());
    const std::string rupees = text.substr(text.starts_with('+') ? 1 : 0, point - text.starts_with('+'));
    const std::string decimals = text.substr(std::min(point + 1, text.size()));
    std::string digits = basic::Replace(rupees, ",", "");
    const bool reads = AreDigits(digits) && AreDigits(decimals);
    digits.erase(0, digits.find_first_not_of('0'));
    if (!reads || (digits + decimals).find_first_not_of('0') == std::string::npos)
        reason = Shown(cell) + " is no amount above 0";
    else if (!GroupsRight(rupees))
        reason = "the commas in " + Shown(cell) + " do not group thousands";
    else if (decimals.size() > Decimals)
        reason = Shown(cell) + " has more than two decimals";
    else if (digits.size() + decimals.size() > MostDigits)
        reason = Shown(cell) + " has more than 15 digits";
    if (!reason.empty()) return {};
    return Amount{basic::WholeNumber("0" + digits + "." + decimals + "0"),
                  std::stoll(digits + decimals + std::string(Decimals - decimals.size(), '0'))};
}

std::optional<basic::Date> ReadDay(const std::string& cell, DateOrder order, std::string& reason) {
    static const std::regex figures(" *([0-9]{1,2})( *[/-] *)([0-9]{1,2})( *[/-].*)");
    std::string text = cell;
    if (std::smatch parts; std::regex_match(cell, parts, figures)) {
        const bool dayFits = std::stoi(parts[3]) <= 12, monthFits = std::stoi(parts[1]) <= 12;
        if (order == DateOrder::DayFirst && !dayFits && monthFits)
            reason = Shown(cell) +
                     " fits only the month before the day, and the file is read with the day first (see "
                     "--month-first)";
        if (order == DateOrder::MonthFirst && dayFits && !monthFits)
            reason = Shown(cell) +
                     " fits only the day before the month, and the file is read with the month first";
        if (order == DateOrder::MonthFirst)
            text = parts[3].str() + parts[2].str() + parts[1].str() + parts[4].str();
    }
    if (reason.empty() && !basic::IsDate(text)) reason = Shown(cell) + " is no date";
    if (!reason.empty()) return {};
    return basic::ReadDate(text);
}

}  // namespace host
