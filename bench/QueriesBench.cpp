// Reading a year of 1,000,000 rows: the highest number, one ledger's rows, everything.
#include "bench/Bare.h"
#include "bench/BigBooks.h"
#include "bench/Figures.h"
#include "bench/Ours.h"
#include "platform/ado/Recordset.h"

namespace bench {

void ReadOurs(benchmark::State& state, const std::string& place, const StatementOfTurn& statement) {
    Ours ours(place);
    int turn = 0;
    for (auto _ : state) {
        ado::Recordset rows;
        rows.Open(statement(turn++), qm::shared().Connection, ado::adOpenStatic, ado::adLockReadOnly);
        benchmark::DoNotOptimize(rows.RecordCount());
        rows.Close();
    }
}

std::string OneLedgerStatement(int turn) {
    return " SELECT  *  From tb_Ledger2001 WHERE ledgercode = " +
           std::to_string(1000 + (turn * 37) % Ledgers) +
           " And ledgertxnDate >= 36980 And ledgertxnDate <= 37344 Order by  ledgertxnDate, ledgertrntype "
           "Desc ";
}

namespace {

constexpr std::int64_t Million = 1000000;

// Steps through the rows and takes every column, texts included.
void ReadBare(benchmark::State& state, const std::string& sql, bool byLedger) {
    Bare bare(BooksWith(Million, Place::Disk, 2));
    BareStatement select(bare.Db(), sql);
    std::int64_t turn = 0;
    for (auto _ : state) {
        if (byLedger) select.Bind(1, 1000 + (turn++ * 37) % Ledgers);
        while (select.Step())
            for (int column = 0; column < select.Columns(); ++column)
                benchmark::DoNotOptimize(select.Text(column));
        select.Reset();
    }
}

const char* const OneLedger =
    "SELECT * FROM tb_Ledger2001 WHERE LedgerCode = ? AND LedgerTxnDate >= 36980 AND LedgerTxnDate <= 37344 "
    "ORDER BY "
    "LedgerTxnDate, LedgerTrnType DESC, rowid";

void Add(const char* name, double goal, const StatementOfTurn& statement, const std::string& sql,
         bool byLedger) {
    AddFigure(
        {.name = name,
         .ours =
             [=](benchmark::State& state) { ReadOurs(state, BooksWith(Million, Place::Disk, 1), statement); },
         .bare = [=](benchmark::State& state) { ReadBare(state, sql, byLedger); },
         .goal = goal,
         .cpuName = "",
         .cpuGoal = 1});
}

const bool registered = [] {
    Add(
        "highest voucher number, 1,000,000 rows", 1.5,
        [](int) { return std::string("Select Max(LedgerTrnNo) As High from tb_Ledger2001"); },
        "SELECT max(LedgerTrnNo) FROM tb_Ledger2001", false);
    Add("one ledger's rows, 1,000,000 rows", 1.5, OneLedgerStatement, OneLedger, true);
    Add(
        "full read of 1,000,000 rows", 1.5, [](int) { return std::string("Select * from tb_Ledger2001"); },
        "SELECT * FROM tb_Ledger2001", false);
    return true;
}();

}  // namespace
}  // namespace bench
