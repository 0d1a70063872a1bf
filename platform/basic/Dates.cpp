#include "platform/basic/Dates.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include "platform/basic/Error.h"
#include "platform/basic/Text.h"

namespace basic {
namespace {

using std::chrono::days;
using std::chrono::sys_days;

const sys_days DayZero = std::chrono::year{1899} / 12 / 30;

std::optional<Date> Make(int year, int month, int day) {
    const std::chrono::year_month_day date{std::chrono::year{year},
                                           std::chrono::month(static_cast<unsigned>(month)),
                                           std::chrono::day(static_cast<unsigned>(day))};
    if (year < 100 || year > 9999 || month < 1 || day < 1 || !date.ok()) return std::nullopt;
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

struct Token {
    std::string_view text;
    int number = -1;  // -1 for a word
};

bool IsWordByte(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// Runs of digits and of letters; what stands between them must be one of the separators. nullopt for anything
// else.
std::optional<std::vector<Token>> Tokens(std::string_view text, std::string_view separators) {
    std::vector<Token> tokens;
    for (std::size_t at = 0; at < text.size();) {
        const auto inRun = IsDigit(text[at]) ? IsDigit : IsWordByte;
        std::size_t end = at;
        while (end < text.size() && inRun(text[end])) ++end;
        if (end == at) {
            if (separators.find(text[at]) == std::string_view::npos) return std::nullopt;
            ++at;
            continue;
        }
        Token token{text.substr(at, end - at), -1};
        if (inRun == IsDigit) {
            if (token.text.size() > 4) return std::nullopt;
            std::from_chars(token.text.data(), token.text.data() + token.text.size(), token.number);
        }
        tokens.push_back(token);
        at = end;
    }
    return tokens;
}

int FullYear(const Token& token) {
    if (token.text.size() > 2) return token.number;
    return token.number + (token.number < 30 ? 2000 : 1900);
}

std::optional<Date> ReadDay(std::string_view text) {
    const auto tokens = Tokens(text, "/-., ");
    if (!tokens || tokens->size() != 3 || !IsDigit(text.front())) {
        // "April 1, 2001"
        if (!tokens || tokens->size() != 3) return std::nullopt;
        const int month = MonthNamed((*tokens)[0].text);
        if (month == 0 || (*tokens)[1].number < 0 || (*tokens)[2].number < 0) return std::nullopt;
        return Make(FullYear((*tokens)[2]), month, (*tokens)[1].number);
    }
    const Token &first = (*tokens)[0], &second = (*tokens)[1], &third = (*tokens)[2];
    if (third.number < 0) return std::nullopt;
    if (second.number < 0) {
        const int month = MonthNamed(second.text);
        return month == 0 ? std::nullopt : Make(FullYear(third), month, first.number);
    }
    if (first.text.size() > 2) return Make(first.number, second.number, third.number);
    if (second.number > 12) return Make(FullYear(third), first.number, second.number);  // month first
    return Make(FullYear(third), second.number, first.number);
}

// The time of day as a fraction of a day.
std::optional<double> ReadTime(std::string_view text) {
    const auto tokens = Tokens(text, ": ");
    if (!tokens || tokens->size() < 2) return std::nullopt;
    std::vector<int> parts;
    bool afternoon = false, marked = false;
    for (const Token& token : *tokens) {
        if (token.number < 0) {
            afternoon = EqualText(token.text, "PM");
            if (marked || (!afternoon && !EqualText(token.text, "AM"))) return std::nullopt;
            marked = true;
        } else if (marked) {
            return std::nullopt;
        } else {
            parts.push_back(token.number);
        }
    }
    parts.resize(parts.size() == 2 ? 3 : parts.size(), 0);
    if (parts.size() != 3 || parts[0] > (marked ? 12 : 23) || parts[1] > 59 || parts[2] > 59)
        return std::nullopt;
    if (marked && parts[0] == 0) return std::nullopt;
    const int hour = marked ? parts[0] % 12 + (afternoon ? 12 : 0) : parts[0];
    return (hour * 3600 + parts[1] * 60 + parts[2]) / 86400.0;
}

std::optional<Date> Read(std::string_view given) {
    const std::string text = Trim(given);
    if (text.empty()) return std::nullopt;
    const std::size_t colon = text.find(':');
    if (colon == std::string::npos) return ReadDay(text);
    // The time begins at the blank before its hour.
    const std::size_t blank = text.rfind(' ', colon);
    const std::optional<double> time =
        ReadTime(std::string_view(text).substr(blank == std::string::npos ? 0 : blank + 1));
    if (!time) return std::nullopt;
    if (blank == std::string::npos) return Date{*time};
    const std::optional<Date> day = ReadDay(Trim(std::string_view(text).substr(0, blank)));
    if (!day) return std::nullopt;
    return Date{day->Serial < 0 ? day->Serial - *time : day->Serial + *time};
}

}  // namespace

Date MakeDate(int year, int month, int day) {
    const std::optional<Date> date = Make(year, month, day);
    if (!date) Raise(error::InvalidCall);
    return *date;
}

YearMonthDay Parts(Date date) {
    const std::chrono::year_month_day ymd{DayZero + days{static_cast<int>(std::trunc(date.Serial))}};
    return {static_cast<int>(ymd.year()), static_cast<int>(static_cast<unsigned>(ymd.month())),
            static_cast<int>(static_cast<unsigned>(ymd.day()))};
}

Date DatePart(Date date) {
    return {std::trunc(date.Serial)};
}

Date AddDays(Date date, std::int32_t count) {
    static const Date first = MakeDate(100, 1, 1), last = MakeDate(9999, 12, 31);
    const Date moved{date.Serial + count};
    if (DatePart(moved) < first || DatePart(moved) > last) Raise(error::Overflow);
    return moved;
}

std::int32_t DaysBetween(Date from, Date to) {
    return static_cast<std::int32_t>(std::trunc(to.Serial) - std::trunc(from.Serial));
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
