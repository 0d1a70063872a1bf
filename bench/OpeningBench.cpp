// From nothing to open books with the year read. The library derives its key each time: that is most of it,
// on both sides.
#include "bench/Bare.h"
#include "bench/BigBooks.h"
#include "bench/Figures.h"
#include "bench/Ours.h"

namespace bench {
namespace {

void OpenOurs(benchmark::State& state) {
    const auto folder = BooksWith(0, Place::Disk, 1);
    for (auto _ : state) Ours ours(folder);
}

void OpenBare(benchmark::State& state) {
    const auto folder = BooksWith(0, Place::Disk, 2);
    for (auto _ : state) {
        Bare bare(folder);
        BareStatement year(bare.Db(), "SELECT Fnncl_Yr FROM Fnncl_Yr_Mstr WHERE Crrnt_Yr_Flg = 1");
        if (!year.Step()) state.SkipWithError("no year");
    }
}

const bool registered = [] {
    AddFigure({.name = "open the books and read the year",
               .ours = OpenOurs,
               .bare = OpenBare,
               .goal = 1.3,
               .cpuName = "",
               .cpuGoal = 1});
    return true;
}();

}  // namespace
}  // namespace bench
