#include "platform/ado/dialect/Select.h"

#include <algorithm>

#include "platform/ado/dialect/Refusal.h"
#include "platform/basic/Text.h"

namespace ado {
namespace {

constexpr int FirstUnnamed = 1000;  // what has no name of its own is called Expr1000 and on

bool Same(const ColumnRef& a, const ColumnRef& b) {
    return a.table == b.table && a.column == b.column;
}

void Append(std::string& list, const std::string& entry) {
    if (!entry.empty()) list.append(list.empty() ? "" : ", ") += entry;
}

}  // namespace

// The tables stand behind the list that needs them, so they are read first.
void SelectReader::Read(const Scope* outer) {
    tokens_.ExpectWord("Select");
    distinct_ = tokens_.TakeWord("Distinct");
    RefuseUnsupportedStart();
    scope_ = Scope(outer);
    expressions_ = std::make_unique<ExpressionReader>(
        tokens_, scope_, Draft{plan_, words_}, [this](const Scope& around, const SubselectUse& use) {
            return SelectReader(tokens_, catalog_, plan_).InParentheses(around, use);
        });
    const std::size_t list = tokens_.Position();
    FindFrom();
    const std::size_t from = tokens_.Position();
    Tables();
    const std::size_t rest = tokens_.Position();
    tokens_.MoveTo(list);
    Items();
    if (tokens_.Position() != from) tokens_.Refuse("'From' is expected");
    tokens_.MoveTo(rest);
    Where();
    GroupBy();
    OrderBy();
    if (aggregate_) CheckGrouping();
}

// Top and its like would otherwise read as a field's name.
void SelectReader::RefuseUnsupportedStart() const {
    const TokenKind next = tokens_.Peek(1).kind;
    if (next == TokenKind::Symbol || next == TokenKind::End || tokens_.AtWord("As", 1) ||
        tokens_.AtWord("From", 1))
        return;
    for (const char* word : {"Top", "DistinctRow", "All"})
        if (tokens_.AtWord(word)) tokens_.Refuse("the list of a select is expected");
}

void SelectReader::FindFrom() {
    for (int depth = 0; depth > 0 || !tokens_.AtWord("From"); tokens_.Take()) {
        if (tokens_.Peek().kind == TokenKind::End) tokens_.Refuse("'From' is expected");
        if (depth == 0 && tokens_.AtWord("Into"))
            tokens_.Refuse("only Select * Into a table From another is supported");
        depth += tokens_.AtSymbol("(") ? 1 : tokens_.AtSymbol(")") ? -1 : 0;
    }
}

void SelectReader::Tables() {
    tokens_.ExpectWord("From");
    do {
        const TableInfo& table = RequireTable(catalog_, tokens_.ExpectName("a table"));
        tokens_.RefuseBareAlias();
        scope_.Add({tokens_.TakeWord("As") ? tokens_.ExpectName("a table's alias") : table.name, &table});
    } while (tokens_.TakeSymbol(","));
}

void SelectReader::Items() {
    expressions_->AllowAggregates(true);
    do {
        if (tokens_.AtSymbol("*") || (tokens_.AtSymbol(".", 1) && tokens_.AtSymbol("*", 2)))
            AllColumns();
        else
            OneItem();
    } while (tokens_.TakeSymbol(","));
    expressions_->AllowAggregates(false);
    for (const ColumnRef& column : expressions_->TakeColumns()) bare_.push_back(column);
}

// "*" or "table.*".
void SelectReader::AllColumns() {
    if (tokens_.TakeSymbol("*")) {
        for (const TableRef& table : scope_.Tables()) TableColumns(table);
        return;
    }
    const std::string name = tokens_.ExpectName("a table");
    tokens_.ExpectSymbol(".");
    tokens_.ExpectSymbol("*");
    const auto& tables = scope_.Tables();
    const auto found = std::find_if(tables.begin(), tables.end(), [&](const TableRef& table) {
        return basic::EqualText(table.alias, name);
    });
    if (found == tables.end())
        Refuse(error::UnknownName, "The statement's From names no table '" + name + "'");
    TableColumns(*found);
}

void SelectReader::TableColumns(const TableRef& table) {
    for (const ColumnInfo& column : table.info->columns) {
        Item item;
        item.value.column = {&table, &column};
        item.value.sql = item.value.column.Sql();
        item.value.type = column.type;
        item.output = {column.name, table.alias, column.name, column.type};
        bare_.push_back(item.value.column);
        items_.push_back(std::move(item));
    }
}

void SelectReader::OneItem() {
    Item item;
    item.value = expressions_->Condition();
    item.ofGroup = !expressions_->TakeAggregate();
    aggregate_ = aggregate_ || !item.ofGroup;
    const ColumnRef& column = item.value.column;
    item.output.type = item.value.type;
    if (column.column != nullptr) {
        item.output.name = item.output.column = column.column->name;
        item.output.table = column.table->alias;
    }
    tokens_.RefuseBareAlias();
    if (tokens_.TakeWord("As"))
        item.output.name = tokens_.ExpectName("a column");
    else if (item.output.name.empty())
        item.output.name = "Expr" + std::to_string(FirstUnnamed + unnamed_++);
    items_.push_back(std::move(item));
}

void SelectReader::Where() {
    if (!tokens_.TakeWord("Where")) return;
    const Expression condition = expressions_->Truth();
    where_ = " WHERE " + condition.sql;
    whereDepth_ = condition.depth;
}

void SelectReader::GroupBy() {
    if (!tokens_.TakeWord("Group")) return;
    tokens_.ExpectWord("By");
    aggregate_ = true;
    std::string list;
    do {
        const Expression key = expressions_->Column();
        keys_.push_back(key.column);
        Append(list, words_.GroupKey(key));
        Append(groupOrder_, words_.OrderKey(key, false));
    } while (tokens_.TakeSymbol(","));
    group_ = " GROUP BY " + list;
}

void SelectReader::OrderBy() {
    if (!tokens_.TakeWord("Order")) return;
    tokens_.ExpectWord("By");
    do {
        const Expression key = OrderKey();
        const bool descending = tokens_.TakeWord("Desc");
        if (!descending) tokens_.TakeWord("Asc");
        Append(order_, words_.OrderKey(key, descending));
    } while (tokens_.TakeSymbol(","));
}

// A field of the tables; where none bears the name, an alias of the list.
Expression SelectReader::OrderKey() {
    if (const Item* item = ItemCalledHere()) {
        tokens_.Take();
        return item->value;
    }
    Expression column = expressions_->Column();
    bare_.push_back(column.column);
    return column;
}

const SelectReader::Item* SelectReader::ItemCalledHere() const {
    const Token& name = tokens_.Peek();
    const bool bare = name.kind == TokenKind::Name || name.kind == TokenKind::Bracketed;
    if (!bare || tokens_.AtSymbol(".", 1) || scope_.Find({}, name.text).column != nullptr) return nullptr;
    for (const Item& item : items_)
        if (basic::EqualText(item.output.name, name.text)) return &item;
    return nullptr;
}

// The store would take any row's value for a column that differs within a group.
void SelectReader::CheckGrouping() const {
    for (const ColumnRef& column : bare_)
        if (scope_.Holds(column) &&
            std::none_of(keys_.begin(), keys_.end(), [&](const ColumnRef& key) { return Same(key, column); }))
            Refuse(error::Statement, "The field '" + column.column->name +
                                         "' stands neither in Group By nor within Max or Sum");
}

// Rows come in the order in which they were inserted, whatever index the store picks, groups in that of
// their keys.
std::string SelectReader::Order() const {
    std::string order = order_;
    Append(order, groupOrder_);
    if (!aggregate_)
        for (const TableRef& table : scope_.Tables()) Append(order, QuotedName(table.alias) + ".rowid");
    return order.empty() ? "" : " ORDER BY " + order;
}

std::string SelectReader::ListOf(const Item& item) const {
    return keys_.empty() || !item.ofGroup ? item.value.sql : words_.OfGroup(item.value, keys_);
}

std::string SelectReader::From() const {
    std::string from;
    for (const TableRef& table : scope_.Tables()) {
        const bool renamed = table.alias != table.info->name;
        Append(from, QuotedName(table.info->name) + (renamed ? " AS " + QuotedName(table.alias) : ""));
    }
    return " FROM " + from;
}

void SelectReader::Whole(const PlanOptions& options) {
    Read(nullptr);
    std::string list;
    for (Item& item : items_) {
        Append(list, ListOf(item));
        plan_.outputs.push_back(std::move(item.output));
    }
    plan_.distinct = distinct_;
    plan_.aggregate = aggregate_;
    if (scope_.Tables().size() == 1) plan_.table = scope_.Tables().front().info->name;
    plan_.rowid = options.rowid && !plan_.table.empty() && !aggregate_ && !distinct_;
    if (plan_.rowid) Append(list, QuotedName(scope_.Tables().front().alias) + ".rowid");
    plan_.head = "SELECT " + list + From();
    plan_.where = where_;
    plan_.tail = group_ + Order();
}

std::string SelectReader::Inserted(const std::function<const ColumnInfo&(const std::string&)>& target) {
    Read(nullptr);
    if (distinct_) Refuse(error::Statement, "Distinct is not supported behind Insert");
    std::string list;
    for (Item& item : items_) {
        item.value = Stored(item.value, target(item.output.name), {plan_, words_});
        Append(list, ListOf(item));
    }
    return "SELECT " + list + From() + where_ + group_ + Order();
}

Expression SelectReader::InParentheses(const Scope& outer, const SubselectUse& use) {
    Read(&outer);
    const bool single = use.kind == SubselectUse::Kind::Value;
    const bool listed = use.kind != SubselectUse::Kind::Existence;
    if (listed && (items_.size() != 1 || (single && (distinct_ || !group_.empty()))))
        Refuse(error::Statement, "A select in parentheses gives one value of one field");
    if (use.fit) use.fit(items_.front().value);
    std::string list;
    int depth = whereDepth_;
    for (const Item& item : items_) {
        depth = std::max(depth, item.value.depth + (single && !aggregate_ ? 1 : 0));
        const std::string rowid = QuotedName(scope_.Tables().front().alias) + ".rowid";
        Append(list, single && !aggregate_ ? words_.Single(item.value, rowid) : ListOf(item));
    }
    return Of("(SELECT " + list + From() + where_ + group_ + ")", items_.front().value.type, depth + 1);
}

}  // namespace ado
