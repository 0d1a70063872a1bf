#include "platform/ado/Select.h"

#include "platform/ado/Errors.h"
#include "platform/basic/Error.h"
#include "platform/basic/Text.h"

namespace ado {
namespace {

constexpr int FirstUnnamed = 1000;  // what has no name of its own is called Expr1000 and on

}  // namespace

// The tables stand behind the list that needs them, so they are read first.
void SelectReader::Read(const Scope* outer) {
    tokens_.ExpectWord("Select");
    distinct_ = tokens_.TakeWord("Distinct");
    scope_ = Scope(outer);
    expressions_ =
        std::make_unique<ExpressionReader>(tokens_, shape_, scope_, plan_, [this](const Scope& around) {
            return SelectReader(tokens_, shape_, catalog_, plan_).OneValue(around);
        });
    const std::size_t list = tokens_.Position();
    for (int depth = 0; depth > 0 || !tokens_.AtWord("From"); tokens_.Take()) {
        if (tokens_.Peek().kind == TokenKind::End) tokens_.Refuse("'From' is expected");
        if (depth == 0 && tokens_.AtWord("Into"))
            tokens_.Refuse("only Select * Into a table From another is supported");
        depth += tokens_.AtSymbol("(") ? 1 : tokens_.AtSymbol(")") ? -1 : 0;
    }
    const std::size_t from = tokens_.Position();
    Tables();
    const std::size_t rest = tokens_.Position();
    tokens_.MoveTo(list);
    Items();
    if (tokens_.Position() != from) tokens_.Refuse("'From' is expected");
    tokens_.MoveTo(rest);
    WhereGroupOrder();
}

void SelectReader::Tables() {
    tokens_.ExpectWord("From");
    do {
        const TableInfo& table = RequireTable(catalog_, tokens_.ExpectName("a table"));
        scope_.Add({tokens_.TakeWord("As") ? tokens_.ExpectName("a table's alias") : table.name, &table});
    } while (tokens_.TakeSymbol(","));
}

void SelectReader::Items() {
    do {
        if (tokens_.TakeSymbol("*"))
            AllColumns({});
        else if (tokens_.AtSymbol(".", 1) && tokens_.AtSymbol("*", 2))
            AllColumns(tokens_.ExpectName("a table"));
        else
            OneItem();
    } while (tokens_.TakeSymbol(","));
    aggregate_ = expressions_->SawAggregate();
}

void SelectReader::AllColumns(const std::string& table) {
    if (!table.empty()) {
        tokens_.ExpectSymbol(".");
        tokens_.ExpectSymbol("*");
    }
    for (const TableRef& ref : scope_.Tables()) {
        if (!table.empty() && !basic::EqualText(table, ref.alias)) continue;
        for (const ColumnInfo& column : ref.info->columns) {
            Item item;
            item.value.column = {&ref, &column};
            item.value.sql = item.value.column.Sql();
            item.value.type = column.type;
            item.output = {column.name, ref.alias, column.name, column.type};
            items_.push_back(std::move(item));
        }
    }
}

void SelectReader::OneItem() {
    Item item;
    item.value = Expressions().Condition();
    const ColumnRef& column = item.value.column;
    item.output.type = item.value.type;
    if (column.column != nullptr) {
        item.output.name = item.output.column = column.column->name;
        item.output.table = column.table->alias;
    }
    if (tokens_.TakeWord("As"))
        item.output.name = tokens_.ExpectName("a column");
    else if (item.output.name.empty())
        item.output.name = "Expr" + std::to_string(FirstUnnamed + unnamed_++);
    items_.push_back(std::move(item));
}

void SelectReader::WhereGroupOrder() {
    if (tokens_.TakeWord("Where")) {
        where_ = " WHERE " + Expressions().Condition().sql;
        if (expressions_->SawAggregate() && !aggregate_)
            tokens_.Refuse("Max and Sum stand only in the list of a select");
    }
    if (tokens_.TakeWord("Group")) {
        tokens_.ExpectWord("By");
        aggregate_ = true;
        do {
            const Expression key = Expressions().Column();
            group_ += (group_.empty() ? " GROUP BY " : ", ") + key.sql +
                      (key.type == ColumnType::Text ? " COLLATE QMTEXT" : "");
        } while (tokens_.TakeSymbol(","));
    }
    if (tokens_.TakeWord("Order")) {
        tokens_.ExpectWord("By");
        do OrderKey();
        while (tokens_.TakeSymbol(","));
    }
}

// A field of the tables; where none bears the name, an alias of the list.
void SelectReader::OrderKey() {
    std::string key;
    ColumnType type = ColumnType::Any;
    const Token& name = tokens_.Peek();
    const bool bare =
        (name.kind == TokenKind::Name || name.kind == TokenKind::Bracketed) && !tokens_.AtSymbol(".", 1);
    if (bare && scope_.Find({}, name.text).column == nullptr) {
        for (const Item& item : items_)
            if (basic::EqualText(item.output.name, name.text)) {
                key = item.value.sql;
                type = item.value.type;
            }
    }
    if (key.empty()) {
        const Expression column = Expressions().Column();
        key = column.sql;
        type = column.type;
    } else {
        tokens_.Take();
    }
    const bool descending = tokens_.TakeWord("Desc");
    if (!descending) tokens_.TakeWord("Asc");
    order_ += (order_.empty() ? "" : ", ") + key + (type == ColumnType::Text ? " COLLATE QMTEXT" : "") +
              (descending ? " DESC" : "");
}

// Rows come in the order in which they were inserted, whatever index the store picks.
std::string SelectReader::RowidOrder() const {
    std::string order = order_;
    if (!aggregate_)
        for (const TableRef& table : scope_.Tables())
            order += (order.empty() ? "" : ", ") + QuotedName(table.alias) + ".rowid";
    return order.empty() ? "" : " ORDER BY " + order;
}

std::string SelectReader::From() const {
    std::string from;
    for (const TableRef& table : scope_.Tables()) {
        from += (from.empty() ? " FROM " : ", ") + QuotedName(table.info->name);
        if (table.alias != table.info->name) from += " AS " + QuotedName(table.alias);
    }
    return from;
}

void SelectReader::Whole(const PlanOptions& options) {
    Read(nullptr);
    std::string list;
    for (Item& item : items_) {
        list += (list.empty() ? "" : ", ") + item.value.sql;
        plan_.outputs.push_back(std::move(item.output));
    }
    plan_.distinct = distinct_;
    plan_.aggregate = aggregate_;
    if (scope_.Tables().size() == 1) plan_.table = scope_.Tables().front().info->name;
    plan_.rowid = options.rowid && !plan_.table.empty() && !aggregate_ && !distinct_;
    if (plan_.rowid) list += ", " + QuotedName(scope_.Tables().front().alias) + ".rowid";
    plan_.head = "SELECT " + list + From();
    plan_.where = where_;
    plan_.tail = group_ + RowidOrder();
}

std::string SelectReader::Inserted(const std::function<const ColumnInfo&(const std::string&)>& target) {
    Read(nullptr);
    if (distinct_) tokens_.Refuse("Distinct is not supported behind Insert");
    std::string list;
    for (const Item& item : items_)
        list += (list.empty() ? "" : ", ") + Expressions().Stored(item.value, target(item.output.name));
    return "SELECT " + list + From() + where_ + group_ + RowidOrder();
}

Expression SelectReader::OneValue(const Scope& outer) {
    Read(&outer);
    if (items_.size() != 1 || distinct_ || !group_.empty())
        tokens_.Refuse("a select in parentheses gives one value of one field");
    Expression value = std::move(items_.front().value);
    const std::string list = aggregate_ ? value.sql : "qm_single(" + value.sql + ")";
    Expression result;
    result.sql = "SELECT " + list + From() + where_;
    result.type = value.parameter ? ColumnType::Any : value.type;
    return result;
}

}  // namespace ado
