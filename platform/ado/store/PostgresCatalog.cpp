#include "platform/ado/store/PostgresCatalog.h"

#include <utility>

#include "platform/ado/dialect/Scope.h"
#include "platform/ado/store/PostgresSchema.h"
#include "platform/basic/Error.h"

namespace ado::postgres {
namespace {

constexpr std::string_view OwnTables =
    "c.relnamespace = current_schema()::regnamespace AND c.relkind = 'r' "
    "AND c.relname NOT LIKE 'qm\\_%'";

ColumnType TypeOf(std::string_view name) {
    constexpr std::pair<std::string_view, ColumnType> types[] = {
        {"boolean", ColumnType::Boolean}, {"smallint", ColumnType::Integer},
        {"integer", ColumnType::Long},    {"double precision", ColumnType::Double},
        {"text", ColumnType::Text},
    };
    for (const auto& [its, type] : types)
        if (its == name) return type;
    return ColumnType::Any;
}

// The table, and each column with its name, its type, whether the hidden one is made of it, and its default.
// Two tables whose names differ in case only can stand on a server: the first one counts.
std::string ColumnsSql() {
    return "SELECT c.relname::text, a.attname::text, format_type(a.atttypid, NULL), "
           "coalesce(position(quote_ident(a.attname) IN pg_get_expr(h.adbin, h.adrelid)) > 0, FALSE), "
           "pg_get_expr(d.adbin, d.adrelid) "
           "FROM pg_class c JOIN pg_attribute a ON a.attrelid = c.oid AND a.attnum > 0 AND NOT "
           "a.attisdropped "
           "LEFT JOIN pg_attrdef d ON d.adrelid = c.oid AND d.adnum = a.attnum "
           "LEFT JOIN pg_attribute r ON r.attrelid = c.oid AND r.attname = 'rowid' AND r.attgenerated = 's' "
           "LEFT JOIN pg_attrdef h ON h.adrelid = c.oid AND h.adnum = r.attnum "
           "WHERE c.oid = (SELECT min(c.oid::int8)::oid FROM pg_class c WHERE " +
           std::string(OwnTables) +
           " AND lower(c.relname::text COLLATE \"C\") = lower($1 COLLATE \"C\")) "
           "AND a.attname <> 'rowid' ORDER BY a.attnum";
}

constexpr const char* IndexesSql =
    "SELECT i.relname::text, a.attname::text FROM pg_index x JOIN pg_class i ON i.oid = x.indexrelid "
    "JOIN pg_class c ON c.oid = x.indrelid CROSS JOIN LATERAL unnest(x.indkey) WITH ORDINALITY AS k(attnum, "
    "place) "
    "JOIN pg_attribute a ON a.attrelid = c.oid AND a.attnum = k.attnum "
    "WHERE c.relnamespace = current_schema()::regnamespace AND c.relname = $1 AND NOT x.indisprimary "
    "ORDER BY i.oid, k.place";

// "' '::text" is "' '": the column has its type.
std::string WithoutCast(std::string_view expression) {
    return std::string(expression.substr(0, expression.rfind("::")));
}

}  // namespace

std::vector<std::string> Tables(Engine& server) {
    const auto rows = server.Prepare("SELECT c.relname::text FROM pg_class c WHERE " +
                                     std::string(OwnTables) + " ORDER BY c.relname::text COLLATE \"C\"");
    std::vector<std::string> names;
    while (rows->Step()) names.emplace_back(rows->Text(0));
    return names;
}

std::unique_ptr<TableInfo> Describe(Engine& server, std::string_view name) {
    const auto rows = server.Prepare(ColumnsSql());
    rows->BindText(1, name);
    std::unique_ptr<TableInfo> table;
    while (rows->Step()) {
        if (!table) table = std::make_unique<TableInfo>();
        table->name = rows->Text(0);
        table->columns.push_back({std::string(rows->Text(1)), TypeOf(rows->Text(2)), rows->Integer(3) != 0});
    }
    return table;
}

SchemaTable DefinitionOf(Engine& server, const std::string& name) {
    SchemaTable table;
    table.name = name;
    const auto columns = server.Prepare(ColumnsSql());
    columns->BindText(1, name);
    while (columns->Step()) {
        SchemaColumn column;
        column.name = columns->Text(1);
        column.type = TypeOf(columns->Text(2));
        column.counter = columns->Integer(3) != 0;
        if (columns->Kind(4) != CellKind::Null && column.type != ColumnType::Boolean)
            column.defaultValue = WithoutCast(columns->Text(4));
        table.columns.push_back(std::move(column));
    }
    const auto counter = server.Prepare("SELECT last FROM qm_counter WHERE name = $1");
    counter->BindText(1, name);
    if (counter->Step()) table.counted = counter->Integer(0);
    counter->Reset();
    const auto fields = server.Prepare(IndexesSql);
    fields->BindText(1, name);
    while (fields->Step()) {
        if (table.indexes.empty() || table.indexes.back().name != fields->Text(0))
            table.indexes.push_back({std::string(fields->Text(0)), {}});
        table.indexes.back().columns.emplace_back(fields->Text(1));
    }
    return table;
}

std::vector<std::string> CopyOf(Engine& server, const std::string& source, const std::string& target) {
    const SchemaTable table = DefinitionOf(server, source);
    std::string columns;
    for (const SchemaColumn& column : table.columns)
        columns += (columns.empty() ? "" : ", ") + QuotedName(column.name);
    return {PostgresDefinition(Renamed(table, target)), "INSERT INTO " + QuotedName(target) + " (" + columns +
                                                            ") SELECT " + columns + " FROM " +
                                                            QuotedName(source) + " ORDER BY rowid"};
}

std::vector<std::string> CheckPages(Engine& server) {
    const auto granted = server.Prepare(
        "SELECT p.oid FROM pg_proc p WHERE p.proname = 'bt_index_check' AND p.pronargs = 2 "
        "AND has_function_privilege(p.oid, 'EXECUTE')");
    if (!granted->Step()) return {};
    const auto indexes = server.Prepare(
        "SELECT x.indexrelid::int8, i.relname::text FROM pg_index x JOIN pg_class i ON i.oid = x.indexrelid "
        "JOIN pg_class c ON c.oid = x.indrelid JOIN pg_am m ON m.oid = i.relam "
        "WHERE c.relnamespace = current_schema()::regnamespace AND m.amname = 'btree' ORDER BY 2");
    const auto check = server.Prepare("SELECT bt_index_check(($1::int8)::oid::regclass, TRUE)::text");
    std::vector<std::string> faults;
    while (indexes->Step()) {
        check->BindInteger(1, indexes->Integer(0));
        try {
            check->Step();
        } catch (const basic::Error& fault) {
            faults.push_back(std::string(indexes->Text(1)) + ": " + fault.Description);
        }
        check->Reset();
    }
    return faults;
}

}  // namespace ado::postgres
