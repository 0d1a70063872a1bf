#include "reports/RebuildProgress.h"

#include "platform/forms/window/Progress.h"

namespace qm {

void RebuildWithProgress(std::optional<std::int32_t> upto, BeforeRebuild before) {
    std::optional<forms::Progress> box;
    RebuildLedgerTotals(upto, before, [&box](int done, int steps) {
        if (done == 0)
            box.emplace("Totals of the ledgers", steps);
        else
            box->Step(done);
    });
}

}  // namespace qm
