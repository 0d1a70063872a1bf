// The lists of a year of 1,000,000 voucher rows beside the bare queries that answer them: the first page of a
// list, any page, counts and sums.
#include "bench/Bare.h"
#include "bench/BigBooks.h"
#include "bench/Figures.h"
#include "platform/basic/Dates.h"
#include "queries/LedgerLines.h"
#include "queries/Ledgers.h"
#include "queries/Months.h"
#include "queries/Parties.h"
#include "queries/Results.h"
#include "queries/Search.h"
#include "queries/Vouchers.h"

namespace bench {
namespace {

constexpr std::int64_t Million = 1'000'000;
const std::string Lines =
    "SELECT LedgerTrnNo, LedgerTxnDate, LedgerTrnType, LedgerCode, LedgerName, LedgerDrAmt, LedgerCrAmt, "
    "LedgerNarration, LedgerMcGenerated FROM tb_Ledger2001 ";
const std::string Sums = "SELECT count(*), sum(LedgerDrAmt), sum(LedgerCrAmt) FROM tb_Ledger2001 ";
const std::string ByLedger =
    "SELECT LedgerCode, sum(LedgerDrAmt), sum(LedgerCrAmt) FROM tb_Ledger2001 GROUP BY LedgerCode";

void Add(const char* name, double goal, std::function<void(queries::Reading&)> ask,
         const std::vector<std::string>& answers) {
    const auto ours = [=](benchmark::State& state) {
        queries::Reading books(BooksWith(Million, Place::Disk, 1).string() + "/");
        for (auto _ : state) ask(books);
    };
    const auto bare = [=](benchmark::State& state) {
        Bare library(BooksWith(Million, Place::Disk, 2));
        for (auto _ : state)
            for (const std::string& answer : answers) {
                BareStatement rows(library.Db(), answer);
                if (ReadTexts(rows) == 0) state.SkipWithError("rows are missing");
            }
    };
    AddFigure({.name = name, .ours = ours, .bare = bare, .goal = goal, .cpuName = "", .cpuGoal = 1});
}

const queries::VoucherFilter& Half() {
    static const queries::VoucherFilter half{.days = {queries::DateOf(36980), queries::DateOf(37162)},
                                             .words = "row 12"};
    return half;
}

// Both sums of each of three ages, and of all.
std::string AgedSums() {
    std::string list;
    for (const char* first : {"37314", "37284", "37254", "0"})
        for (const char* field : {"LedgerDrAmt", "LedgerCrAmt"})
            list +=
                std::string(", sum(CASE WHEN LedgerTxnDate >= ") + first + " THEN " + field + " ELSE 0 END)";
    return list;
}

const bool registered = [] {
    using queries::Reading;
    Add("voucher lines, first page and count, 1,000,000 rows", 1.3,
        [](Reading& books) {
            queries::VoucherLines lines = queries::Vouchers(books);
            benchmark::DoNotOptimize(lines.Page(0, 128).size() + lines.Count());
        },
        {Lines + "ORDER BY LedgerTxnDate, rowid LIMIT 128", "SELECT count(*) FROM tb_Ledger2001"});
    Add("voucher lines, a page in the middle, 1,000,000 rows", 1.3,
        [](Reading& books) { benchmark::DoNotOptimize(queries::Vouchers(books).Page(500'000, 128).size()); },
        {"SELECT rowid FROM tb_Ledger2001 ORDER BY LedgerTxnDate, rowid",
         Lines + "ORDER BY LedgerTxnDate, rowid LIMIT 128"});
    Add("one ledger's statement, first page, 1,000,000 rows", 1.3,
        [](Reading& books) {
            benchmark::DoNotOptimize(queries::LedgerLines(books, 1234).Page(0, 128).size());
        },
        {Sums + "WHERE LedgerCode = 1234",
         Lines + "WHERE LedgerCode = 1234 ORDER BY LedgerTxnDate, LedgerTrnType "
                 "DESC, rowid LIMIT 127"});
    Add("count and sums of all lines, 1,000,000 rows", 1.3,
        [](Reading& books) { benchmark::DoNotOptimize(queries::SumVouchers(books).lines); }, {Sums});
    Add("count and sums by words of half a year, 1,000,000 rows", 1.3,
        [](Reading& books) { benchmark::DoNotOptimize(queries::SumVouchers(books, Half()).lines); },
        {Sums +
         "WHERE LedgerTxnDate >= 36980 AND LedgerTxnDate <= 37162 AND LedgerNarration LIKE '%row%' AND "
         "LedgerNarration LIKE '%12%'"});
    Add("ledgers with their sums, 1,000,000 rows", 1.3,
        [](Reading& books) { benchmark::DoNotOptimize(queries::Ledgers(books).size()); }, {ByLedger});
    Add("final results, 1,000,000 rows", 1.3,
        [](Reading& books) { benchmark::DoNotOptimize(queries::Results(books).size()); }, {ByLedger});
    Add("parties by age, 1,000,000 rows", 1.3,
        [](Reading& books) {
            benchmark::DoNotOptimize(queries::Parties(books, queries::DateOf(37344)).size());
        },
        {"SELECT LedgerCode" + AgedSums() +
         " FROM tb_Ledger2001 WHERE LedgerTxnDate <= 37344 GROUP BY LedgerCode"});
    Add("trade by month, 1,000,000 rows", 1.3,
        [](Reading& books) { benchmark::DoNotOptimize(queries::Months(books).size()); },
        {"SELECT LedgerTxnDate, sum(LedgerDrAmt), sum(LedgerCrAmt) FROM tb_Ledger2001 WHERE LedgerCode IN "
         "(SELECT "
         "Ledger_ID FROM Ledger_Master WHERE PrimaryGrp = 'Sales') GROUP BY LedgerTxnDate",
         "SELECT LedgerTxnDate, sum(CASE WHEN LedgerTrnType = 'Receipt' THEN LedgerDrAmt ELSE 0 END), "
         "sum(CASE WHEN "
         "LedgerTrnType = 'Payment' THEN LedgerDrAmt ELSE 0 END) FROM tb_Ledger2001 GROUP BY LedgerTxnDate"});
    Add("search that finds nothing, 1,000,000 rows", 1.3,
        [](Reading& books) { benchmark::DoNotOptimize(queries::Search(books, "nowhere").size()); },
        {"SELECT count(*) FROM (SELECT LedgerTrnNo FROM tb_Ledger2001 WHERE LedgerNarration LIKE '%nowhere%' "
         "ORDER BY LedgerTxnDate DESC, rowid LIMIT 64)"});
    return true;
}();

}  // namespace
}  // namespace bench
