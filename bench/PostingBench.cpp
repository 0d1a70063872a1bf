// Posting one row: the select of the balance, the update of the total and the insert of the row, in one
// transaction.
#include "bench/Bare.h"
#include "bench/BigBooks.h"
#include "bench/Figures.h"
#include "bench/Ours.h"

namespace bench {
namespace {

constexpr std::int64_t Million = 1000000;
constexpr std::int64_t Batch = 200;  // postings per measured iteration
const std::string Narration = "Posted by the benchmark";

// Posts batch after batch; the first is not measured, so that both sides meet the pages that they touch in
// memory.
template <class PostBatch>
void Measure(benchmark::State& state, PostBatch postBatch) {
    postBatch();
    for (auto _ : state) postBatch();
}

void PostOurs(benchmark::State& state, std::int64_t rows, Place place) {
    Ours ours(BooksWith(rows, place, 1));
    std::int32_t voucher = ours.Host().GetNextTrnID();
    Measure(state, [&] {
        for (std::int64_t i = 0; i < Batch; ++i) {
            const auto ledger = static_cast<std::int32_t>(1000 + (i * 37) % Ledgers);
            if (!ours.Host().InsertVoucher(voucher, 37000, "J", i % 2 == 0 ? "D" : "C", Narration, 1234.5,
                                           ledger, "Ledger " + std::to_string(ledger)))
                state.SkipWithError("a posting failed");
            voucher += static_cast<std::int32_t>(i % 2);
        }
    });
}

void PostBare(benchmark::State& state, std::int64_t rows, Place place) {
    Bare bare(BooksWith(rows, place, 2));
    BareStatement begin(bare.Db(), "BEGIN IMMEDIATE"), commit(bare.Db(), "COMMIT");
    BareStatement balance(
        bare.Db(),
        "SELECT Bal_Type, Opening_Bal, LedDetDRTxnTot, LedDetCRTxnTot FROM Ledger_Details WHERE "
        "Ledger_ID = ? AND Fnncl_Yr = 2001");
    const std::string where = ", 0) + ? WHERE Ledger_ID = ? AND Fnncl_Yr = 2001";
    BareStatement debit(bare.Db(),
                        "UPDATE Ledger_Details SET LedDetDRTxnTot = ifnull(LedDetDRTxnTot" + where);
    BareStatement credit(bare.Db(),
                         "UPDATE Ledger_Details SET LedDetCRTxnTot = ifnull(LedDetCRTxnTot" + where);
    BareStatement insert(
        bare.Db(),
        "INSERT INTO tb_Ledger2001 (LedgerTrnNo, LedgerCode, LedgerName, LedgerTxnDate, LedgerNarration, "
        "LedgerTrnType, LedgerDrAmt, LedgerCrAmt, LedgerLedBal, LedgerMcGenerated) VALUES "
        "(?, ?, ?, 37000, ?, 'Journal', ?, ?, ?, 1)");
    BareStatement highest(bare.Db(), "SELECT max(LedgerTrnNo) FROM tb_Ledger2001");
    highest.Step();
    std::int64_t voucher = highest.Integer(0) + 1;
    highest.Reset();
    Measure(state, [&] {
        for (std::int64_t i = 0; i < Batch; ++i) {
            const std::int64_t ledger = 1000 + (i * 37) % Ledgers;
            const bool isDebit = i % 2 == 0;
            balance.Bind(1, ledger).Step();
            const double before = balance.Real(1) + balance.Real(2) - balance.Real(3);
            balance.Reset();
            begin.Run();
            (isDebit ? debit : credit).Bind(1, 1234.5).Bind(2, ledger).Run();
            insert.Bind(1, voucher)
                .Bind(2, ledger)
                .Bind(3, "Ledger " + std::to_string(ledger))
                .Bind(4, Narration);
            insert.Bind(5, isDebit ? 1234.5 : 0.0).Bind(6, isDebit ? 0.0 : 1234.5);
            insert.Bind(7, std::to_string(before) + "Dr").Run();
            commit.Run();
            voucher += i % 2;
        }
    });
}

void Add(const std::string& name, std::int64_t rows, Place place, double atLeast, const char* cpuName) {
    AddFigure({.name = name,
               .ours = [=](benchmark::State& state) { PostOurs(state, rows, place); },
               .bare = [=](benchmark::State& state) { PostBare(state, rows, place); },
               .goal = 1 / atLeast,
               .cpuName = cpuName == nullptr ? "" : cpuName,
               .cpuGoal = 1.4});
}

const bool registered = [] {
    Add("post a row, empty year", 0, Place::Disk, 0.8, nullptr);
    Add("post a row, empty year, durability off", 0, Place::Memory, 0.5, nullptr);
    Add("post a row, 1,000,000 rows in the year", Million, Place::Disk, 0.8,
        "post a row, 1,000,000 rows, processor time");
    return true;
}();

}  // namespace
}  // namespace bench
