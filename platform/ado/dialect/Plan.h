#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/ado/dialect/Catalog.h"
#include "platform/ado/dialect/Shape.h"

// Statements arrive in the classic desktop-database dialect; this turns a shape into the store's own SQL. The
// result, a Plan, is kept with its prepared statement.
namespace ado {

// How a literal is bound: parameter ?n (n from 1, in the order of Plan::parameters) takes literals[literal].
struct Parameter {
    std::size_t literal = 0;
    bool negate = false;  // the literal stood behind a minus sign
    ColumnType as =
        ColumnType::Any;    // Any: as it stands; else it is converted, and refused, as a value of that type
    bool compared = false;  // compared with a boolean: -1 is bound as 1, since True equals both
    bool pattern = false;   // stands behind Like: what only a wider dialect would take is refused
    bool measured =
        false;  // a text beside numbers, bound as the one that it reads as, above all if it is none
    friend bool operator==(const Parameter&, const Parameter&) = default;
};

struct Output {
    std::string name;    // the alias, or the column's name
    std::string table;   // the table's name or alias for a plain column, else ""
    std::string column;  // the column's own name for a plain column, else ""
    ColumnType type = ColumnType::Any;
};

enum class StatementKind { Select, SelectInto, Insert, Update, Delete };

struct Plan {
    StatementKind kind = StatementKind::Select;
    // The store's SQL. Of a select it is put together as head + where + tail, so that a record set's filter
    // can join the condition; `where` is "" or starts with " WHERE ".
    std::string head, where, tail;
    std::vector<Parameter> parameters;
    std::vector<Output> outputs;  // of a select
    bool distinct = false;     // rows alike (texts without regard to case) are dropped, the first one stays
    bool aggregate = false;    // Max, Sum or Group By
    std::string table;         // the one table of an insert, update, delete or single-table select, else ""
    bool givesOneRow = false;  // an insert of given values: it matches one row or fails
    bool rowid = false;        // the select's last column, beyond outputs, is the row's identity
    std::string into;          // of a SelectInto: the new table; `table` is its source

    std::string Sql() const { return head + where + tail; }
};

struct PlanOptions {
    bool rowid =
        false;  // for an editing record set; ignored unless the select is of one table and no aggregate
    bool hostCondition = false;  // the forms and functions that only a host's own condition may have
};

// Translates a shape. Raises ado::error::Statement, NoSuchTable, UnknownName or BadValue, each with a text
// that names the place.
Plan Translate(const Shape& shape, Catalog& catalog, const PlanOptions& options = {});

}  // namespace ado
