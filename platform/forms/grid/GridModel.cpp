#include "platform/forms/grid/GridModel.h"

#include <algorithm>
#include <utility>

#include "platform/basic/Error.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"

namespace forms {

namespace {

std::size_t Count(int n) {
    if (n < 0) basic::Raise(basic::error::Subscript, "forms.Grid");
    return static_cast<std::size_t>(n);
}

// What a cell is sorted by: the number if it is one, else the text with its case folded away.
struct SortKey {
    bool numeric;
    double number;
    std::string folded;

    explicit SortKey(const std::string& text)
        : numeric(basic::IsNumeric(text)),
          number(numeric ? basic::WholeNumber(text) : 0),
          folded(numeric ? std::string() : basic::FoldCase(text)) {}

    bool operator<(const SortKey& other) const {
        if (numeric != other.numeric) return numeric;
        return numeric ? number < other.number : folded < other.folded;
    }
};

}  // namespace

GridModel::GridModel(int rows, int cols, int fixedRows)
    : rows_(Count(rows)), columns_(Count(cols)), fixedRows_(fixedRows) {}

void GridModel::SetRows(int rows) {
    rows_.resize(Count(rows));
}

void GridModel::SetCols(int cols) {
    columns_.resize(Count(cols));
    for (Row& row : rows_)
        if (row.cells.size() > columns_.size()) row.cells.resize(columns_.size());
}

void GridModel::SetFixedRows(int rows) {
    fixedRows_ = static_cast<int>(Count(rows));
}

const GridModel::Row& GridModel::At(int row) const {
    if (row < 0 || row >= Rows()) basic::Raise(basic::error::Subscript, "forms.Grid");
    return rows_[static_cast<std::size_t>(row)];
}

GridModel::Row& GridModel::At(int row) {
    return const_cast<Row&>(std::as_const(*this).At(row));
}

std::size_t GridModel::Checked(int col) const {
    if (col < 0 || col >= Cols()) basic::Raise(basic::error::Subscript, "forms.Grid");
    return static_cast<std::size_t>(col);
}

GridModel::Cell& GridModel::CellAt(int row, int col) {
    Row& r = At(row);
    const std::size_t c = Checked(col);
    if (r.cells.size() <= c) r.cells.resize(columns_.size());
    return r.cells[c];
}

const std::string& GridModel::Text(int row, int col) const {
    static const std::string empty;
    const Row& r = At(row);
    const std::size_t c = Checked(col);
    return c < r.cells.size() ? r.cells[c].text : empty;
}

void GridModel::SetText(int row, int col, std::string text) {
    CellAt(row, col).text = std::move(text);
}

const CellExtra& GridModel::Extra(int row, int col) const {
    static const CellExtra none;
    const Row& r = At(row);
    const std::size_t c = Checked(col);
    return c < r.cells.size() && r.cells[c].extra ? *r.cells[c].extra : none;
}

CellExtra& GridModel::Extra(int row, int col) {
    Cell& cell = CellAt(row, col);
    if (!cell.extra) cell.extra = std::make_unique<CellExtra>();
    return *cell.extra;
}

void GridModel::InsertRow(int at, const std::string& text) {
    if (at < 0 || at > Rows()) basic::Raise(basic::error::Subscript, "forms.Grid");
    rows_.insert(rows_.begin() + at, Row{});
    std::size_t from = 0;
    for (int col = 0; col < Cols() && !text.empty(); ++col) {
        const std::size_t tab = text.find('\t', from);
        SetText(at, col, text.substr(from, tab - from));
        if (tab == std::string::npos) break;
        from = tab + 1;
    }
}

void GridModel::RemoveRow(int at) {
    At(at);
    rows_.erase(rows_.begin() + at);
}

void GridModel::Clear() {
    for (Row& row : rows_) row.cells.clear();
}

void GridModel::SortRows(int col, bool descending) {
    std::vector<std::pair<SortKey, Row>> keyed;
    for (int row = fixedRows_; row < Rows(); ++row) {
        SortKey key(Text(row, col));
        keyed.emplace_back(std::move(key), std::move(At(row)));
    }
    std::stable_sort(keyed.begin(), keyed.end(), [descending](const auto& a, const auto& b) {
        return descending ? b.first < a.first : a.first < b.first;
    });
    for (std::size_t i = 0; i < keyed.size(); ++i)
        rows_[i + static_cast<std::size_t>(fixedRows_)] = std::move(keyed[i].second);
}

double GridModel::Value(int row, int col) const {
    const std::string& text = Text(row, col);
    return basic::IsNumeric(text) ? basic::WholeNumber(text) : basic::PrefixValue(text);
}

}  // namespace forms
