#include "desk/ShownSheet.h"

#include <QCollator>
#include <algorithm>
#include <functional>
#include <numeric>
#include <utility>

#include "queries/sheets/Cell.h"

namespace desk {
namespace {

using Row = std::uint32_t;

// What rows are compared by; one of the two lists is filled.
struct Keys {
    std::vector<double> Figures;
    std::vector<QCollatorSortKey> Texts;
    std::vector<bool> Empty;

    bool Less(Row a, Row b) const { return Texts.empty() ? Figures[a] < Figures[b] : Texts[a] < Texts[b]; }
};

Keys KeysOf(const queries::Sheet& sheet, std::size_t column) {
    Keys keys;
    const queries::Kind kind = sheet.Columns()[column].kind;
    QCollator language;
    language.setCaseSensitivity(Qt::CaseInsensitive);
    language.setNumericMode(true);
    for (std::size_t row = 0; row < sheet.Rows(); ++row) {
        const basic::Value value = sheet.At(row, column);
        const std::string text = kind == queries::Kind::Text ? basic::TextOrEmpty(value) : "";
        keys.Empty.push_back(kind == queries::Kind::Text ? text.empty() : value.IsNull());
        if (kind == queries::Kind::Text)
            keys.Texts.push_back(language.sortKey(QString::fromStdString(text)));
        else
            keys.Figures.push_back(value.IsNull() ? 0 : basic::ToDouble(value));
    }
    return keys;
}

}  // namespace

ShownSheet::ShownSheet(std::shared_ptr<const queries::Sheet> sheet, std::optional<Order> order,
                       std::optional<std::vector<std::size_t>> columns)
    : sheet_(std::move(sheet)), order_(std::move(order)), title_(sheet_->Title()) {
    if (columns) {
        chosen_ = std::move(*columns);
    } else {
        chosen_.resize(sheet_->Columns().size());
        std::iota(chosen_.begin(), chosen_.end(), std::size_t{0});
    }
    for (const std::size_t column : chosen_) columns_.push_back(sheet_->Columns()[column]);
}

std::size_t ShownSheet::ShownRow(std::size_t row) const {
    if (!order_) return row;
    const auto place = std::find(order_->begin(), order_->end(), row);
    return static_cast<std::size_t>(place - order_->begin());
}

ShownSheet::Order OrderBy(const queries::Sheet& sheet, std::size_t column, bool descending) {
    const Keys keys = KeysOf(sheet, column);
    const auto before = [&](Row a, Row b) {
        if (keys.Empty[a] || keys.Empty[b]) return !keys.Empty[a] && keys.Empty[b];
        return descending ? keys.Less(b, a) : keys.Less(a, b);
    };
    const Row rows = static_cast<Row>(sheet.Rows());
    // Those right below each head; those of no head under the number of rows.
    std::vector<std::vector<Row>> below(rows + 1);
    std::vector<Row> heads;
    for (Row row = 0; row < rows; ++row) {
        const auto level = static_cast<std::size_t>(sheet.Level(row));
        heads.resize(std::min(heads.size(), level));
        below[heads.empty() ? rows : heads.back()].push_back(row);
        heads.push_back(row);
    }
    ShownSheet::Order order;
    order.reserve(rows);
    const std::function<void(Row)> take = [&](Row head) {
        std::stable_sort(below[head].begin(), below[head].end(), before);
        for (const Row row : below[head]) {
            order.push_back(row);
            take(row);
        }
    };
    take(rows);
    return order;
}

}  // namespace desk
