#include "platform/ado/Maintenance.h"

#include <filesystem>
#include <optional>

#include "platform/ado/Errors.h"
#include "platform/ado/dialect/Scope.h"
#include "platform/ado/store/NewStore.h"
#include "platform/ado/store/ServerAddress.h"
#include "platform/ado/store/Session.h"
#include "platform/ado/store/StoreCopy.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"

namespace ado {
namespace {

TableSums SumTable(Engine& engine, const std::string& table) {
    TableSums result;
    result.name = table;
    const auto described = engine.Describe(table);
    std::string list = "count(*)";
    for (const ColumnInfo& column : described->columns) list += ", " + engine.Sql().Total(column);
    const auto sums = engine.Prepare("SELECT " + list + " FROM " + QuotedName(table));
    if (!sums->Step()) return result;
    result.rows = sums->Integer(0);
    int place = 0;
    for (const ColumnInfo& column : described->columns)
        result.sums[column.name] = basic::NumberText(sums->Real(++place));
    return result;
}

void RemoveCopy(const std::string& file) {
    std::error_code ignored;
    for (const char* suffix : {"", "-wal", "-shm", "-journal"})
        std::filesystem::remove(file + suffix, ignored);
}

// Gives the name of books that were set aside.
std::string CopyInto(Connection& connection, std::unique_ptr<NewStore> made) {
    Engine& from = connection.Opened()->engine();
    std::optional<Snapshot> moment;
    if (!from.InTransaction()) moment.emplace(connection);
    CopyStore(from, *made);
    made->Finish();
    return made->SetAside();
}

}  // namespace

std::vector<std::string> CheckIntegrity(Connection& connection) {
    try {
        return connection.Opened()->engine().CheckPages();
    } catch (const basic::Error& failure) {
        if (failure.Number != error::Damaged) throw;
        return {failure.Description};  // a page that does not check out ends the walk
    }
}

std::vector<BadText> FindBadTexts(Connection& connection) {
    Engine& engine = connection.Opened()->engine();
    std::vector<BadText> found;
    for (const std::string& table : engine.Tables()) {
        const auto described = engine.Describe(table);
        std::string list;
        for (const ColumnInfo& column : described->columns)
            list += (list.empty() ? "" : ", ") + QuotedName(column.name);
        const auto rows = engine.Prepare("SELECT " + list + " FROM " + QuotedName(table) + " ORDER BY rowid");
        for (std::int64_t row = 1; rows->Step(); ++row)
            for (int i = 0; i < rows->ColumnCount(); ++i) {
                if (rows->Kind(i) != CellKind::Text || basic::IsUtf8(rows->Text(i))) continue;
                found.push_back({table, described->columns[static_cast<std::size_t>(i)].name, row,
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

void ForgetPages(Connection& connection) {
    connection.Opened()->engine().ForgetPages();
}

void BackUp(Connection& connection, const std::string& file) {
    if (std::filesystem::exists(file))
        throw basic::Error(error::BadArgument, "The file '" + file + "' exists; a copy never overwrites.",
                           "ado.Maintenance");
    if (IsServerAddress(connection.Properties.Get("Data Source"))) return CopyBooks(connection, file);
    try {
        connection.Opened()->engine().CopyTo(file, connection.Properties.Get("Jet OLEDB:Database Password"));
    } catch (const basic::Error&) {
        RemoveCopy(file);
        throw;
    }
}

void CopyBooks(Connection& connection, const std::string& target, CopyRoles roles) {
    CopyInto(connection, IsServerAddress(target)
                             ? NewOnServer(target, roles == CopyRoles::Make)
                             : NewFile(target, connection.Properties.Get("Jet OLEDB:Database Password")));
}

std::string ReplaceBooks(Connection& connection, const std::string& server) {
    return CopyInto(connection, NewOnServer(server, false, Standing::SetAside));
}

std::vector<TableSums> SumTables(Connection& connection) {
    Engine& engine = connection.Opened()->engine();
    std::vector<TableSums> tables;
    for (const std::string& name : engine.Tables()) tables.push_back(SumTable(engine, name));
    return tables;
}

}  // namespace ado
