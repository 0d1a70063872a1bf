#include "desk/ShownSheet.h"

#include <QCollator>
#include <algorithm>
#include <functional>
#include <numeric>
#include <string>
#include <unordered_map>
#include <utility>

#include "queries/sheets/Cell.h"

namespace desk {
namespace {

using Row = std::uint32_t;

// What rows are compared by: figures, and of texts their places among those that occur.
struct Keys {
    std::vector<double> Figures;
    std::vector<bool> Empty;
};

// Each text is compared and kept once, however many rows bear it.
class Texts {
  public:
    double NumberOf(const std::string& text) {
        return numbers_.try_emplace(text, static_cast<double>(numbers_.size())).first->second;
    }
    // From the number that a text got as it was met to its place in the order of the language.
    void Rank(std::vector<double>& numbers) const {
        QCollator language;
        language.setCaseSensitivity(Qt::CaseInsensitive);
        language.setNumericMode(true);
        std::vector<std::pair<QCollatorSortKey, double>> order;
        for (const auto& [text, number] : numbers_)
            order.emplace_back(language.sortKey(QString::fromStdString(text)), number);
        std::sort(order.begin(), order.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
        std::vector<double> places(order.size());
        for (std::size_t at = 0; at < order.size(); ++at) {
            const bool equal = at > 0 && !(order[at - 1].first < order[at].first);
            places[static_cast<std::size_t>(order[at].second)] =
                equal ? places[static_cast<std::size_t>(order[at - 1].second)] : static_cast<double>(at);
        }
        for (double& number : numbers) number = places[static_cast<std::size_t>(number)];
    }

  private:
    std::unordered_map<std::string, double> numbers_;
};

Keys KeysOf(const queries::Sheet& sheet, std::size_t column, const std::function<void(std::size_t)>& step) {
    Keys keys;
    Texts texts;
    const bool isText = sheet.Columns()[column].kind == queries::Kind::Text;
    keys.Figures.reserve(sheet.Rows());
    for (std::size_t row = 0; row < sheet.Rows(); ++row) {
        if (step) step(row);
        const basic::Value value = sheet.At(row, column);
        const std::string text = isText ? basic::TextOrEmpty(value) : "";
        keys.Empty.push_back(isText ? text.empty() : value.IsNull());
        keys.Figures.push_back(isText ? texts.NumberOf(text) : value.IsNull() ? 0 : basic::ToDouble(value));
    }
    if (isText) texts.Rank(keys.Figures);
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

ShownSheet::Order OrderBy(const queries::Sheet& sheet, std::size_t column, bool descending,
                          const std::function<void(std::size_t row)>& step) {
    const Keys keys = KeysOf(sheet, column, step);
    const auto before = [&](Row a, Row b) {
        if (keys.Empty[a] || keys.Empty[b]) return !keys.Empty[a] && keys.Empty[b];
        return descending ? keys.Figures[b] < keys.Figures[a] : keys.Figures[a] < keys.Figures[b];
    };
    const Row rows = static_cast<Row>(sheet.Rows());
    // Those right below each head; those of no head first.
    std::vector<Row> top, heads;
    std::unordered_map<Row, std::vector<Row>> below;
    for (Row row = 0; row < rows; ++row) {
        const auto level = static_cast<std::size_t>(sheet.Level(row));
        heads.resize(std::min(heads.size(), level));
        (heads.empty() ? top : below[heads.back()]).push_back(row);
        heads.push_back(row);
    }
    ShownSheet::Order order;
    order.reserve(rows);
    const std::function<void(std::vector<Row>&)> take = [&](std::vector<Row>& siblings) {
        std::stable_sort(siblings.begin(), siblings.end(), before);
        for (const Row row : siblings) {
            order.push_back(row);
            if (const auto under = below.find(row); under != below.end()) take(under->second);
        }
    };
    take(top);
    return order;
}

}  // namespace desk
