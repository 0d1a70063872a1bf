#include "platform/ado/Maintenance.h"

#include <filesystem>

#include "platform/ado/Errors.h"
#include "platform/ado/Scope.h"
#include "platform/ado/Session.h"
#include "platform/basic/Error.h"
#include "platform/basic/Number.h"

namespace ado {
namespace {

std::vector<std::string> FirstColumn(Session& session, const std::string& sql, int column = 0) {
    std::vector<std::string> values;
    const RunningStatement rows = session.Start(session.Own(sql, {}));
    while (rows->Step()) values.emplace_back(rows->Text(column));
    return values;
}

std::vector<std::string> TableNames(Session& session) {
    return FirstColumn(session,
                       "SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite%' "
                       "ORDER BY name COLLATE NOCASE");
}

TableSums SumTable(Session& session, const std::string& table) {
    const auto columns = FirstColumn(session, "PRAGMA table_info(" + QuotedName(table) + ")", 1);
    std::string sql = "SELECT count(*)";
    for (const std::string& column : columns) {
        const std::string name = QuotedName(column);
        sql += ", total(CASE WHEN typeof(" + name + ") IN ('integer', 'real') THEN " + name + " END)";
    }
    const RunningStatement row = session.Start(session.Own(sql + " FROM " + QuotedName(table), {}));
    row->Step();
    TableSums sums;
    sums.name = table;
    sums.rows = row->Integer(0);
    int index = 0;
    for (const std::string& column : columns) sums.sums[column] = basic::NumberText(row->Real(++index));
    return sums;
}

}  // namespace

std::vector<std::string> CheckIntegrity(Connection& connection) {
    try {
        auto faults = FirstColumn(*connection.Opened(), "PRAGMA integrity_check");
        if (faults.size() == 1 && faults.front() == "ok") faults.clear();
        return faults;
    } catch (const basic::Error& failure) {
        if (failure.Number != error::Damaged) throw;
        return {failure.Description};  // so damaged that it cannot even be checked
    }
}

Snapshot::Snapshot(Connection& connection) : connection_(connection) {
    connection_.Opened()->BeginReading();
}

Snapshot::~Snapshot() {
    try {
        connection_.Opened()->EndReading();
    } catch (const basic::Error&) {
        // The connection was closed, and with it the view.
    }
}

void BackUp(Connection& connection, const std::string& file) {
    const auto& session = connection.Opened();
    if (std::filesystem::exists(file))
        throw basic::Error(error::BadArgument, "The file '" + file + "' exists already.", "ado.Maintenance");
    try {
        session->CopyTo(file, connection.Properties.Get("Jet OLEDB:Database Password"));
    } catch (...) {
        std::error_code ignored;
        for (const char* part : {"", "-wal", "-shm", "-journal"})
            std::filesystem::remove(file + part, ignored);
        throw;
    }
}

std::vector<TableSums> SumTables(Connection& connection) {
    Session& session = *connection.Opened();
    std::vector<TableSums> all;
    for (const std::string& table : TableNames(session)) all.push_back(SumTable(session, table));
    return all;
}

}  // namespace ado
