#include "platform/ado/store/Schema.h"

#include <algorithm>
#include <utility>

#include "platform/ado/dialect/Refusal.h"
#include "platform/ado/dialect/Scope.h"
#include "platform/ado/dialect/Tokens.h"
#include "platform/ado/store/IndexName.h"
#include "platform/basic/Text.h"

namespace ado {
namespace {

// Walks the words of a script: names (quoted ones without their quotes), literals as they stand, symbols.
class Words {
  public:
    explicit Words(std::string_view script) : script_(script) { Next(); }

    const std::string& Now() const { return word_; }  // "" at the end
    bool At(std::string_view word) const { return basic::EqualText(word_, word); }
    std::string Take() {
        std::string taken = std::move(word_);
        Next();
        return taken;
    }
    bool Take(std::string_view word) {
        const bool stands = At(word);
        if (stands) Next();
        return stands;
    }
    void Expect(std::string_view word) {
        if (!Take(word))
            Refuse(error::Statement, "The schema does not read: '" + std::string(word) +
                                         "' is expected where '" + word_ + "' stands");
    }

  private:
    void SkipBlanks() {
        for (; at_ < script_.size(); ++at_)
            if (script_.substr(at_, 2) == "--")
                at_ = std::min(script_.find('\n', at_), script_.size() - 1);
            else if (std::string_view(" \t\r\n").find(script_[at_]) == std::string_view::npos)
                return;
    }
    // Behind the quote that ends what begins at the present place.
    std::size_t BehindQuoted() const {
        const char quote = script_[at_];
        std::size_t end = at_ + 1;
        while (end < script_.size() &&
               (script_[end] != quote || script_.substr(end + 1, 1) == std::string(1, quote)))
            end += script_[end] == quote ? 2 : 1;
        return std::min(end + 1, script_.size());
    }
    void Next() {
        SkipBlanks();
        word_.clear();
        if (at_ >= script_.size()) return;
        std::size_t end = at_;
        if (script_[at_] == '\'' || script_[at_] == '"')
            end = BehindQuoted();
        else if (IsNameByte(script_[at_]))
            while (end < script_.size() && (IsNameByte(script_[end]) || script_[end] == '.')) ++end;
        else
            ++end;
        word_ = script_.substr(at_, end - at_);
        if (word_.size() > 1 && word_.front() == '"')
            word_ = basic::Replace(std::string_view(word_).substr(1, word_.size() - 2), "\"\"", "\"");
        at_ = end;
    }

    std::string_view script_;
    std::size_t at_ = 0;
    std::string word_;
};

// From the name to the comma or the bracket behind it.
SchemaColumn ReadColumn(Words& words) {
    SchemaColumn column;
    column.name = words.Take();
    if (!words.At(",") && !words.At(")")) column.type = TypeOfWord(words.Take());
    for (int depth = 0; !words.Now().empty() && (depth > 0 || (!words.At(",") && !words.At(")")));) {
        if (words.Take("DEFAULT"))
            column.defaultValue = words.Now();
        else if (words.At("AUTOINCREMENT"))
            column.counter = true;
        depth += words.At("(") ? 1 : words.At(")") ? -1 : 0;
        words.Take();
    }
    return column;
}

SchemaTable ReadTable(Words& words) {
    SchemaTable table;
    table.name = words.Take();
    words.Expect("(");
    do table.columns.push_back(ReadColumn(words));
    while (words.Take(","));
    words.Expect(")");
    return table;
}

void ReadIndex(Words& words, std::vector<SchemaTable>& tables) {
    SchemaIndex index;
    index.name = words.Take();
    words.Expect("ON");
    const auto table =
        std::find_if(tables.begin(), tables.end(), [&](const SchemaTable& t) { return words.At(t.name); });
    if (table == tables.end())
        Refuse(error::Statement, "The schema does not read: no table '" + words.Now() + "'");
    words.Take();
    words.Expect("(");
    do index.columns.push_back(words.Take());
    while (words.Take(","));
    words.Expect(")");
    table->indexes.push_back(std::move(index));
}

}  // namespace

ColumnType TypeOfWord(std::string_view word) {
    constexpr std::pair<std::string_view, ColumnType> types[] = {
        {"BOOLEAN", ColumnType::Boolean}, {"SMALLINT", ColumnType::Integer}, {"INTEGER", ColumnType::Long},
        {"DOUBLE", ColumnType::Double},   {"TEXT", ColumnType::Text},
    };
    for (const auto& [name, type] : types)
        if (basic::EqualText(name, word)) return type;
    return ColumnType::Any;
}

std::vector<SchemaTable> ReadSchema(std::string_view script) {
    std::vector<SchemaTable> tables;
    for (Words words(script); !words.Now().empty();) {
        words.Expect("CREATE");
        if (words.Take("INDEX")) {
            ReadIndex(words, tables);
        } else {
            words.Expect("TABLE");
            tables.push_back(ReadTable(words));
        }
        if (!words.Now().empty()) words.Expect(";");
    }
    return tables;
}

std::string IndexDefinitions(const SchemaTable& table) {
    std::string statements;
    for (const SchemaIndex& index : table.indexes) {
        std::string fields;
        for (const std::string& field : index.columns)
            fields += (fields.empty() ? "" : ", ") + QuotedName(field);
        statements += "CREATE INDEX " + QuotedName(index.name) + " ON " + QuotedName(table.name) + " (" +
                      fields + ");\n";
    }
    return statements;
}

std::string ColumnList(const SchemaTable& table) {
    std::string list;
    for (const SchemaColumn& column : table.columns)
        list += (list.empty() ? "" : ", ") + QuotedName(column.name);
    return list;
}

SchemaTable Renamed(const SchemaTable& table, const std::string& name) {
    SchemaTable renamed = table;
    renamed.name = name;
    for (SchemaIndex& index : renamed.indexes) index.name = IndexNameFor(index.name, table.name, name);
    return renamed;
}

}  // namespace ado
