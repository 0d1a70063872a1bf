#include "platform/ado/rows/Condition.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "platform/ado/Errors.h"
#include "platform/ado/dialect/Expression.h"
#include "platform/ado/dialect/Scope.h"
#include "platform/ado/store/Conversion.h"
#include "platform/basic/Error.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"

namespace ado {
namespace {

using Operator = Comparison::Operator;

constexpr std::pair<std::string_view, Operator> operators[] = {
    // Longer ones first.
    {"<>", Operator::Unequal}, {"<=", Operator::LessOrEqual}, {">=", Operator::GreaterOrEqual},
    {"=", Operator::Equal},    {"<", Operator::Less},         {">", Operator::Greater},
};

constexpr std::string_view AnyRun = "%*";  // of Like

class ConditionReader {
  public:
    explicit ConditionReader(std::string_view text) : whole_(text), left_(text) {}

    std::vector<Comparison> Read() {
        std::vector<Comparison> comparisons{ReadComparison()};
        for (bool orElse = TakeWord("Or"); orElse || TakeWord("And"); orElse = TakeWord("Or")) {
            comparisons.push_back(ReadComparison());
            comparisons.back().orElse = orElse;
        }
        if (!left_.empty()) Refuse();
        return comparisons;
    }

  private:
    Comparison ReadComparison() {
        Comparison comparison;
        comparison.field = TakeName();
        comparison.op = TakeOperator();
        TakeValue(comparison);
        if (comparison.op == Operator::Like) CheckPattern(comparison);
        SkipBlanks();
        return comparison;
    }

    std::string TakeName() {
        SkipBlanks();
        std::string name;
        while (!left_.empty()) {
            if (left_.front() == '[') {
                const std::size_t end = left_.find(']');
                if (end == std::string_view::npos) Refuse();
                name += left_.substr(1, end - 1);
                left_.remove_prefix(end + 1);
            } else if (left_.find_first_of(" <>=") == 0) {
                break;
            } else {
                name += left_.front();
                left_.remove_prefix(1);
            }
        }
        SkipBlanks();
        if (name.empty()) Refuse();
        return name;
    }

    Operator TakeOperator() {
        for (const auto& [text, op] : operators) {
            if (!left_.starts_with(text)) continue;
            left_.remove_prefix(text.size());
            SkipBlanks();
            return op;
        }
        if (TakeWord("Like")) return Operator::Like;
        Refuse();
    }

    void CheckPattern(const Comparison& like) const {
        const std::string_view text = like.text;
        if (!like.isText ||
            (text.size() > 2 && text.substr(1, text.size() - 2).find_first_of(AnyRun) != text.npos))
            Refuse();
    }

    void TakeValue(Comparison& comparison) {
        if (left_.starts_with('\'') || left_.starts_with('"')) {
            comparison.isText = true;
            comparison.text = TakeText(left_.front());
        } else if (TakeWord("True")) {
            comparison.isTruth = true;
            comparison.number = 1;
        } else if (TakeWord("False")) {
            comparison.isTruth = true;
        } else {
            TakeNumber(comparison);
        }
    }

    std::string TakeText(char quote) {
        std::string text;
        for (std::size_t at = 1; at < left_.size(); ++at) {
            if (left_[at] == quote) {
                if (left_.substr(at + 1, 1) != std::string_view(&quote, 1)) {
                    left_.remove_prefix(at + 1);
                    return text;
                }
                ++at;  // a doubled quote stands for one
            }
            text += left_[at];
        }
        Refuse();
    }

    void TakeNumber(Comparison& comparison) {
        const char* end = left_.data() + left_.size();
        const auto [rest, failure] = std::from_chars(left_.data(), end, comparison.number);
        if (failure != std::errc()) Refuse();
        left_.remove_prefix(static_cast<std::size_t>(rest - left_.data()));
        if (!left_.empty() && left_.front() != ' ') Refuse();
    }

    bool TakeWord(std::string_view word) {
        if (!basic::EqualText(left_.substr(0, word.size()), word)) return false;
        if (left_.size() > word.size() && left_[word.size()] != ' ' && left_[word.size()] != '[')
            return false;
        left_.remove_prefix(word.size());
        SkipBlanks();
        return true;
    }

    void SkipBlanks() { left_.remove_prefix(std::min(left_.find_first_not_of(' '), left_.size())); }

    [[noreturn]] void Refuse() const {
        throw basic::Error(
            error::BadArgument,
            "The condition '" + std::string(whole_) +
                "' is not of the form: Field = 12 (or <>, <, >, <=, >=, Like; a number or a quoted text).",
            "ado.Recordset");
    }

    std::string_view whole_;
    std::string_view left_;
};

// A number beside a boolean: True equals 1 and -1.
double BesideTruth(double number) {
    return number == -1 ? 1 : number;
}

// The pattern's words with what may stand around them.
bool IsLike(std::string_view text, std::string_view pattern) {
    const bool before = !pattern.empty() && AnyRun.find(pattern.front()) != AnyRun.npos;
    if (before) pattern.remove_prefix(1);
    const bool behind = !pattern.empty() && AnyRun.find(pattern.back()) != AnyRun.npos;
    if (behind) pattern.remove_suffix(1);
    const std::string in = basic::FoldCase(text), words = basic::FoldCase(pattern);
    if (before && behind) return in.find(words) != in.npos;
    return before ? in.ends_with(words) : behind ? in.starts_with(words) : in == words;
}

std::string TextOf(const Comparison& with) {
    if (with.isText) return with.text;
    if (with.isTruth) return with.number != 0 ? "True" : "False";
    return basic::NumberText(with.number);
}

template <class T>
int Order(const T& a, const T& b) {
    return a < b ? -1 : a > b ? 1 : 0;
}

// Less than, equal to or greater than 0; nothing where the two cannot be put in order.
std::optional<int> Compare(const Comparison& with, const Cell& cell, std::string_view text, ColumnType type) {
    if (cell.kind == CellKind::Text) return basic::CompareText(text, TextOf(with));
    double number = with.number;
    if (with.isText) {
        if (!basic::IsNumeric(with.text)) return {};
        number = basic::WholeNumber(with.text);
    }
    if (type == ColumnType::Boolean) return Order(cell.Number(), BesideTruth(number));
    return Order(with.isTruth ? BesideTruth(cell.Number()) : cell.Number(), number);
}

}  // namespace

std::vector<Comparison> ReadCondition(std::string_view condition) {
    return ConditionReader(condition).Read();
}

bool Comparison::Meets(const RowStore& rows, std::size_t row, std::size_t column) const {
    const Cell cell = rows.CellAt(row, column);
    if (cell.kind == CellKind::Null) return false;
    const std::string_view cellText = cell.kind == CellKind::Text ? rows.TextOf(cell) : "";
    if (op == Operator::Like) return IsLike(basic::ToText(rows.ValueAt(row, column)), text);
    const std::optional<int> order = Compare(*this, cell, cellText, rows.TypeOf(column));
    if (!order) return op == Operator::Unequal;
    switch (op) {
        case Operator::Equal:
            return *order == 0;
        case Operator::Unequal:
            return *order != 0;
        case Operator::Less:
            return *order < 0;
        case Operator::LessOrEqual:
            return *order <= 0;
        case Operator::Greater:
            return *order > 0;
        case Operator::GreaterOrEqual:
            return *order >= 0;
        case Operator::Like:
            break;
    }
    return false;
}

std::optional<std::size_t> FindOutput(const std::vector<Output>& outputs, std::string_view name) {
    const std::size_t dot = name.find('.');
    for (std::size_t i = 0; i < outputs.size(); ++i)
        if (basic::EqualText(outputs[i].name, name)) return i;
    if (dot == std::string_view::npos) return {};
    for (std::size_t i = 0; i < outputs.size(); ++i)
        if (basic::EqualText(outputs[i].table, name.substr(0, dot)) &&
            basic::EqualText(outputs[i].name, name.substr(dot + 1)))
            return i;
    return {};
}

std::optional<std::string> ComparisonSql(const StoreSql& words, const Comparison& comparison,
                                         const Output& output, std::size_t parameter) {
    const bool texts = output.type == ColumnType::Text;
    if (comparison.op == Operator::Like || comparison.orElse) return {};
    if (output.column.empty() || output.type == ColumnType::Any || texts != comparison.isText) return {};
    if (comparison.isTruth && output.type != ColumnType::Boolean) return {};
    Expression column = Of(QuotedName(output.table) + "." + QuotedName(output.column), output.type, 0);
    Expression value = Of(words.Parameter(parameter), texts ? ColumnType::Text : ColumnType::Any, 0);
    if (output.type == ColumnType::Boolean) column.sql = words.BesideNumber(column);
    std::string op;
    for (const auto& [text, its] : operators)
        if (its == comparison.op) op = " " + std::string(text) + " ";
    return words.LeftSide(column, texts) + op + words.RightSide(value, texts);
}

// A whole number is bound as one: no index of whole numbers would be used beside a broken one.
basic::Value ComparedValue(const Comparison& comparison, const Output& output) {
    if (comparison.isText) return comparison.text;
    const bool isTruth = output.type == ColumnType::Boolean;
    return NumberValue(isTruth ? BesideTruth(comparison.number) : comparison.number);
}

}  // namespace ado
