#include "platform/ado/dialect/Plan.h"

#include "platform/ado/dialect/Insert.h"
#include "platform/ado/dialect/Select.h"
#include "platform/ado/dialect/Tokens.h"

namespace ado {
namespace {

class Translator {
  public:
    Translator(const Shape& shape, Catalog& catalog, const PlanOptions& options)
        : catalog_(catalog), options_(options), tokens_(shape.key, options.hostCondition) {}

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
    void Select() {
        if (tokens_.AtSymbol("*", 1) && tokens_.AtWord("Into", 2))
            SelectInto();
        else
            SelectReader(tokens_, catalog_, plan_).Whole(options_);
    }

    // Only the form that makes a year's table from its template; the data layer carries it out by itself.
    void SelectInto() {
        plan_.kind = StatementKind::SelectInto;
        tokens_.ExpectWord("Select");
        tokens_.ExpectSymbol("*");
        tokens_.ExpectWord("Into");
        plan_.into = tokens_.ExpectName("a table");
        tokens_.ExpectWord("From");
        plan_.table = RequireTable(catalog_, tokens_.ExpectName("a table")).name;
    }

    void Insert() {
        plan_.kind = StatementKind::Insert;
        InsertReader(tokens_, catalog_, plan_).Whole();
    }

    void Update() {
        plan_.kind = StatementKind::Update;
        const TableInfo& table = OneTable();
        tokens_.ExpectWord("Set");
        std::string assignments;
        do {
            const ColumnInfo& column = RequireColumn(table, tokens_.ExpectName("a field"));
            tokens_.ExpectSymbol("=");
            assignments += (assignments.empty() ? "" : ", ") + QuotedName(column.name) + " = " +
                           Stored(expressions_.Condition(), column, {plan_, catalog_.Sql()}).sql;
        } while (tokens_.TakeSymbol(","));
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
        if (tokens_.TakeWord("Where")) plan_.where = " WHERE " + expressions_.Truth().sql;
    }

    Catalog& catalog_;
    const PlanOptions options_;
    TokenReader tokens_;
    Plan plan_;
    Scope scope_;  // of an update or delete
    ExpressionReader expressions_{tokens_, scope_, Draft{plan_, catalog_.Sql()},
                                  [this](const Scope& outer, const SubselectUse& use) {
                                      return SelectReader(tokens_, catalog_, plan_).InParentheses(outer, use);
                                  }};
};

}  // namespace

Plan Translate(const Shape& shape, Catalog& catalog, const PlanOptions& options) {
    return Translator(shape, catalog, options).Run();
}

}  // namespace ado
