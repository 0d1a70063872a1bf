#pragma once

#include <string>

#include "platform/ado/Recordset.h"
#include "platform/basic/Value.h"

namespace qm {

// Trading account, Profit & Loss account and Balance Sheet as one page, from the closing balances of the
// current year as they stand. The lines go through the work table tblsysTPL, by which each statement hands
// its result to the next: what an earlier run left there adds up. Amounts are rupees, debit and credit each
// a magnitude.
class FinalResults {
  public:
    // `upto` is the day that the page names; it selects nothing.
    explicit FinalResults(basic::Date upto) : upto_(upto) {}

    // One line of the work table for each ledger whose closing balance is not 0, under the statement that the
    // type of its primary group names.
    static void BuildResults();
    // The page over the lines in the work table, to which it adds the gross and the net result. Its tags are
    // not balanced, and users' printouts depend on each of them. Raises what a statement raises. Kept 72.
    std::string PrintResults() const;

  private:
    std::string Period() const;
    static std::string PrintSection(char section, ado::Recordset& lines);

    basic::Date upto_;
};

}  // namespace qm
