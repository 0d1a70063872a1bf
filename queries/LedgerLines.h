#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "queries/LedgerSums.h"
#include "queries/RowPages.h"

namespace queries {

// A line of a ledger's statement, in rupees; the balance behind it is signed, debit positive.
struct LedgerLine {
    ado::RowKey key = 0;  // 0 for the opening, and for a line that was removed after the list was read
    std::int32_t number = 0;
    std::optional<basic::Date> date;
    std::string type, narration;
    double debit = 0, credit = 0, balance = 0;
};

// The statement of a ledger over a range: first the opening balance, with what was posted before the range,
// then its lines as the report has them, by date and by type from Z to A; by page. The balance is added up by
// days, and within those alone that a page shows: a long ledger costs no more memory than a short one. It
// reads through the Reading it was made with, which outlives it.
class LedgerLines {
  public:
    LedgerLines(Reading& books, std::int32_t ledger, const Range& range = {});

    void ReadBy(Reading& books) { books_ = &books; }  // from now on

    double Opening() const { return opening_; }
    double Closing() const { return closing_; }
    // Of the columns as a page shows them, the opening's line included.
    Sides Sums() const { return sums_; }

    std::size_t Count() const { return 1 + count_; }  // with the opening's line
    std::vector<LedgerLine> Page(std::size_t first, std::size_t count);
    // Where a line stands that Page gave, by its key.
    std::optional<std::size_t> PlaceOf(ado::RowKey key);

  private:
    struct Day {
        bool dated = true;  // all the rows without a date are one, too
        std::int32_t number = 0;
        std::size_t first = 0, count = 0;  // the place of its first row among all, and its rows
        double before = 0;                 // the balance
    };
    using Days = std::vector<Day>;
    // The rows of a day that has too many to be read for each page.
    struct LongDay {
        Days::const_iterator of;
        ado::RowKeys keys;
        std::vector<double> behind;  // the balance behind each
    };

    void AddEarlier(basic::Date from);
    void Begin();
    void ReadDays(const std::string& where);
    void AddInOrder(const std::string& where);
    ado::RowWindow InOrder(const std::string& fields, const std::string& where) const;
    ado::RowWindow Between(const Day& first, const Day& last, const char* fields) const;
    LedgerLine OpeningLine() const;
    void AddRows(std::vector<LedgerLine>& page, Days::const_iterator day, Days::const_iterator behind,
                 std::size_t from, std::size_t upto) const;
    void AddLong(std::vector<LedgerLine>& page, Days::const_iterator day, std::size_t from, std::size_t upto);

    Reading* books_;
    std::int32_t ledger_;
    basic::Date opens_;
    double opening_ = 0, closing_ = 0;
    Sides sums_;
    std::size_t count_ = 0;  // of rows
    Days days_;
    std::optional<LongDay> long_;
};

// How many rows of the year a ledger has: a statement of very many is worth being made aside.
std::size_t RowsOfLedger(Reading& books, std::int32_t ledger);

using LedgerSheet = PagedSheet<LedgerLine, LedgerLines>;
std::unique_ptr<LedgerSheet> ListLedger(Reading& books, std::int32_t ledger, const Range& range = {});

}  // namespace queries
