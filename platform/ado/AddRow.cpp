#include "platform/ado/AddRow.h"

#include "platform/ado/RecordsetImpl.h"
#include "platform/ado/dialect/Scope.h"
#include "platform/ado/store/Conversion.h"
#include "platform/ado/store/Session.h"

namespace ado {

void AddRow(Connection& connection, const std::string& table, const std::vector<FieldValue>& fields) {
    Session& session = *connection.Opened();
    const TableInfo& known = session.Table(table);
    Assignments row;
    for (const auto& [name, value] : fields) {
        const ColumnInfo& column = RequireColumn(known, name);
        row.columns.push_back(QuotedName(column.name));
        row.values.push_back(ConvertTo(column.type, value));
    }
    const std::string sql = InsertSql(session.engine().Sql(), known.name, row);
    session.ExecuteAhead(session.Own(sql, std::move(row.values)), nullptr);
}

}  // namespace ado
