#include "queries/RowPages.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <numeric>
#include <utility>
#include <vector>

namespace queries {
namespace {

constexpr std::size_t Head = 1024;  // rows that are read without the keys

}  // namespace

RowPages::RowPages(Reading& books, const std::string& select, std::optional<ByAmount> byAmount)
    : books_(&books), select_(select), byAmount_(std::move(byAmount)) {}

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
        keys_ = byAmount_ ? KeysByAmount() : Window().Keys();
        if (count_) keys_->Resize(*count_);  // as long as it was first seen; no row bears the key 0
    }
    return *keys_;
}

// A Null comes before every figure, as in the store's orders.
ado::RowKeys RowPages::KeysByAmount() {
    ado::RowKeys keys;  // as they are met
    std::vector<std::uint32_t> order;
    {
        std::vector<double> amounts;
        std::vector<std::int32_t> days;
        keys.Reserve(Count());
        amounts.reserve(Count());
        days.reserve(Count());
        books_->Window(byAmount_->select).Each([&](const ado::KeptRows& rows) {
            for (std::int64_t at = 0; at < rows.Count(); ++at) {
                const basic::Value amount = rows.ValueAt(at, 0), day = rows.ValueAt(at, 1);
                keys.Add(rows.KeyOf(at));
                amounts.push_back(amount.IsNull() ? -std::numeric_limits<double>::infinity()
                                                  : basic::ToDouble(amount));
                days.push_back(day.IsNull() ? std::numeric_limits<std::int32_t>::min() : basic::ToLong(day));
            }
        });
        order.resize(keys.Size());
        std::iota(order.begin(), order.end(), 0U);
        std::sort(order.begin(), order.end(), [&](std::uint32_t a, std::uint32_t b) {
            if (amounts[a] != amounts[b])
                return byAmount_->descending ? amounts[b] < amounts[a] : amounts[a] < amounts[b];
            return days[a] != days[b] ? days[a] < days[b] : keys[a] < keys[b];
        });
    }
    return keys.At(order);
}

}  // namespace queries
