#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/LedgerSide.h"
#include "queries/Reading.h"

namespace queries {

// A ledger with its figures of the year as they are kept, a Null as none. Rupees.
struct LedgerDetails {
    std::int32_t id = 0;
    std::string name, group;
    bool deleted = false;
    std::optional<double> openingBalance;  // as entered, without the sign of its side
    std::optional<qm::LedgerSide> side;
    std::optional<double> debit, credit, closing;  // the running totals

    double Opening() const;  // debit positive; 0 for none
    // The closing balance as the rebuild of the totals works it out of both sums: none where one of the three
    // is, and the one that stands where the opening has no side. Kept 68.
    std::optional<double> ClosingBy(std::optional<double> debits, std::optional<double> credits) const;
};

enum class LedgerOrder { ByName, AsEntered, AsDetailed };  // the last by their rows of figures

// The ledgers that have figures in the year; one whose figures stand twice comes twice, as in the reports.
std::vector<LedgerDetails> ReadDetails(Reading& books, LedgerOrder order);

}  // namespace queries
