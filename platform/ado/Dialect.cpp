#include "platform/ado/Dialect.h"

#include <algorithm>

#include "platform/ado/Errors.h"
#include "platform/ado/Expression.h"
#include "platform/ado/Select.h"
#include "platform/ado/Tokens.h"
#include "platform/basic/Error.h"

namespace ado {
namespace {

class Translator {
  public:
    Translator(const Shape& shape, Catalog& catalog, const PlanOptions& options)
        : shape_(shape), catalog_(catalog), options_(options), tokens_(shape.key) {}

    Plan Run() {
        if (tokens_.AtWord("Select"))
            Select();
        else if (tokens_.TakeWord("Insert"))
            Insert();
        else if (tokens_.TakeWord("Update"))
            Update();
        else if (tokens_.TakeWord("Delete"))
            Delete();
        else
            tokens_.Refuse("Select, Insert, Update or Delete is expected");
        tokens_.ExpectEnd();
        return std::move(plan_);
    }

  private:
    SelectReader Reader() { return SelectReader(tokens_, shape_, catalog_, plan_); }

    void Select() {
        plan_.kind = StatementKind::Select;
        if (SelectsInto()) {
            Into();
            return;
        }
        Reader().Whole(options_);
    }

    bool SelectsInto() const { return tokens_.AtSymbol("*", 1) && tokens_.AtWord("Into", 2); }

    // Only the form that makes a year's table from its template; the data layer carries it out by itself.
    void Into() {
        for (int word = 0; word < 3; ++word) tokens_.Take();
        plan_.kind = StatementKind::SelectInto;
        plan_.into = tokens_.ExpectName("a table");
        tokens_.ExpectWord("From");
        plan_.table = RequireTable(catalog_, tokens_.ExpectName("a table")).name;
    }

    void Insert() {
        plan_.kind = StatementKind::Insert;
        tokens_.ExpectWord("Into");
        const TableInfo& table = RequireTable(catalog_, tokens_.ExpectName("a table"));
        plan_.table = table.name;
        std::vector<const ColumnInfo*> columns = ColumnList(table);
        const bool named = !columns.empty();
        std::string values;
        if (tokens_.AtWord("Select")) {
            values = SelectedValues(table, columns);
        } else {
            if (!named)
                for (const ColumnInfo& column : table.columns) columns.push_back(&column);
            values = GivenValues(columns);
        }
        std::string names;
        for (const ColumnInfo* column : columns)
            names += (names.empty() ? "" : ", ") + QuotedName(column->name);
        plan_.head = "INSERT INTO " + QuotedName(table.name) + " (" + names + ") " + values;
    }

    // "(a, b)" behind the table's name; empty where none stands.
    std::vector<const ColumnInfo*> ColumnList(const TableInfo& table) {
        std::vector<const ColumnInfo*> columns;
        if (!tokens_.TakeSymbol("(")) return columns;
        do {
            const ColumnInfo& column = RequireColumn(table, tokens_.ExpectName("a field"));
            if (std::find(columns.begin(), columns.end(), &column) != columns.end())
                tokens_.Refuse("the field '" + column.name + "' is named twice");
            columns.push_back(&column);
        } while (tokens_.TakeSymbol(","));
        tokens_.ExpectSymbol(")");
        return columns;
    }

    std::string GivenValues(const std::vector<const ColumnInfo*>& columns) {
        tokens_.ExpectWord("Values");
        tokens_.ExpectSymbol("(");
        const Scope none;
        ExpressionReader reader = Expressions(none);
        std::string values;
        std::size_t count = 0;
        do {
            if (tokens_.AtSymbol(")")) tokens_.Refuse("a value is expected");
            const Expression value = reader.Condition();
            if (count < columns.size())
                values += (count == 0 ? "" : ", ") + reader.Stored(value, *columns[count]);
            ++count;
        } while (tokens_.TakeSymbol(","));
        tokens_.ExpectSymbol(")");
        if (count != columns.size()) RefuseCount();
        return "VALUES (" + values + ")";
    }

    // Without a list of fields the select's names are matched with the table's, whatever their order.
    std::string SelectedValues(const TableInfo& table, std::vector<const ColumnInfo*>& columns) {
        const bool byName = columns.empty();
        std::size_t place = 0;
        SelectReader reader = Reader();
        const std::string sql = reader.Inserted([&](const std::string& name) -> const ColumnInfo& {
            if (!byName) {
                if (place >= columns.size()) RefuseCount();
                return *columns[place++];
            }
            const ColumnInfo& column = RequireColumn(table, name);
            if (std::find(columns.begin(), columns.end(), &column) != columns.end())
                tokens_.Refuse("the field '" + column.name + "' is given twice");
            columns.push_back(&column);
            return column;
        });
        if (!byName && place != columns.size()) RefuseCount();
        return sql;
    }

    [[noreturn]] static void RefuseCount() {
        throw basic::Error(error::Statement, "Number of query values and destination fields are not the same",
                           "ado");
    }

    void Update() {
        plan_.kind = StatementKind::Update;
        const TableInfo& table = OneTable();
        tokens_.ExpectWord("Set");
        ExpressionReader reader = Expressions(scope_);
        std::string assignments;
        do {
            const ColumnInfo& column = RequireColumn(table, tokens_.ExpectName("a field"));
            tokens_.ExpectSymbol("=");
            const std::string value = reader.Stored(reader.Condition(), column);
            assignments += (assignments.empty() ? "" : ", ") + QuotedName(column.name) + " = " + value;
        } while (tokens_.TakeSymbol(","));
        if (reader.SawAggregate()) tokens_.Refuse("Max and Sum stand only in a select");
        plan_.head = "UPDATE " + QuotedName(table.name) + " SET " + assignments;
        Where();
    }

    void Delete() {
        plan_.kind = StatementKind::Delete;
        tokens_.TakeSymbol("*");
        tokens_.ExpectWord("From");
        plan_.head = "DELETE FROM " + QuotedName(OneTable().name);
        Where();
    }

    const TableInfo& OneTable() {
        const TableInfo& table = RequireTable(catalog_, tokens_.ExpectName("a table"));
        plan_.table = table.name;
        scope_.Add({table.name, &table});
        return table;
    }

    void Where() {
        if (!tokens_.TakeWord("Where")) return;
        ExpressionReader reader = Expressions(scope_);
        plan_.where = " WHERE " + reader.Condition().sql;
        if (reader.SawAggregate()) tokens_.Refuse("Max and Sum stand only in a select");
    }

    ExpressionReader Expressions(const Scope& scope) {
        return ExpressionReader(tokens_, shape_, scope, plan_,
                                [this](const Scope& outer) { return Reader().OneValue(outer); });
    }

    const Shape& shape_;
    Catalog& catalog_;
    const PlanOptions options_;
    TokenReader tokens_;
    Plan plan_;
    Scope scope_;
};

}  // namespace

Plan Translate(const Shape& shape, Catalog& catalog, const PlanOptions& options) {
    return Translator(shape, catalog, options).Run();
}

}  // namespace ado
