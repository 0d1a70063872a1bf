#include "platform/ado/EachRow.h"

#include "platform/ado/RecordsetImpl.h"

namespace ado {

void EachRow(Connection& connection, std::string_view select, const std::function<void(Recordset&)>& row) {
    Recordset current;
    current.Internals().EachOf(connection.Opened(), select, [&] { row(current); });
}

}  // namespace ado
