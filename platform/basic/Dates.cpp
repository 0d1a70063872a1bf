#include "platform/basic/Dates.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/basic/Error.h"
#include "platform/basic/Text.h"

namespace basic {
namespace {

using std::chrono::days;
using std::chrono::sys_days;

constexpr sys_days DayZero = std::chrono::year{1899} / 12 / 30;
constexpr double SecondsPerDay = 86400;
constexpr double FirstSerial = -657434, LastSerial = 2958465;  // 1-Jan-0100 and 31-Dec-9999

std::int32_t DayOf(Date date) {
    if (!IsDateSerial(date.Serial)) Raise(error::Overflow);
    return static_cast<std::int32_t>(date.Serial);
}
double TimeOf(Date date) {
    return std::abs(date.Serial - DayOf(date));
}
// A time just before midnight stays on its day, though a large serial has fewer digits left for it.
Date Join(std::int32_t day, double time) {
    const double serial = day < 0 ? day - time : day + time;
    return {std::trunc(serial) == day ? serial : std::nextafter(serial, day)};
}

std::optional<Date> Make(int year, int month, int day) {
    // Tested first, since the calendar's own types are narrower and would wrap.
    if (year < 100 || year > 9999 || month < 1 || month > 12 || day < 1 || day > 31) return std::nullopt;
    const std::chrono::year_month_day date{std::chrono::year{year},
                                           std::chrono::month(static_cast<unsigned>(month)),
                                           std::chrono::day(static_cast<unsigned>(day))};
    if (!date.ok()) return std::nullopt;
    return Date{static_cast<double>((sys_days{date} - DayZero).count())};
}

// 1 to 12 for a month's English name or its first three letters, else 0.
int MonthNamed(std::string_view word) {
    static constexpr std::array<std::string_view, 12> names{"january",   "february", "march",    "april",
                                                            "may",       "june",     "july",     "august",
                                                            "september", "october",  "november", "december"};
    for (std::size_t i = 0; i < names.size(); ++i)
        if (EqualText(word, names[i]) || EqualText(word, names[i].substr(0, 3)))
            return static_cast<int>(i) + 1;
    return 0;
}

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// A run of digits or of letters, and what stands before it.
struct Token {
    std::string_view before, text;
    int number = -1;  // -1 for a word

    bool AfterBlanks() const {
        return !before.empty() && before.find_first_not_of(' ') == std::string_view::npos;
    }
    // After one of the marks, which may have blanks around it.
    bool AfterOneOf(std::string_view marks) const {
        const std::string mark = Trim(before);
        return mark.size() == 1 && marks.find(mark[0]) != std::string_view::npos;
    }
};

using Tokens = std::span<const Token>;

// nullopt where a number is longer than a year, or where something follows the last token.
std::optional<std::vector<Token>> Split(std::string_view text) {
    std::vector<Token> tokens;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t before = at;
        while (at < text.size() && !IsDigit(text[at]) && !IsLetter(text[at])) ++at;
        if (at == text.size()) return std::nullopt;
        const auto inRun = IsDigit(text[at]) ? IsDigit : IsLetter;
        const std::size_t begin = at;
        while (at < text.size() && inRun(text[at])) ++at;
        Token token{text.substr(before, begin - before), text.substr(begin, at - begin)};
        if (inRun == IsDigit) {
            if (token.text.size() > 4) return std::nullopt;
            std::from_chars(token.text.data(), token.text.data() + token.text.size(), token.number);
        }
        tokens.push_back(token);
    }
    return tokens;
}

int FullYear(const Token& token) {
    if (token.text.size() > 2) return token.number;
    return token.number + (token.number < 30 ? 2000 : 1900);
}

std::optional<Date> ReadNumericDay(const Token& first, const Token& second, const Token& third) {
    if (!second.AfterOneOf("/-") || !third.AfterOneOf("/-")) return std::nullopt;
    if (first.text.size() > 2) return Make(first.number, second.number, third.number);
    const bool monthFirst = second.number > 12;
    return Make(FullYear(third), monthFirst ? first.number : second.number,
                monthFirst ? second.number : first.number);
}

std::optional<Date> ReadDay(Tokens tokens) {
    if (tokens.size() != 3 || !tokens[0].before.empty() || tokens[2].number < 0) return std::nullopt;
    const Token &first = tokens[0], &second = tokens[1], &third = tokens[2];
    if (first.number >= 0 && second.number >= 0) return ReadNumericDay(first, second, third);
    if (!second.AfterBlanks() && !second.AfterOneOf("/-")) return std::nullopt;
    if (!third.AfterBlanks() && !third.AfterOneOf("/-,")) return std::nullopt;
    const bool nameFirst = first.number < 0;
    return Make(FullYear(third), MonthNamed(nameFirst ? first.text : second.text),
                nameFirst ? second.number : first.number);
}

// The time of day as a fraction of a day.
std::optional<double> ReadTime(Tokens tokens) {
    bool afternoon = false;
    const bool marked = tokens.back().number < 0;
    if (marked) {
        const Token& mark = tokens.back();
        afternoon = EqualText(mark.text, "PM");
        if (!afternoon && !EqualText(mark.text, "AM")) return std::nullopt;
        if (!mark.before.empty() && !mark.AfterBlanks()) return std::nullopt;
        tokens = tokens.first(tokens.size() - 1);
    }
    if (tokens.size() < 2 || tokens.size() > 3) return std::nullopt;
    std::array<int, 3> parts{};
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        parts[i] = tokens[i].number;
        if (parts[i] < 0 || parts[i] > 59 || tokens[i].text.size() > 2) return std::nullopt;
        if (i > 0 && tokens[i].before != ":") return std::nullopt;
    }
    if (marked ? parts[0] < 1 || parts[0] > 12 : parts[0] > 23) return std::nullopt;
    const int hour = marked ? parts[0] % 12 + (afternoon ? 12 : 0) : parts[0];
    return (hour * 3600 + parts[1] * 60 + parts[2]) / SecondsPerDay;
}

std::optional<Date> Read(std::string_view given) {
    const std::string text = Trim(given);
    const auto found = Split(text);
    if (!found || found->empty()) return std::nullopt;
    const Tokens tokens = *found;
    const auto minutes = std::ranges::find(tokens, std::string_view(":"), &Token::before);
    if (minutes == tokens.end()) return ReadDay(tokens);
    if (minutes == tokens.begin()) return std::nullopt;
    const auto dayTokens = static_cast<std::size_t>(minutes - tokens.begin() - 1);
    const std::optional<double> time = ReadTime(tokens.subspan(dayTokens));
    if (!time) return std::nullopt;
    if (dayTokens == 0) return tokens[0].before.empty() ? std::optional(Date{*time}) : std::nullopt;
    const std::optional<Date> day = ReadDay(tokens.first(dayTokens));
    if (!day || !tokens[dayTokens].AfterBlanks()) return std::nullopt;
    return Join(static_cast<std::int32_t>(day->Serial), *time);
}

}  // namespace

Date MakeDate(int year, int month, int day) {
    const std::optional<Date> date = Make(year, month, day);
    if (!date) Raise(error::InvalidCall);
    return *date;
}

bool IsDateSerial(double serial) {
    return serial > FirstSerial - 1 && serial < LastSerial + 1;
}

YearMonthDay Parts(Date date) {
    const std::chrono::year_month_day ymd{DayZero + days{DayOf(date)}};
    return {static_cast<int>(ymd.year()), static_cast<int>(static_cast<unsigned>(ymd.month())),
            static_cast<int>(static_cast<unsigned>(ymd.day()))};
}

int SecondsOfDay(Date date) {
    return std::min(static_cast<int>(std::lround(TimeOf(date) * SecondsPerDay)), 86399);
}

Date DatePart(Date date) {
    return {static_cast<double>(DayOf(date))};
}

Date AddDays(Date date, std::int32_t count) {
    const std::int64_t day = std::int64_t{DayOf(date)} + count;
    if (!IsDateSerial(static_cast<double>(day))) Raise(error::Overflow);
    return Join(static_cast<std::int32_t>(day), TimeOf(date));
}

std::int32_t DaysBetween(Date from, Date to) {
    return DayOf(to) - DayOf(from);
}

bool IsDate(const Value& value) {
    if (value.Is<Date>()) return true;
    const auto* text = value.As<std::string>();
    return text != nullptr && Read(*text).has_value();
}

Date ReadDate(std::string_view text) {
    const std::optional<Date> date = Read(text);
    if (!date) Raise(error::TypeMismatch);
    return *date;
}

}  // namespace basic
