#include "platform/ado/KeptRows.h"

#include <utility>

#include "platform/ado/RecordsetImpl.h"

namespace ado {

KeptRows::KeptRows(std::shared_ptr<const RowStore> rows,
                   std::shared_ptr<const std::vector<std::uint32_t>> visible)
    : rows_(std::move(rows)), visible_(std::move(visible)) {}

std::int64_t KeptRows::Count() const {
    return static_cast<std::int64_t>(visible_ ? visible_->size() : rows_->Rows());
}

std::uint32_t KeptRows::PlaceOf(std::int64_t row) const {
    if (row < 0 || row >= Count()) RefuseNoRecord();
    return visible_ ? (*visible_)[static_cast<std::size_t>(row)] : static_cast<std::uint32_t>(row);
}

basic::Value KeptRows::ValueAt(std::int64_t row, std::size_t field) const {
    const std::uint32_t place = PlaceOf(row);
    return place == Gone ? basic::Value() : rows_->ValueAt(place, field);
}

std::int64_t KeptRows::KeyOf(std::int64_t row) const {
    const std::uint32_t place = PlaceOf(row);
    return place == Gone ? 0 : rows_->RowId(place);
}

}  // namespace ado
