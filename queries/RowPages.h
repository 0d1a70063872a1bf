#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/ado/RowWindow.h"
#include "queries/Reading.h"
#include "queries/Sheet.h"

namespace queries {

// A select over one long table, page by page: its head is read as it is asked for; who looks further gets the
// keys of all rows read once, and any page by them. So the list stands as it was, though others write: a row
// that is gone meanwhile reads Null.
class RowPages {
  public:
    // How the keys come into an order that no index has, in less memory than the store would take: `select`
    // is of the same rows, of a field and a day, without an order; equal ones stand by day.
    struct ByField {
        std::string select;
        bool text = false;  // the field is no figure
        bool descending = false;
    };
    RowPages(Reading& books, const std::string& select, std::optional<ByField> byField = {});

    std::size_t Count();                                       // counted once
    ado::KeptRows Page(std::size_t first, std::size_t count);  // fewer at the end
    std::optional<std::size_t> PlaceOf(ado::RowKey key);       // of a row that a page gave
    void Settle() { Keys(); }                                  // what takes long is read now
    void ReadBy(Reading& books) { books_ = &books; }           // from now on

  private:
    const ado::RowKeys& Keys();
    ado::RowKeys KeysByField();

    ado::RowWindow Window() { return books_->Window(select_); }

    Reading* books_;
    std::string select_;
    std::optional<ByField> byField_;
    std::optional<std::size_t> count_;
    std::optional<ado::RowKeys> keys_;
};

// The same with typed rows. `make` gets a row of a page; one that is gone is all Null.
template <class Row>
class Windowed {
  public:
    using Make = Row (*)(const ado::KeptRows& rows, std::int64_t row);

    Windowed(Reading& books, const std::string& select, Make make,
             std::optional<RowPages::ByField> byField = {})
        : pages_(books, select, std::move(byField)), make_(make) {}

    std::size_t Count() { return pages_.Count(); }
    std::vector<Row> Page(std::size_t first, std::size_t count) {
        const ado::KeptRows rows = pages_.Page(first, count);
        std::vector<Row> page;
        for (std::int64_t row = 0; row < rows.Count(); ++row) page.push_back(make_(rows, row));
        return page;
    }
    // Where in the list a row stands that Page gave, by its key.
    std::optional<std::size_t> PlaceOf(ado::RowKey key) { return pages_.PlaceOf(key); }
    void Settle() { pages_.Settle(); }
    void ReadBy(Reading& books) { pages_.ReadBy(books); }

  private:
    RowPages pages_;
    Make make_;
};

// A sheet that fetches the rows it is asked for: `Pages` has Count, Page and ReadBy as above. It reads
// through the Reading it was made with, or was told last, which outlives it. Who writes it all out holds a
// Moment around that.
template <class Row, class Pages>
class PagedSheet final : public Sheet {
  public:
    PagedSheet(std::string title, const std::vector<Filled<Row>>& columns, Pages pages)
        : title_(std::move(title)), pages_(std::move(pages)) {
        for (const Filled<Row>& filled : columns) {
            columns_.push_back(filled.column);
            values_.push_back(filled.value);
        }
    }

    const std::string& Title() const override { return title_; }
    const std::vector<Column>& Columns() const override { return columns_; }
    std::size_t Rows() const override { return pages_.Count(); }
    basic::Value At(std::size_t row, std::size_t column) const override {
        return values_.at(column)(Typed(row));
    }
    void ReadBy(Reading& books) const override { pages_.ReadBy(books); }
    // Valid until another row is asked for.
    const Row& Typed(std::size_t row) const {
        if (row < first_ || row >= first_ + page_.size()) {
            first_ = row / PageRows * PageRows;
            page_ = pages_.Page(first_, PageRows);
            page_.resize(PageRows);  // as many as were counted, whatever others have removed since
        }
        return page_.at(row - first_);
    }
    Pages& Source() const { return pages_; }

  private:
    static constexpr std::size_t PageRows = 128;

    std::string title_;
    std::vector<Column> columns_;
    std::vector<basic::Value (*)(const Row&)> values_;
    mutable Pages pages_;
    mutable std::size_t first_ = 0;
    mutable std::vector<Row> page_;
};

}  // namespace queries
