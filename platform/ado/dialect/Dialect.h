#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Statements arrive in the classic desktop-database dialect; this turns them into the store's own SQL. A
// statement is first cut into its shape and its literals (one pass over the bytes); only a shape seen for the
// first time is parsed and translated, and the result, a Plan, is kept with its prepared statement.
namespace ado {

enum class ColumnType { Any, Boolean, Integer, Long, Double, Text };

struct Literal {
    bool isText = false;
    std::string text;   // of a text: without its quotes, doubled quotes undone; of a number: as written
    double number = 0;  // of a number
};

struct Shape {
    std::string key;                // the statement with each literal replaced by a mark and blanks folded
    std::vector<Literal> literals;  // in the order of the statement
};

// Raises ado::error::Statement for a literal that does not end and for anything after the statement.
Shape ShapeOf(std::string_view statement);

struct ColumnInfo {
    std::string name;
    ColumnType type = ColumnType::Any;
    bool counter = false;  // the store assigns it
};

struct TableInfo {
    std::string name;  // as the store spells it
    std::vector<ColumnInfo> columns;
};

// What the translator asks about the tables. Never remembers that a table is missing.
class Catalog {
  public:
    virtual ~Catalog() = default;
    virtual const TableInfo* Table(
        std::string_view name) = 0;  // without regard to case; nullptr if there is none
};

// How a literal is bound: parameter ?n (n from 1, in the order of Plan::parameters) takes literals[literal].
struct Parameter {
    std::size_t literal = 0;
    bool negate = false;  // the literal stood behind a minus sign
    ColumnType as =
        ColumnType::Any;    // Any: as it stands; else it is converted, and refused, as a value of that type
    bool compared = false;  // compared with a boolean: -1 is bound as 1, since True equals both
    bool pattern = false;   // stands behind Like: what only a wider dialect would take is refused
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
    bool distinct = false;   // rows alike (texts without regard to case) are dropped, the first one stays
    bool aggregate = false;  // Max, Sum or Group By
    std::string table;       // the one table of an insert, update, delete or single-table select, else ""
    bool rowid = false;      // the select's last column, beyond outputs, is the row's identity
    std::string into;        // of a SelectInto: the new table; `table` is its source

    std::string Sql() const { return head + where + tail; }
};

struct PlanOptions {
    bool rowid =
        false;  // for an editing record set; ignored unless the select is of one table and no aggregate
};

// Translates a shape. Raises ado::error::Statement, NoSuchTable, UnknownName or BadValue, each with a text
// that names the place.
Plan Translate(const Shape& shape, Catalog& catalog, const PlanOptions& options = {});

}  // namespace ado
