#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "reports/frmLedger.h"

namespace qm {

// The frame of a report over the records selected in a ucOPtSelective: each is printed by `print` into
// frmLedger, which is then shown modally. The keys' last slot is spare. A wait pointer stands meanwhile and,
// beyond half a second, a progress box; the user may cancel between two records, and nothing is shown then.
void PrintSelected(const std::string& title, const std::vector<std::int16_t>& keys,
                   const std::function<void(const std::string& key)>& print);

}  // namespace qm
