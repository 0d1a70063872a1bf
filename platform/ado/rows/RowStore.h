#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/ado/dialect/Plan.h"
#include "platform/ado/rows/Column.h"
#include "platform/ado/rows/TextPool.h"
#include "platform/ado/store/Engine.h"
#include "platform/basic/Value.h"

namespace ado {

// The rows of a select, read whole and kept in compact columns: under 120 bytes for a voucher row with all
// its fields.
class RowStore {
  public:
    static constexpr std::size_t Part = 4096;  // rows at a time, for who goes through all and keeps none

    explicit RowStore(const Plan& plan);

    // Steps the statement to its end, or until that many rows stand, and takes all it gives; alike rows of a
    // Distinct only once. False at the end.
    bool Fill(EngineStatement& statement, std::size_t most = static_cast<std::size_t>(-1));

    std::size_t Rows() const { return rows_; }
    basic::Value ValueAt(std::size_t row, std::size_t column) const;
    Cell CellAt(std::size_t row, std::size_t column) const { return columns_[column].At(row); }
    std::string_view TextOf(const Cell& cell) const { return pool_.At(cell.text); }
    std::int64_t RowId(std::size_t row) const { return rowids_[row]; }  // only where the plan asks for it
    ColumnType TypeOf(std::size_t column) const { return types_[column]; }

    void Set(std::size_t row, std::size_t column, const basic::Value& value);
    void Append(const EngineStatement& row, std::int64_t rowid);  // the row on which the statement stands

    std::size_t Bytes() const;

  private:
    std::vector<ColumnType> types_;
    std::vector<Column> columns_;
    std::vector<std::int64_t> rowids_;
    TextPool pool_;
    std::size_t rows_ = 0;
    bool distinct_;
    bool identified_;
};

}  // namespace ado
