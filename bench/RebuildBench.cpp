// The rebuild of the running totals: two sums by ledger over 1,000,000 rows, then an update for each.
#include "bench/Bare.h"
#include "bench/BigBooks.h"
#include "bench/Figures.h"
#include "bench/Ours.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Number.h"

namespace bench {
namespace {

constexpr std::int64_t Million = 1000000;
const char* const Sides[] = {"Dr", "Cr"};

std::string SumStatement(const std::string& side) {
    return "Select ledgercode,Sum(ledger" + side + "Amt) as Tot  from tb_Ledger2001 group by ledgercode";
}

void SumsOurs(benchmark::State& state) {
    Ours ours(BooksWith(Million, Place::Disk, 1));
    for (auto _ : state)
        for (const char* side : Sides) {
            ado::Recordset rows;
            rows.Open(SumStatement(side), qm::shared().Connection, ado::adOpenForwardOnly,
                      ado::adLockReadOnly);
            if (rows.RecordCount() != Ledgers) state.SkipWithError("sums are missing");
        }
}

void SumsBare(benchmark::State& state) {
    Bare bare(BooksWith(Million, Place::Disk, 2));
    BareStatement debit(bare.Db(),
                        "SELECT LedgerCode, sum(LedgerDrAmt) FROM tb_Ledger2001 GROUP BY LedgerCode");
    BareStatement credit(bare.Db(),
                         "SELECT LedgerCode, sum(LedgerCrAmt) FROM tb_Ledger2001 GROUP BY LedgerCode");
    for (auto _ : state)
        for (BareStatement* sums : {&debit, &credit}) {
            double total = 0;
            while (sums->Step()) total += sums->Real(1);
            benchmark::DoNotOptimize(total);
            sums->Reset();
        }
}

void UpdatesOurs(benchmark::State& state) {
    Ours ours(BooksWith(Million, Place::Disk, 1));
    double amount = 0.5;
    for (auto _ : state)
        for (const char* side : Sides)
            for (std::int64_t ledger = 1000; ledger < 1000 + Ledgers; ++ledger)
                ours.Conn().Execute("Update Ledger_Details Set  ledDet" + std::string(side) +
                                    "TxnTot = " + basic::NumberText(amount += 1.25) +
                                    " Where ledger_id = " + std::to_string(ledger) + " And fnncl_yr = 2001");
}

void UpdatesBare(benchmark::State& state) {
    Bare bare(BooksWith(Million, Place::Disk, 2), false);
    BareStatement debit(
        bare.Db(), "UPDATE Ledger_Details SET LedDetDRTxnTot = ? WHERE Ledger_ID = ? AND Fnncl_Yr = 2001");
    BareStatement credit(
        bare.Db(), "UPDATE Ledger_Details SET LedDetCRTxnTot = ? WHERE Ledger_ID = ? AND Fnncl_Yr = 2001");
    double amount = 0.5;
    for (auto _ : state)
        for (BareStatement* update : {&debit, &credit})
            for (std::int64_t ledger = 1000; ledger < 1000 + Ledgers; ++ledger)
                update->Bind(1, amount += 1.25).Bind(2, ledger).Run();
}

const bool registered = [] {
    AddFigure({.name = "two sums by ledger, 1,000,000 rows, 5,000 ledgers",
               .ours = SumsOurs,
               .bare = SumsBare,
               .goal = 1.2,
               .cpuName = "",
               .cpuGoal = 1});
    AddFigure({.name = "10,000 updates of totals, one by one",
               .ours = UpdatesOurs,
               .bare = UpdatesBare,
               .goal = 2,
               .cpuName = "",
               .cpuGoal = 1});
    return true;
}();

}  // namespace
}  // namespace bench
