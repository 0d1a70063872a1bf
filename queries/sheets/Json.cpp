#include "queries/sheets/Json.h"

#include <cstdio>
#include <string>

#include "queries/sheets/Cell.h"

namespace queries {
namespace {

std::string Escaped(const std::string& text) {
    std::string escaped = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') {
            escaped += {'\\', c};
        } else if (static_cast<unsigned char>(c) < ' ' || c == '\x7F') {
            char code[8];
            std::snprintf(code, sizeof code, "\\u%04x", static_cast<unsigned>(c));
            escaped += code;
        } else {
            escaped += c;
        }
    }
    return escaped + '"';
}

std::string Literal(Kind kind, const basic::Value& value) {
    if (value.IsNull()) return "null";
    if (kind == Kind::Flag) return basic::ToBoolean(value) ? "true" : "false";
    const std::string text = Plain(kind, value);
    if (kind == Kind::Text) return Escaped(text);
    if (text.empty()) return "null";
    return kind == Kind::Date ? Escaped(text) : text;
}

}  // namespace

void WriteJson(const Sheet& sheet, std::ostream& out) {
    const auto& columns = sheet.Columns();
    const bool tree = IsTree(sheet);
    out << '[';
    for (std::size_t row = 0; row < sheet.Rows(); ++row) {
        out << (row > 0 ? ",\n {" : "\n {");
        for (std::size_t i = 0; i < columns.size(); ++i)
            out << (i > 0 ? ", " : "") << Escaped(columns[i].name) << ": "
                << Literal(columns[i].kind, sheet.At(row, i));
        if (tree) out << ", \"level\": " << sheet.Level(row);
        out << '}';
    }
    out << (sheet.Rows() > 0 ? "\n]\n" : "]\n");
}

}  // namespace queries
