#include "queries/RowPages.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace queries {
namespace {

constexpr std::size_t Head = 1024;  // rows that are read without the keys

}  // namespace

RowPages::RowPages(Reading& books, const std::string& select, std::optional<ByAmount> byAmount)
    : books_(&books), select_(select), byAmount_(std::move(byAmount)) {}

std::size_t RowPages::Count() {
    if (!count_) count_ = keys_ ? keys_->size() : Window().Count();
    return *count_;
}

ado::KeptRows RowPages::Page(std::size_t first, std::size_t count) {
    if (!keys_ && first + count <= Head) return Window().From(first, count);
    const std::vector<ado::RowKey>& keys = Keys();
    first = std::min(first, keys.size());
    return Window().Of(keys.data() + first, std::min(count, keys.size() - first));
}

std::optional<std::size_t> RowPages::PlaceOf(ado::RowKey key) {
    const std::vector<ado::RowKey>& keys = Keys();
    const auto place = std::find(keys.begin(), keys.end(), key);
    return place == keys.end() ? std::nullopt : std::optional<std::size_t>(place - keys.begin());
}

const std::vector<ado::RowKey>& RowPages::Keys() {
    if (!keys_) {
        keys_ = byAmount_ ? KeysByAmount() : Window().Keys();
        if (count_) keys_->resize(*count_);  // as long as it was first seen; no row bears the key 0
    }
    return *keys_;
}

// A Null comes before every figure, as in the store's orders.
std::vector<ado::RowKey> RowPages::KeysByAmount() {
    struct Row {
        double amount;
        std::int32_t day;
        ado::RowKey key;
    };
    std::vector<Row> order;
    order.reserve(Count());
    books_->Window(byAmount_->select).Each([&](const ado::KeptRows& rows) {
        for (std::int64_t at = 0; at < rows.Count(); ++at) {
            const basic::Value amount = rows.ValueAt(at, 0), day = rows.ValueAt(at, 1);
            order.push_back(
                {amount.IsNull() ? -std::numeric_limits<double>::infinity() : basic::ToDouble(amount),
                 day.IsNull() ? std::numeric_limits<std::int32_t>::min() : basic::ToLong(day),
                 rows.KeyOf(at)});
        }
    });
    std::sort(order.begin(), order.end(), [down = byAmount_->descending](const Row& a, const Row& b) {
        if (a.amount != b.amount) return down ? b.amount < a.amount : a.amount < b.amount;
        return a.day != b.day ? a.day < b.day : a.key < b.key;
    });
    std::vector<ado::RowKey> keys;
    keys.reserve(order.size());
    for (const Row& row : order) keys.push_back(row.key);
    return keys;
}

}  // namespace queries
