#include "platform/ado/store/PostgresNumbers.h"

#include <charconv>
#include <string>

#include "platform/ado/dialect/Scope.h"

namespace ado::postgres {
namespace {

void Append(std::string& list, std::string_view item) {
    list.append(list.empty() ? "{" : ",") += item;
}

std::string Exact(double number) {
    char text[32];
    return {text, std::to_chars(text, text + sizeof text, number).ptr};
}

}  // namespace

void SetNumbers(Engine& server, const KeyedNumbers& numbers) {
    std::string sets, sources, names, keys;
    std::vector<std::string> columns(numbers.columns.size());
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const std::string name = "v" + std::to_string(i), place = "$" + std::to_string(i + 3);
        sets += (i > 0 ? ", " : "") + QuotedName(numbers.columns[i]) + " = " +
                (numbers.others ? "coalesce(" + name + ", " + Exact(*numbers.others) + ")" : name);
        sources += ", " + place + "::text::double precision[]";
        names += ", " + name;
    }
    for (const auto& [key, line] : numbers.lines) {
        Append(keys, std::to_string(key));
        for (std::size_t i = 0; i < columns.size(); ++i) Append(columns[i], Exact(line[i]));
    }
    const std::string table = QuotedName(numbers.table);
    const auto update =
        server.Prepare("UPDATE " + table + " t SET " + sets + " FROM " + table + " s " +
                       (numbers.others ? "LEFT " : "") + "JOIN unnest($2::text::bigint[]" + sources +
                       ") AS lines(key" + names + ") ON s." + QuotedName(numbers.key) +
                       " = lines.key WHERE s.rowid = t.rowid AND s." + QuotedName(numbers.where) + " = $1");
    update->BindInteger(1, numbers.is);
    update->BindText(2, keys.empty() ? "{}" : keys + "}");
    for (std::size_t i = 0; i < columns.size(); ++i)
        update->BindText(static_cast<int>(i) + 3, columns[i].empty() ? "{}" : columns[i] + "}");
    update->Step();
}

}  // namespace ado::postgres
