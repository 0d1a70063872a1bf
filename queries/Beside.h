#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "queries/Results.h"
#include "queries/TrialBalance.h"

namespace queries {

// A line of a statement with a figure for each of several ranges of days; none where it has no such line.
struct BesideRow {
    int level = 0;            // 0 a group or a result, 1 a ledger
    std::int32_t ledger = 0;  // 0 for a group or a result
    std::string name;
    std::vector<std::optional<double>> figures;  // rupees, with the signs told below
};

// A statement with several figures a line, side by side.
class BesideSheet final : public Sheet {
  public:
    BesideSheet(std::string title, std::vector<Column> figures, std::vector<BesideRow> rows);

    const std::string& Title() const override { return title_; }
    const std::vector<Column>& Columns() const override { return columns_; }
    std::size_t Rows() const override { return rows_.size(); }
    basic::Value At(std::size_t row, std::size_t column) const override;
    int Level(std::size_t row) const override { return rows_.at(row).level; }
    const std::vector<BesideRow>& Typed() const { return rows_; }

  private:
    std::string title_;
    std::vector<Column> columns_;
    std::vector<BesideRow> rows_;
};

// The year before, in its short form; none where the books do not know it.
std::optional<std::string> LastYearOf(Reading& books);
// The same days a year before; the last of a February stays its last.
Range YearBefore(const Reading& books, const Range& days);

// A statement, or without one the trial balance's closing balances. In Trading and in Profit & Loss what
// comes in is positive, what it costs negative, and a profit positive, so that each result is the sum of the
// lines above it; in the Balance Sheet the assets are positive, in the trial balance the debits. A result
// stands in one line, whether it is a profit or a loss; totals are left out.
//
// Beside the same days of the year before, with what changed. Raises NoSuchTable where it is not known.
std::unique_ptr<BesideSheet> BesideLastYear(Reading& books, std::optional<Statement> statement,
                                            const Range& days, TrialBy by, const Step& step);
// By the months of a range: of Trading and Profit & Loss what each month added, and the sum; of the other two
// how they stood at each month's end, by the rows.
std::unique_ptr<BesideSheet> ByMonth(Reading& books, std::optional<Statement> statement, const Range& days,
                                     const Step& step);

}  // namespace queries
