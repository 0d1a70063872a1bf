#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/basic/Value.h"

namespace queries {

class Reading;

// What stands in a column. Number: whole; Amount: rupees, two decimals; Quantity: as many decimals as it has.
enum class Kind { Text, Number, Amount, Quantity, Date, Flag };

struct Column {
    std::string name;     // "debit": the head of a CSV file, the key of JSON; lower case, '_' between words
    std::string caption;  // "Debit": what a person reads
    Kind kind = Kind::Text;
    bool totalled = false;  // a total row sums it
};

// The rows of one answer as a table: what is printed, written to a file or shown.
class Sheet {
  public:
    virtual ~Sheet() = default;
    virtual const std::string& Title() const = 0;  // "Trial balance, 1-Apr-2001 to 31-Mar-2002"
    virtual const std::vector<Column>& Columns() const = 0;
    virtual std::size_t Rows() const = 0;
    // Both from 0. Null where nothing stands. A sheet may fetch its rows by window, and raises then what
    // reading raises.
    virtual basic::Value At(std::size_t row, std::size_t column) const = 0;
    // From now on what is fetched comes through this Reading, on whose thread the sheet is then used. Without
    // a meaning for a sheet that holds its rows.
    virtual void ReadBy(Reading&) const {}
    // Depth in a tree, from 0; heads and totals stand above their parts.
    virtual int Level(std::size_t) const { return 0; }
};

// A column of a sheet of typed rows, with how a row fills it.
template <class Row>
struct Filled {
    Column column;
    basic::Value (*value)(const Row&);
};

// A sheet over the typed rows of a query, in their order.
template <class Row>
class SheetOf final : public Sheet {
  public:
    using Depth = int (*)(const Row&);

    SheetOf(std::string title, const std::vector<Filled<Row>>& columns, std::vector<Row> rows,
            Depth depth = nullptr)
        : title_(std::move(title)), rows_(std::move(rows)), depth_(depth) {
        for (const Filled<Row>& filled : columns) {
            columns_.push_back(filled.column);
            values_.push_back(filled.value);
        }
    }

    const std::string& Title() const override { return title_; }
    const std::vector<Column>& Columns() const override { return columns_; }
    std::size_t Rows() const override { return rows_.size(); }
    basic::Value At(std::size_t row, std::size_t column) const override {
        return values_.at(column)(rows_.at(row));
    }
    int Level(std::size_t row) const override { return depth_ == nullptr ? 0 : depth_(rows_.at(row)); }

    const std::vector<Row>& Typed() const { return rows_; }  // what stands behind a line

  private:
    std::string title_;
    std::vector<Column> columns_;
    std::vector<basic::Value (*)(const Row&)> values_;
    std::vector<Row> rows_;
    Depth depth_;
};

// For the columns of typed rows: Null for none.
template <class T>
basic::Value ValueOf(const std::optional<T>& value) {
    return value ? basic::Value(*value) : basic::Value();
}

}  // namespace queries
