#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "queries/Sheet.h"

namespace desk {

// A sheet as it is shown: its rows in the order of a column, or some of them, some of its columns. What is
// copied, written and printed is this, so that paper and files agree with the screen.
class ShownSheet final : public queries::Sheet {
  public:
    using Order = std::vector<std::uint32_t>;  // of rows; a line's number among those shown gives its own

    explicit ShownSheet(std::shared_ptr<const queries::Sheet> sheet, std::optional<Order> order = {},
                        std::optional<std::vector<std::size_t>> columns = {});

    const std::string& Title() const override { return title_; }
    void SetTitle(std::string title) { title_ = std::move(title); }  // at first that of the sheet
    const std::vector<queries::Column>& Columns() const override { return columns_; }
    std::size_t Rows() const override { return order_ ? order_->size() : sheet_->Rows(); }
    basic::Value At(std::size_t row, std::size_t column) const override {
        if (Watch && column == 0) Watch(row);
        return sheet_->At(RowOf(row), chosen_[column]);
    }
    int Level(std::size_t row) const override { return sheet_->Level(RowOf(row)); }

    std::function<void(std::size_t row)> Watch;  // hears of each row as it is read; may raise to stop that

    std::size_t RowOf(std::size_t shown) const { return order_ ? (*order_)[shown] : shown; }
    std::size_t ShownRow(std::size_t row) const;  // where a row of the sheet stands
    const queries::Sheet& Of() const { return *sheet_; }
    const std::optional<Order>& RowOrder() const { return order_; }

  private:
    std::shared_ptr<const queries::Sheet> sheet_;
    std::optional<Order> order_;
    std::string title_;
    std::vector<std::size_t> chosen_;
    std::vector<queries::Column> columns_;
};

// The rows by what stands in a column: figures and dates by their size, texts as the user's language sorts
// them, empty cells last. In a tree each row stays below its own head. `step` hears of each row as it is
// read. Raises what reading raises.
ShownSheet::Order OrderBy(const queries::Sheet& sheet, std::size_t column, bool descending,
                          const std::function<void(std::size_t row)>& step = {});

}  // namespace desk
