// Posting one row: the select of the balance, the update of the total and the insert of the row, in one
// transaction.
#include "bench/Bare.h"
#include "bench/BigBooks.h"
#include "bench/Figures.h"
#include "bench/Ours.h"

namespace bench {

void PostBatches(benchmark::State& state, const std::function<void(const Posting&)>& post) {
    const auto batch = [&] {
        for (std::int64_t i = 0; i < Posting::Batch; ++i) post({1000 + (i * 37) % Ledgers, i % 2 == 0});
    };
    batch();
    for (auto _ : state) batch();
}

void PostOurs(benchmark::State& state, const std::string& place) {
    Ours ours(place);
    std::int32_t voucher = ours.Host().GetNextTrnID();
    PostBatches(state, [&](const Posting& posting) {
        if (!ours.Host().InsertVoucher(voucher, 37000, "J", posting.isDebit ? "D" : "C", Posting::Narration,
                                       Posting::Amount, static_cast<std::int32_t>(posting.ledger),
                                       "Ledger " + std::to_string(posting.ledger)))
            state.SkipWithError("a posting failed");
        voucher += posting.isDebit ? 0 : 1;
    });
}

namespace {

constexpr std::int64_t Million = 1000000;
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
    PostBatches(state, [&](const Posting& posting) {
        balance.Bind(1, posting.ledger).Step();
        const double before = balance.Real(1) + balance.Real(2) - balance.Real(3);
        balance.Reset();
        begin.Run();
        (posting.isDebit ? debit : credit).Bind(1, Posting::Amount).Bind(2, posting.ledger).Run();
        insert.Bind(1, voucher)
            .Bind(2, posting.ledger)
            .Bind(3, "Ledger " + std::to_string(posting.ledger))
            .Bind(4, std::string(Posting::Narration));
        insert.Bind(5, posting.isDebit ? Posting::Amount : 0.0);
        insert.Bind(6, posting.isDebit ? 0.0 : Posting::Amount);
        insert.Bind(7, std::to_string(before) + "Dr").Run();
        commit.Run();
        voucher += posting.isDebit ? 0 : 1;
    });
}

void Add(const std::string& name, std::int64_t rows, Place place, double atLeast, const char* cpuName) {
    AddFigure({.name = name,
               .ours = [=](benchmark::State& state) { PostOurs(state, BooksWith(rows, place, 1)); },
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
