#include "host/doors/VoucherCells.h"

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

// A number without a sign as it goes into a statement; `what` it should be is named where it is none.
std::string Figure(const std::string& cell, std::size_t mostDecimals, const std::string& what,
                   std::string& reason) {
    const std::string text = basic::Trim(cell);
    const std::size_t point = std::min(text.find('.'), text.size());
    const std::string whole = text.substr(text.starts_with('+') ? 1 : 0, point - text.starts_with('+'));
    const std::string decimals = text.substr(std::min(point + 1, text.size()));
    std::string digits = basic::Replace(whole, ",", "");
    if (!AreDigits(digits) || !AreDigits(decimals) || (digits + decimals).empty())
        reason = Shown(cell) + " is no " + what;
    else if (!GroupsRight(whole))
        reason = "the commas in " + Shown(cell) + " do not group thousands";
    else if (decimals.size() > mostDecimals)
        reason = Shown(cell) + " has more than " +
                 (mostDecimals == 2 ? "two" : std::to_string(mostDecimals)) + " decimals";
    digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size()));
    if (reason.empty() && digits.size() + decimals.size() > MostDigits)
        reason = Shown(cell) + " has more than 15 digits";
    if (!reason.empty()) return {};
    return (digits.empty() ? "0" : digits) + (decimals.empty() ? "" : "." + decimals);
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

std::string LetterOfWord(const std::string& cell, const std::vector<std::string>& words) {
    const std::string folded = basic::FoldCase(basic::Trim(cell));
    for (const std::string& word : words)
        if (basic::FoldCase(word) == folded || basic::FoldCase(basic::Left(word, 1)) == folded)
            return basic::UCase(basic::Left(word, 1));
    return {};
}

std::string ReadSide(const std::string& cell) {
    const std::string letter = LetterOfWord(cell, {"Debit", "Credit"});
    return letter.empty() ? LetterOfWord(cell, {"Dr", "Cr"}) : letter;
}

std::string ReadFigure(const std::string& cell, std::size_t mostDecimals, std::string& reason) {
    return Figure(cell, mostDecimals, "number of 0 or more", reason);
}

std::optional<Amount> ReadAmount(const std::string& cell, std::string& reason) {
    const std::string figure = Figure(cell, Decimals, "amount above 0", reason);
    if (reason.empty() && figure.find_first_not_of("0.") == std::string::npos)
        reason = Shown(cell) + " is no amount above 0";
    if (!reason.empty()) return {};
    const std::size_t point = std::min(figure.find('.'), figure.size() - 1);
    const std::size_t decimals = figure[point] == '.' ? figure.size() - 1 - point : 0;
    return Amount{basic::WholeNumber(figure),
                  std::stoll(basic::Replace(figure, ".", "") + std::string(Decimals - decimals, '0'))};
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
