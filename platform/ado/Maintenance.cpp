#include "platform/ado/Maintenance.h"

#include <filesystem>

#include "platform/ado/Errors.h"
#include "platform/ado/dialect/Scope.h"
#include "platform/ado/store/Session.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"

namespace ado {
namespace {

std::vector<std::string> FirstColumn(Engine& engine, const std::string& sql, int column = 0) {
    std::vector<std::string> values;
    const auto statement = engine.Prepare(sql);
    while (statement->Step()) values.emplace_back(statement->Text(column));
    return values;
}

std::vector<std::string> TableNames(Engine& engine) {
    return FirstColumn(
        engine,
        "SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite%' ORDER BY name");
}

std::vector<std::string> ColumnNames(Engine& engine, const std::string& table) {
    return FirstColumn(engine, "PRAGMA table_info(" + QuotedName(table) + ")", 1);
}

TableSums SumTable(Engine& engine, const std::string& table) {
    TableSums result;
    result.name = table;
    const std::vector<std::string> columns = ColumnNames(engine, table);
    std::string list = "count(*)";
    for (const std::string& column : columns) {
        const std::string name = QuotedName(column);
        list += ", total(CASE WHEN typeof(" + name + ") = 'text' THEN length(" + name + ") ELSE " + name +
                " END)";
    }
    const auto sums = engine.Prepare("SELECT " + list + " FROM " + QuotedName(table));
    if (!sums->Step()) return result;
    result.rows = sums->Integer(0);
    for (std::size_t i = 0; i < columns.size(); ++i)
        result.sums[columns[i]] = basic::NumberText(sums->Real(static_cast<int>(i) + 1));
    return result;
}

void RemoveCopy(const std::string& file) {
    std::error_code ignored;
    for (const char* suffix : {"", "-wal", "-shm", "-journal"})
        std::filesystem::remove(file + suffix, ignored);
}

}  // namespace

std::vector<std::string> CheckIntegrity(Connection& connection) {
    try {
        std::vector<std::string> faults =
            FirstColumn(connection.Opened()->engine(), "PRAGMA integrity_check");
        if (faults.size() == 1 && faults.front() == "ok") faults.clear();
        return faults;
    } catch (const basic::Error& failure) {
        if (failure.Number != error::Damaged) throw;
        return {failure.Description};  // a page that does not check out ends the walk
    }
}

std::vector<BadText> FindBadTexts(Connection& connection) {
    Engine& engine = connection.Opened()->engine();
    std::vector<BadText> found;
    for (const std::string& table : TableNames(engine)) {
        const std::vector<std::string> columns = ColumnNames(engine, table);
        const auto rows = engine.Prepare("SELECT * FROM " + QuotedName(table) + " ORDER BY rowid");
        for (std::int64_t row = 1; rows->Step(); ++row)
            for (int i = 0; i < rows->ColumnCount(); ++i) {
                if (rows->Kind(i) != CellKind::Text || basic::IsUtf8(rows->Text(i))) continue;
                found.push_back({table, columns.at(static_cast<std::size_t>(i)), row,
                                 basic::FromUtf16(basic::ToUtf16(rows->Text(i)))});
            }
    }
    return found;
}

Snapshot::Snapshot(Connection& connection) : connection_(connection) {
    connection.Opened()->engine().BeginRead();
}

Snapshot::~Snapshot() {
    try {
        connection_.Opened()->engine().EndRead();
    } catch (const basic::Error&) {
        // Nothing was written: there is nothing to lose.
        return;
    }
}

void Flush(Connection& connection) {
    connection.Opened()->engine().Flush();
}

void BackUp(Connection& connection, const std::string& file) {
    if (std::filesystem::exists(file))
        throw basic::Error(error::BadArgument, "The file '" + file + "' exists; a copy never overwrites.",
                           "ado.Maintenance");
    try {
        connection.Opened()->engine().CopyTo(file, connection.Properties.Get("Jet OLEDB:Database Password"));
    } catch (const basic::Error&) {
        RemoveCopy(file);
        throw;
    }
}

std::vector<TableSums> SumTables(Connection& connection) {
    Engine& engine = connection.Opened()->engine();
    std::vector<TableSums> tables;
    for (const std::string& name : TableNames(engine)) tables.push_back(SumTable(engine, name));
    return tables;
}

}  // namespace ado
