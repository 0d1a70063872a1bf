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
// then its lines as the report has them, by date and by type from Z to A; by page. It reads through the
// Reading it was made with, which outlives it.
class LedgerLines {
  public:
    LedgerLines(Reading& books, std::int32_t ledger, const Range& range = {});

    double Opening() const { return opening_; }
    double Closing() const { return opening_ + net_; }
    Sides Sums() const { return sums_; }  // of the lines, without the opening

    std::size_t Count() const { return count_; }  // with the opening's line
    std::vector<LedgerLine> Page(std::size_t first, std::size_t count);
    // Where a line stands that Page gave, by its key.
    std::optional<std::size_t> PlaceOf(ado::RowKey key);

    // Each line with the balance behind it, which is read once somebody looks far down. Who must not wait for
    // it says so: lines far down are empty then, until it has been read on another thread, by a statement of
    // the same ledger there, and handed over.
    struct Balances {
        std::vector<ado::RowKey> keys;
        std::vector<double> behind;
    };
    Balances ReadBalances() const;
    void Await() { awaits_ = true; }
    void Take(Balances balances);

  private:
    void ReadSums(Reading& books, const std::string& where);
    LedgerLine OpeningLine() const;

    ado::RowWindow lines_, amounts_;
    std::optional<basic::Date> day_;  // of the opening
    double opening_ = 0, net_ = 0;
    Sides sums_;
    std::size_t count_ = 0;
    bool awaits_ = false;
    std::optional<Balances> balances_;
};

using LedgerSheet = PagedSheet<LedgerLine, LedgerLines>;
std::unique_ptr<LedgerSheet> ListLedger(Reading& books, std::int32_t ledger, const Range& range = {});

}  // namespace queries
