// The day book over a million voucher rows beside the bare queries that it shows: a day of them, and half a
// year.
#include "bench/Bare.h"
#include "bench/BigBooks.h"
#include "bench/Figures.h"
#include "bench/Ours.h"
#include "bench/Screens.h"
#include "platform/basic/Clock.h"
#include "platform/basic/Dates.h"
#include "vouchers/frmDayBook.h"

namespace bench {
namespace {

constexpr std::int64_t YearRows = 1'000'000;
constexpr std::int64_t FirstDay = 36980, LastDay = 37162;  // 01-Apr-2001, 30-Sep-2001
const std::string Fields =
    "LedgerTrnNo, LedgerTrnType, LedgerTxnDate, LedgerDrAmt, LedgerCrAmt, LedgerCode, LedgerName, "
    "LedgerMcGenerated From tb_Ledger2001 Where LedgerTxnDate ";

std::int64_t ReadAll(BareStatement& rows) {
    std::int64_t read = 0;
    for (; rows.Step(); ++read)
        for (int field = 0; field < 8; ++field) benchmark::DoNotOptimize(rows.Text(field));
    rows.Reset();
    return read;
}

void Open(const std::function<void(forms::Form&)>& visit) {
    basic::Clock::Set(basic::MakeDate(2001, 4, 1));
    Visit(
        "frmDayBook", [] { forms::Default<qm::frmDayBook>().Show(forms::vbModal); }, visit);
    basic::Clock::Set({});
}

void TodayOurs(benchmark::State& state) {
    AttachScreens();
    Ours ours(BooksWith(YearRows, Place::Disk, 0));
    for (auto _ : state) Open({});
}

void TodayBare(benchmark::State& state) {
    Bare bare(BooksWith(YearRows, Place::Disk, 0));
    BareStatement rows(
        bare.Db(), "Select " + Fields + "= " + std::to_string(FirstDay) + " Order By LedgerTxnDate, rowid");
    for (auto _ : state)
        if (ReadAll(rows) == 0) state.SkipWithError("rows are missing");
}

void HalfYearOurs(benchmark::State& state) {
    AttachScreens();
    Ours ours(BooksWith(YearRows, Place::Disk, 0));
    Open([&](forms::Form&) {
        auto& ui = forms::Default<qm::frmDayBook>().ui();
        ui.cboFilterFld->SetText("Date Range");
        ui.dtpDateUpTo->SetValue(basic::MakeDate(2001, 9, 30));
        for (auto _ : state) {
            ui.cmdOk->Click.Fire();
            Draw();
        }
    });
}

void HalfYearBare(benchmark::State& state) {
    Bare bare(BooksWith(YearRows, Place::Disk, 0));
    BareStatement rows(bare.Db(), "Select Distinct " + Fields + ">= " + std::to_string(FirstDay) +
                                      " And LedgerTxnDate <= " + std::to_string(LastDay) +
                                      " Order By LedgerTxnDate");
    for (auto _ : state)
        if (ReadAll(rows) == 0) state.SkipWithError("rows are missing");
}

const bool registered = [] {
    AddFigure({.name = "day book opens on a day of 1,000,000 rows",
               .ours = TodayOurs,
               .bare = TodayBare,
               .goal = 10});
    AddFigure({.name = "day book filters half a year of 1,000,000 rows",
               .ours = HalfYearOurs,
               .bare = HalfYearBare,
               .goal = 2});
    return true;
}();

}  // namespace
}  // namespace bench
