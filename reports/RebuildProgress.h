#pragma once

#include <cstdint>
#include <optional>

#include "reports/LedgerTotals.h"

namespace qm {

// The rebuild of the totals as the screens run it: with a wait pointer and, beyond half a second, a progress
// box, which is never left half done.
void RebuildWithProgress(std::optional<std::int32_t> upto = {},
                         BeforeRebuild before = BeforeRebuild::KeepTotals);

}  // namespace qm
