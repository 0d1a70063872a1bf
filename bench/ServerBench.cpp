// Books on a server beside the bare library's same statements, and beside the same books in a file.
#include <cstdint>
#include <string>

#include "bench/BareServer.h"
#include "bench/BigBooks.h"
#include "bench/Figures.h"
#include "bench/Ours.h"

namespace bench {
namespace {

constexpr std::int64_t Million = 1000000;

void OpenOurs(benchmark::State& state) {
    const std::string books = ServerBooksWith(0, 1);
    for (auto _ : state) Ours ours(books);
}

void OpenBare(benchmark::State& state) {
    const std::string books = ServerBooksWith(0, 2);
    for (auto _ : state) {
        BareServer bare(books);
        if (bare.ReadRows(R"(SELECT "Fnncl_Yr" FROM "Fnncl_Yr_Mstr" WHERE "Crrnt_Yr_Flg")") != 1)
            state.SkipWithError("no year");
    }
}

// A trip for each statement, and a commit that waits for the disk.
void PostBare(benchmark::State& state) {
    BareServer bare(ServerBooksWith(Million, 2));
    const std::string mine = R"( WHERE "Ledger_ID" = $1 AND "Fnncl_Yr" = 2001)";
    const auto update = [&](const std::string& total) {
        return "UPDATE \"Ledger_Details\" SET " + total + " = coalesce(" + total + ", 0) + $2" + mine;
    };
    bare.Prepare("begin", "BEGIN");
    bare.Prepare("commit", "COMMIT");
    bare.Prepare("balance", R"(SELECT "Bal_Type", "Opening_Bal", "LedDetDRTxnTot", "LedDetCRTxnTot"
                               FROM "Ledger_Details")" +
                                mine);
    bare.Prepare("debit", update(R"("LedDetDRTxnTot")"));
    bare.Prepare("credit", update(R"("LedDetCRTxnTot")"));
    bare.Prepare("insert", R"(INSERT INTO "tb_Ledger2001" ("LedgerTrnNo", "LedgerCode", "LedgerName",
        "LedgerTxnDate", "LedgerNarration", "LedgerTrnType", "LedgerDrAmt", "LedgerCrAmt", "LedgerLedBal",
        "LedgerMcGenerated") VALUES ($1, $2, $3, 37000, $4, 'Journal', $5, $6, $7, TRUE))");
    std::int64_t voucher = Million;
    const std::string amount = "1234.5", none = "0";
    PostBatches(state, [&](const Posting& posting) {
        const std::string ledger = std::to_string(posting.ledger);
        const BareServer::Result row = bare.Execute("balance", {ledger});
        const double before = bare.Real(row, 1) + bare.Real(row, 2) - bare.Real(row, 3);
        bare.Execute("begin");
        bare.Execute(posting.isDebit ? "debit" : "credit", {ledger, amount});
        bare.Execute("insert", {std::to_string(voucher), ledger, "Ledger " + ledger, Posting::Narration,
                                posting.isDebit ? amount : none, posting.isDebit ? none : amount,
                                std::to_string(before) + "Dr"});
        bare.Execute("commit");
        voucher += posting.isDebit ? 0 : 1;
    });
}

void ReadBare(benchmark::State& state, const std::string& sql) {
    BareServer bare(ServerBooksWith(Million, 2));
    for (auto _ : state)
        if (bare.ReadRows(sql) < Million) state.SkipWithError("rows are missing");
}

// The server's figure by that of the same books in a file.
void AddBesideFile(const std::string& what, const StatementOfTurn& statement) {
    AddFigure(
        {.name = "server / file: " + what,
         .ours = [=](benchmark::State& state) { ReadOurs(state, ServerBooksWith(Million, 1), statement); },
         .bare =
             [=](benchmark::State& state) { ReadOurs(state, BooksWith(Million, Place::Disk, 1), statement); },
         .goal = 1.5});
}

const bool registered = [] {
    if (!HasServer()) return false;
    AddFigure({.name = "server: open the books and read the year",
               .ours = OpenOurs,
               .bare = OpenBare,
               .goal = 3,
               .timeName = "server: open the books and read the year, milliseconds",
               .timeGoal = 15});
    AddFigure({.name = "server: post a row, 1,000,000 rows in the year",
               .ours = [](benchmark::State& state) { PostOurs(state, ServerBooksWith(Million, 1)); },
               .bare = PostBare,
               .goal = 1.2});
    const std::string whole = "SELECT * FROM tb_Ledger2001";
    AddFigure({.name = "server: full read of 1,000,000 rows",
               .ours =
                   [=](benchmark::State& state) {
                       ReadOurs(state, ServerBooksWith(Million, 1), [=](int) { return whole; });
                   },
               .bare =
                   [](benchmark::State& state) {
                       ReadBare(state, R"(SELECT "LedgerTrnNo", "LedgerVchrNo", "LedgerCode", "LedgerName",
                           "LedgerTxnDate", "LedgerNarration", "LedgerTrnType", "LedgerDrAmt", "LedgerCrAmt",
                           "LedgerLedBal", "LedgerMcGenerated" FROM "tb_Ledger2001")");
                   },
               .goal = 1.2});
    AddBesideFile("one day's rows", [](int turn) {
        return "Select * From tb_Ledger2001 Where LedgerTxnDate = " + std::to_string(36980 + turn % 365);
    });
    AddBesideFile("one ledger's rows", OneLedgerStatement);
    AddBesideFile("two sums by ledger", [](int turn) {
        return "Select ledgercode,Sum(ledger" + std::string(turn % 2 == 0 ? "Dr" : "Cr") +
               "Amt) as Tot  from tb_Ledger2001 group by ledgercode";
    });
    return true;
}();

}  // namespace
}  // namespace bench
