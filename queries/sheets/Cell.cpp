#include "queries/sheets/Cell.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "core/Masks.h"
#include "platform/basic/Dates.h"
#include "platform/basic/Format.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"

namespace queries {
namespace {

std::string WholeText(const basic::Value& value) {
    std::string text = basic::TextOrEmpty(value);
    return basic::IsUtf8(text) ? text : basic::FromUtf16(basic::ToUtf16(text));
}

// A line end or a tab would break a table, and control characters, those of two bytes among them, could
// command a terminal.
std::string OneLine(std::string text) {
    const auto isControl = [](unsigned char c) { return c < ' ' || c == 0x7F; };
    std::replace_if(text.begin(), text.end(), isControl, ' ');
    for (std::size_t at = 0; (at = text.find('\xC2', at)) != text.npos; ++at)
        if (static_cast<unsigned char>(text[at + 1]) < 0xA0) {
            text.erase(at, 1);
            text[at] = ' ';
        }
    return text;
}

std::string YesOrNo(const basic::Value& value) {
    return value.IsNull() ? "" : basic::ToBoolean(value) ? "yes" : "no";
}

std::string IsoDate(const basic::Value& value) {
    const auto date = CalendarDate(value);
    if (!date) return {};
    const basic::YearMonthDay day = basic::Parts(*date);
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d", day.Year, day.Month, day.Day);
    return text;
}

}  // namespace

std::optional<double> FigureOf(Kind kind, const basic::Value& value) {
    if (value.IsNull()) return {};
    const double number = basic::ToDouble(value);
    if (!std::isfinite(number)) return {};
    const double shown = kind == Kind::Amount ? basic::RoundHalfUp(number, 2) : number;
    return shown == 0 ? 0 : shown;  // nought has no sign
}

std::optional<basic::Date> CalendarDate(const basic::Value& value) {
    if (value.IsNull()) return {};
    if (const auto* date = value.As<basic::Date>(); date && !basic::IsDateSerial(date->Serial)) return {};
    return basic::ToDate(value);
}

std::string Shown(Kind kind, const basic::Value& value) {
    if (kind == Kind::Text) return OneLine(WholeText(value));
    if (kind == Kind::Flag) return YesOrNo(value);
    if (kind == Kind::Date) {
        const auto date = CalendarDate(value);
        return date ? basic::Format(*date, qm::DateMask) : "";
    }
    const auto figure = FigureOf(kind, value);
    if (!figure) return {};
    return kind == Kind::Amount ? basic::Format(*figure, qm::ReportMask) : basic::NumberText(*figure);
}

std::string Plain(Kind kind, const basic::Value& value) {
    if (kind == Kind::Text) return WholeText(value);
    if (kind == Kind::Flag) return YesOrNo(value);
    if (kind == Kind::Date) return IsoDate(value);
    const auto figure = FigureOf(kind, value);
    if (!figure) return {};
    return kind == Kind::Amount ? basic::Format(*figure, qm::DayBookAmountMask) : basic::NumberText(*figure);
}

bool IsTree(const Sheet& sheet) {
    for (std::size_t row = 0; row < sheet.Rows(); ++row)
        if (sheet.Level(row) > 0) return true;
    return false;
}

std::size_t TreeColumn(const Sheet& sheet) {
    const auto& columns = sheet.Columns();
    const auto first = std::find_if(columns.begin(), columns.end(),
                                    [](const Column& column) { return column.kind == Kind::Text; });
    return static_cast<std::size_t>(first - columns.begin());
}

}  // namespace queries
