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

basic::Value KeptRows::ValueAt(std::int64_t row, std::size_t field) const {
    if (row < 0 || row >= Count()) RefuseNoRecord();
    const auto at = static_cast<std::size_t>(row);
    return rows_->ValueAt(visible_ ? (*visible_)[at] : at, field);
}

}  // namespace ado
