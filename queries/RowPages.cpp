#include "queries/RowPages.h"

#include <algorithm>

namespace queries {
namespace {

constexpr std::size_t Head = 1024;  // rows that are read without the keys

}  // namespace

RowPages::RowPages(Reading& books, const std::string& select) : books_(&books), select_(select) {}

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
        keys_ = Window().Keys();
        if (count_) keys_->resize(*count_);  // as long as it was first seen; no row bears the key 0
    }
    return *keys_;
}

}  // namespace queries
