#include "desk/ShownSheet.h"

#include <QCollator>
#include <algorithm>
#include <functional>
#include <limits>
#include <numeric>
#include <string>
#include <unordered_map>
#include <utility>

#include "queries/TextPlaces.h"

namespace desk {
namespace {

using Row = std::uint32_t;

// The key of an empty cell, which no other bears.
template <class Key>
constexpr Key None = std::numeric_limits<Key>::max();

using Step = std::function<void(std::size_t row)>;

std::vector<Row> PlacesOf(const queries::Sheet& sheet, std::size_t column, const Step& step) {
    std::vector<Row> keys(sheet.Rows());
    queries::TextPlaces texts;
    for (std::size_t row = 0; row < keys.size(); ++row) {
        if (step) step(row);
        const std::string text = basic::TextOrEmpty(sheet.At(row, column));
        keys[row] = text.empty() ? None<Row> : texts.NumberOf(text);
    }
    QCollator language;
    language.setCaseSensitivity(Qt::CaseInsensitive);
    language.setNumericMode(true);
    const std::vector<Row> places =
        texts.Places([&](const std::string& text) { return language.sortKey(QString::fromStdString(text)); });
    for (Row& key : keys)
        if (key != None<Row>) key = places[key];
    return keys;
}

std::vector<double> FiguresOf(const queries::Sheet& sheet, std::size_t column, const Step& step) {
    std::vector<double> keys(sheet.Rows());
    for (std::size_t row = 0; row < keys.size(); ++row) {
        if (step) step(row);
        const basic::Value value = sheet.At(row, column);
        keys[row] = value.IsNull() ? None<double> : basic::ToDouble(value);
    }
    return keys;
}

// Those of equal keys as they stand.
template <class Key>
void Sort(std::vector<Row>& rows, const std::vector<Key>& keys, bool descending) {
    std::sort(rows.begin(), rows.end(), [&](Row a, Row b) {
        if (keys[a] == keys[b]) return a < b;
        if (keys[a] == None<Key> || keys[b] == None<Key>) return keys[b] == None<Key>;
        return descending ? keys[b] < keys[a] : keys[a] < keys[b];
    });
}

template <class Key>
ShownSheet::Order Ordered(const queries::Sheet& sheet, const std::vector<Key>& keys, bool descending) {
    // Those right below each head; those of no head first.
    std::vector<Row> top, heads;
    std::unordered_map<Row, std::vector<Row>> below;
    for (Row row = 0; row < keys.size(); ++row) {
        const auto level = static_cast<std::size_t>(sheet.Level(row));
        heads.resize(std::min(heads.size(), level));
        (heads.empty() ? top : below[heads.back()]).push_back(row);
        heads.push_back(row);
    }
    Sort(top, keys, descending);
    if (below.empty()) return top;
    ShownSheet::Order order;
    const std::function<void(std::vector<Row>&)> take = [&](std::vector<Row>& siblings) {
        for (const Row row : siblings) {
            order.push_back(row);
            if (const auto under = below.find(row); under != below.end()) {
                Sort(under->second, keys, descending);
                take(under->second);
            }
        }
    };
    take(top);
    return order;
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

ShownSheet::Order OrderBy(const queries::Sheet& sheet, std::size_t column, bool descending,
                          const std::function<void(std::size_t row)>& step) {
    if (sheet.Columns()[column].kind == queries::Kind::Text)
        return Ordered(sheet, PlacesOf(sheet, column, step), descending);
    return Ordered(sheet, FiguresOf(sheet, column, step), descending);
}

}  // namespace desk
