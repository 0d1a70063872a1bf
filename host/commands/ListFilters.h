#pragma once

#include <optional>
#include <string>

#include "core/VoucherType.h"
#include "queries/LedgerSums.h"
#include "queries/Reading.h"

namespace host {

// What a list is narrowed to, as it was typed; "" for all.
struct ListFilters {
    std::string from, upto, type, ledger, text;
};

// Each raises with a text that names the option where it does not read.
queries::Range DaysOf(const ListFilters& filters);
std::optional<qm::VoucherType> VoucherTypeOf(const ListFilters& filters);  // by its word or first letter
std::string MovementTypeOf(const ListFilters& filters);                    // "Receipt" or "Issue"
std::optional<std::int32_t> LedgerOf(const ListFilters& filters, queries::Reading& books);

// The ledger that a name, without regard to case, or a number means in the year of a Reading. Raises where
// there is none, and where two bear the name.
std::int32_t LedgerNamed(const std::string& text, queries::Reading& books);

}  // namespace host
