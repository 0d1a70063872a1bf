#include "platform/forms/grid/GridAxis.h"

#include <algorithm>

namespace forms {

void GridAxis::Set(std::vector<int> sizes, int fixed) {
    count_ = static_cast<int>(sizes.size());
    fixed_ = std::min(fixed, count_);
    uniform_ = 0;
    starts_ = std::move(sizes);
    int place = 0;
    for (int& start : starts_) {
        const int size = start;
        start = place;
        place += size;
    }
    starts_.push_back(place);
}

void GridAxis::SetUniform(int count, int size, int fixed) {
    count_ = count;
    fixed_ = std::min(fixed, count_);
    uniform_ = size;
    starts_.clear();
}

int GridAxis::Start(int index) const {
    if (starts_.empty()) return index * uniform_;
    return starts_[static_cast<std::size_t>(index)];
}

int GridAxis::Size(int index) const {
    return Start(index + 1) - Start(index);
}

int GridAxis::ViewStart(int index, int offset) const {
    return Start(index) - (index < fixed_ ? 0 : offset);
}

int GridAxis::At(int position) const {
    if (position < 0 || position >= Total()) return -1;
    if (starts_.empty()) return position / uniform_;
    return static_cast<int>(std::upper_bound(starts_.begin(), starts_.end(), position) - starts_.begin()) - 1;
}

int GridAxis::AtView(int position, int offset) const {
    return position < FixedSize() ? At(position) : At(position + offset);
}

int GridAxis::OffsetToShow(int index, int offset, int view) const {
    if (index < fixed_ || index >= count_) return offset;
    const int start = Start(index) - FixedSize();
    const int room = view - FixedSize();
    if (start < offset || Size(index) > room) return start;
    return std::max(offset, start + Size(index) - room);
}

int GridAxis::NextShown(int from, int step) const {
    for (int index = from; index >= fixed_ && index < count_; index += step)
        if (Size(index) > 0) return index;
    return -1;
}

}  // namespace forms
