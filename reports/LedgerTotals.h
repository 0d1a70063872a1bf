#pragma once

#include <cstdint>
#include <functional>
#include <optional>

namespace qm {

// Whether the rebuild sets the year's totals to 0 before it writes them. Only the final results do. Without
// it a ledger that has no row in the range keeps the totals it had, those of the whole year: users of the
// trial balance know it so. Kept 68.
enum class BeforeRebuild { KeepTotals, ZeroTotals };

// Works out the current year's running totals and closing balances in Ledger_Details from the rows of
// tb_Ledger<FinYear>: those up to a day number, or all of them. Partial totals stand until a rebuild over the
// whole year puts them right, which is what each screen that makes them does when it closes. The rows
// are read once and written at once where that can be; a statement that fails is raised and leaves what one
// by one and in no transaction would have been done before it. `progress` hears how many totals are done of
// how many: 0 before the first is written, then each.
void RebuildLedgerTotals(std::optional<std::int32_t> upto = {},
                         BeforeRebuild before = BeforeRebuild::KeepTotals,
                         const std::function<void(int done, int steps)>& progress = {});

}  // namespace qm
