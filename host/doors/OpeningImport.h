#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "core/LedgerSide.h"
#include "host/doors/CsvTable.h"
#include "host/doors/Import.h"
#include "host/doors/LedgerBook.h"

namespace host {

// Checks openings that are to be written to ledgers that stand.
class NewOpenings {
  public:
    NewOpenings();

    // Why the ledger's opening cannot be written, "" where it can: it was named before, or it has rows of
    // other years, which the statement of the ledger screen would write too (kept 23).
    std::string Refusal(const LedgerBook::Entry& ledger, int line);

  private:
    std::set<std::int32_t> elsewhere_;   // ledgers with rows of other years
    std::map<std::int32_t, int> lines_;  // of those that were named
};

// A file of opening balances of the current year: ledger (its name or number), opening and side.
const std::vector<Head>& OpeningHeads();
void CheckOpenings(CsvTable& table, qm::clQm& books, ImportFile& file, const CheckProgress& progress);

// The sums of the current year's openings, in rupees with two decimals.
struct OpeningSums {
    std::string debit, credit;
    bool Agree() const { return debit == credit; }
};
OpeningSums SumOpenings();
std::string OpeningsText();  // "the openings of 2001 agree: 100.00 on either side"

}  // namespace host
