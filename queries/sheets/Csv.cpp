#include "queries/sheets/Csv.h"

#include <string>

#include "platform/basic/Text.h"
#include "queries/sheets/Cell.h"

namespace queries {
namespace {

std::string Quoted(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos && !text.starts_with(' ') && !text.ends_with(' '))
        return text;
    return '"' + basic::Replace(text, "\"", "\"\"") + '"';
}

// Spreadsheet programs run what begins so, wherever the file came from.
std::string Harmless(const std::string& text) {
    const bool runs = !text.empty() && std::string_view("=+-@\t\r\n").find(text.front()) != std::string::npos;
    return runs ? "'" + text : text;
}

std::string Field(Kind kind, const basic::Value& value) {
    const std::string text = Plain(kind, value);
    return Quoted(kind == Kind::Text ? Harmless(text) : text);
}

}  // namespace

void WriteCsv(const Sheet& sheet, std::ostream& out) {
    const auto& columns = sheet.Columns();
    const bool tree = IsTree(sheet);
    const auto comma = [](std::size_t i) { return i > 0 ? "," : ""; };
    for (std::size_t i = 0; i < columns.size(); ++i) out << comma(i) << Quoted(columns[i].name);
    out << (tree ? ",level\r\n" : "\r\n");
    for (std::size_t row = 0; row < sheet.Rows(); ++row) {
        for (std::size_t i = 0; i < columns.size(); ++i)
            out << comma(i) << Field(columns[i].kind, sheet.At(row, i));
        if (tree) out << ',' << sheet.Level(row);
        out << "\r\n";
    }
}

}  // namespace queries
