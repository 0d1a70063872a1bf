#include "platform/ado/rows/RowStore.h"

#include <optional>
#include <string>

#include "platform/ado/rows/DistinctRows.h"

namespace ado {
namespace {

struct CellOf {
    TextPool& pool;
    Cell operator()(basic::Null) const { return {}; }
    Cell operator()(bool b) const { return Cell::Of(b ? 1 : 0); }
    Cell operator()(std::int16_t i) const { return Cell::Of(i); }
    Cell operator()(std::int32_t i) const { return Cell::Of(i); }
    Cell operator()(double d) const { return Cell::OfReal(d); }
    Cell operator()(basic::Date d) const { return Cell::OfReal(d.Serial); }
    Cell operator()(const std::string& text) const { return Cell::OfText(pool.Append(text)); }
};

}  // namespace

RowStore::RowStore(const Plan& plan) : distinct_(plan.distinct), identified_(plan.rowid) {
    for (const Output& output : plan.outputs) {
        types_.push_back(output.type);
        columns_.emplace_back(output.type);
    }
}

bool RowStore::Fill(EngineStatement& statement, std::size_t most) {
    const int identity = static_cast<int>(columns_.size());  // the column behind the last field
    std::optional<DistinctRows> seen;
    if (distinct_) seen.emplace(columns_, pool_);
    bool more = true;
    while (rows_ < most && (more = statement.Step())) {
        int index = 0;
        for (Column& column : columns_) column.Add(statement, index++, pool_);
        if (seen && !seen->IsNew(rows_)) {
            for (Column& column : columns_) column.RemoveLast();
            continue;
        }
        if (identified_) rowids_.push_back(statement.Integer(identity));
        ++rows_;
    }
    for (Column& column : columns_) column.EndFill();
    Trim(rowids_);
    pool_.EndFill();
    return more;
}

basic::Value RowStore::ValueAt(std::size_t row, std::size_t column) const {
    return CellValue(columns_[column].At(row), types_[column], pool_);
}

void RowStore::Set(std::size_t row, std::size_t column, const basic::Value& value) {
    columns_[column].Set(row, value.Visit(CellOf{pool_}));
}

void RowStore::Append(const EngineStatement& row, std::int64_t rowid) {
    int index = 0;
    for (Column& column : columns_) column.Add(row, index++, pool_);
    rowids_.push_back(rowid);
    ++rows_;
}

std::size_t RowStore::Bytes() const {
    std::size_t bytes = pool_.Bytes() + rowids_.capacity() * sizeof(std::int64_t);
    for (const Column& column : columns_) bytes += column.Bytes();
    return bytes;
}

}  // namespace ado
