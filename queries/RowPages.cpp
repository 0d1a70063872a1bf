#include "queries/RowPages.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

#include "platform/basic/Text.h"
#include "queries/TextPlaces.h"

namespace queries {
namespace {

constexpr std::size_t Head = 1024;  // rows that are read without the keys
constexpr double First = -std::numeric_limits<double>::infinity();

struct InStoreOrder {
    std::string text;
    bool operator<(const InStoreOrder& other) const { return basic::CompareText(text, other.text) < 0; }
};

void Place(std::vector<double>& numbers, TextPlaces& texts) {
    const std::vector<std::uint32_t> places =
        texts.Places([](std::string text) { return InStoreOrder{std::move(text)}; });
    for (double& number : numbers)
        if (number != First) number = places[static_cast<std::size_t>(number)];
}

}  // namespace

RowPages::RowPages(Reading& books, const std::string& select, std::optional<ByField> byField)
    : books_(&books), select_(select), byField_(std::move(byField)) {}

std::size_t RowPages::Count() {
    if (!count_) count_ = keys_ ? keys_->Size() : Window().Count();
    return *count_;
}

ado::KeptRows RowPages::Page(std::size_t first, std::size_t count) {
    if (!keys_ && first + count <= Head) return Window().From(first, count);
    return Window().Of(Keys().Part(first, count));
}

std::optional<std::size_t> RowPages::PlaceOf(ado::RowKey key) {
    return Keys().PlaceOf(key);
}

const ado::RowKeys& RowPages::Keys() {
    if (!keys_) {
        keys_ = byField_ ? KeysByField() : Window().Keys();
        if (count_) keys_->Resize(*count_);  // as long as it was first seen; no row bears the key 0
    }
    return *keys_;
}

// A Null comes before all else, as in the store's orders.
ado::RowKeys RowPages::KeysByField() {
    ado::RowKeys keys;  // as they are met
    std::vector<std::uint32_t> order;
    {
        std::vector<double> figures;  // of a text its number, and its place in the end
        std::vector<std::int32_t> days;
        TextPlaces texts;
        keys.Reserve(Count());
        figures.reserve(Count());
        days.reserve(Count());
        books_->Window(byField_->select).Each([&](const ado::KeptRows& rows) {
            for (std::int64_t at = 0; at < rows.Count(); ++at) {
                const basic::Value of = rows.ValueAt(at, 0), day = rows.ValueAt(at, 1);
                keys.Add(rows.KeyOf(at));
                figures.push_back(of.IsNull()      ? First
                                  : byField_->text ? texts.NumberOf(basic::TextOrEmpty(of))
                                                   : basic::ToDouble(of));
                days.push_back(day.IsNull() ? std::numeric_limits<std::int32_t>::min() : basic::ToLong(day));
            }
        });
        if (byField_->text) Place(figures, texts);
        order.resize(keys.Size());
        std::iota(order.begin(), order.end(), 0U);
        std::sort(order.begin(), order.end(), [&](std::uint32_t a, std::uint32_t b) {
            if (figures[a] != figures[b])
                return byField_->descending ? figures[b] < figures[a] : figures[a] < figures[b];
            return days[a] != days[b] ? days[a] < days[b] : keys[a] < keys[b];
        });
    }
    return keys.At(order);
}

}  // namespace queries
