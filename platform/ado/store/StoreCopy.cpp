#include "platform/ado/store/StoreCopy.h"

#include <bit>

#include "platform/ado/Errors.h"
#include "platform/ado/dialect/Scope.h"
#include "platform/basic/Error.h"

namespace ado {
namespace {

// Numbers to their last bit; a whole number in a text column is its text.
bool SameCell(const EngineStatement& a, const EngineStatement& b, int column) {
    if ((a.Kind(column) == CellKind::Null) != (b.Kind(column) == CellKind::Null)) return false;
    if (a.Kind(column) == CellKind::Null) return true;
    if (a.Kind(column) == CellKind::Real || b.Kind(column) == CellKind::Real)
        return std::bit_cast<std::int64_t>(a.Real(column)) == std::bit_cast<std::int64_t>(b.Real(column));
    if (a.Kind(column) == CellKind::Text || b.Kind(column) == CellKind::Text)
        return a.Text(column) == b.Text(column);
    return a.Integer(column) == b.Integer(column);
}

bool SameRow(const EngineStatement& a, const EngineStatement& b, int columns) {
    for (int i = 0; i < columns; ++i)
        if (!SameCell(a, b, i)) return false;
    return true;
}

std::unique_ptr<EngineStatement> RowsOf(Engine& store, const SchemaTable& table) {
    return store.Prepare("SELECT " + ColumnList(table) + " FROM " + QuotedName(table.name) +
                         " ORDER BY rowid");
}

void Compare(EngineStatement& left, EngineStatement& right, const SchemaTable& table) {
    for (std::int64_t row = 1;; ++row) {
        const bool more = left.Step();
        if (more == right.Step() && (!more || SameRow(left, right, static_cast<int>(table.columns.size())))) {
            if (!more) return;
            continue;
        }
        throw basic::Error(error::Damaged,
                           "The copy differs from the books in row " + std::to_string(row) +
                               " of the table '" + table.name + "'.",
                           "ado.Maintenance");
    }
}

}  // namespace

void CopyStore(Engine& from, NewStore& to) {
    for (const std::string& name : from.Tables()) {
        const SchemaTable table = from.Definition(name);
        to.BeginTable(table);
        const auto rows = RowsOf(from, table);
        while (rows->Step()) to.Add(*rows);
        to.EndTable();
        rows->Reset();
        Compare(*rows, *to.Rows(table), table);
    }
}

}  // namespace ado
