// The reports beside the bare queries that they rest on: trial balance and final results over 1,000,000 rows,
// one ledger of 20,000 rows, an item ledger of 100,000 movements. Texts only; the view is no part of it.
#include <cmath>

#include "bench/Bare.h"
#include "bench/BigBooks.h"
#include "bench/Figures.h"
#include "bench/Ours.h"
#include "bench/Screens.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Dates.h"
#include "platform/basic/Number.h"
#include "reports/FinalResults.h"
#include "reports/RebuildProgress.h"
#include "reports/frmLedger.h"

namespace bench {
namespace {

constexpr std::int64_t Million = 1000000, PartyRows = 20000, Movements = 100000;
constexpr const char* Sides[] = {"Dr", "Cr"};

// One by one, where ours reads both sums at once and writes all totals by one statement: two sums by ledger,
// an update for each, the two closing statements.
void RebuildBare(Bare& bare, qm::BeforeRebuild before) {
    for (const char* side : Sides) {
        if (before == qm::BeforeRebuild::ZeroTotals)
            bare.Run("UPDATE Ledger_Details SET LedDet" + std::string(side) +
                     "TxnTot = 0 WHERE Fnncl_Yr = 2001");
        BareStatement sums(bare.Db(), "SELECT LedgerCode, sum(Ledger" + std::string(side) +
                                          "Amt) FROM tb_Ledger2001 GROUP BY LedgerCode");
        BareStatement update(bare.Db(), "UPDATE Ledger_Details SET LedDet" + std::string(side) +
                                            "TxnTot = ? WHERE Ledger_ID = ? AND Fnncl_Yr = 2001");
        std::vector<std::pair<std::int64_t, double>> rows;
        while (sums.Step()) rows.emplace_back(sums.Integer(0), sums.Real(1));
        for (const auto& [ledger, total] : rows) update.Bind(1, total).Bind(2, ledger).Run();
    }
    for (const char* sign : {"1", "-1"})
        bare.Run(std::string("UPDATE Ledger_Details SET Closing_Bal = Opening_Bal * ") + sign +
                 " + LedDetDRTxnTot - LedDetCRTxnTot WHERE Bal_Type = '" + (*sign == '1' ? "D" : "C") +
                 "' AND Fnncl_Yr = 2001");
}

void ReadLedgersBare(Bare& bare) {
    BareStatement list(bare.Db(),
                       "SELECT * FROM Ledger_Master, Ledger_Details WHERE Ledger_Master.Ledger_ID = "
                       "Ledger_Details.Ledger_ID AND Fnncl_Yr = 2001");
    while (list.Step())
        for (int col = 0; col < list.Columns(); ++col) benchmark::DoNotOptimize(list.Text(col));
}

qm::frmLedger& Page() {
    return forms::Default<qm::frmLedger>();
}

void TrialBalanceOurs(benchmark::State& state) {
    AttachScreens();
    Ours ours(BooksWith(Million, Place::Disk, 1));
    qm::RebuildWithProgress();  // so that the pages are in memory, on both sides
    for (auto _ : state) {
        Page().BeginReport("Trial Balance");
        qm::RebuildWithProgress();
        Page().PartyTrial({});
    }
    if (Page().ReportText().size() < 500000) state.SkipWithError("the report is short");
}

void TrialBalanceBare(benchmark::State& state) {
    Bare bare(BooksWith(Million, Place::Disk, 2), false);
    RebuildBare(bare, qm::BeforeRebuild::KeepTotals);
    for (auto _ : state) {
        RebuildBare(bare, qm::BeforeRebuild::KeepTotals);
        ReadLedgersBare(bare);
    }
}

void FinalResultsOurs(benchmark::State& state) {
    AttachScreens();
    Ours ours(BooksWith(Million, Place::Disk, 1));
    qm::RebuildWithProgress();
    std::size_t length = 0;
    for (auto _ : state) {
        qm::RebuildWithProgress({}, qm::BeforeRebuild::ZeroTotals);
        qm::FinalResults::BuildResults();
        length = qm::FinalResults(basic::MakeDate(2002, 3, 31)).PrintResults().size();
        ours.Conn().Execute("Delete * from tblsystpl");
    }
    if (length < 500000) state.SkipWithError("the page is short");
}

// A line for each ledger, group by group.
void BuildResultsBare(Bare& bare) {
    BareStatement groups(bare.Db(),
                         "SELECT Group_Head_Name, GrpType FROM Group_Head_Master WHERE Parent_Id = 0");
    BareStatement ledgers(bare.Db(),
                          "SELECT Name, Closing_Bal FROM Ledger_Details, Ledger_Master WHERE Fnncl_Yr = 2001 "
                          "AND Ledger_Details.Ledger_ID = Ledger_Master.Ledger_ID AND PrimaryGrp = ? AND "
                          "Closing_Bal <> 0");
    BareStatement debit(bare.Db(), "INSERT INTO tblsysTPL (ParticularDr, AmtDr, Type) VALUES (?, ?, ?)"),
        credit(bare.Db(), "INSERT INTO tblsysTPL (ParticularCr, AmtCr, Type) VALUES (?, ?, ?)");
    const auto text = [](const BareStatement& row, int column) {
        const unsigned char* const bytes = row.Text(column);
        return std::string(bytes == nullptr ? "" : reinterpret_cast<const char*>(bytes));
    };
    while (groups.Step()) {
        const std::string type = text(groups, 1);
        std::vector<std::pair<std::string, double>> rows;
        ledgers.Bind(1, text(groups, 0));
        while (ledgers.Step()) rows.emplace_back(text(ledgers, 0), ledgers.Real(1));
        ledgers.Reset();
        for (const auto& [name, closing] : rows)
            (closing > 0 ? debit : credit).Bind(1, name).Bind(2, std::abs(closing)).Bind(3, type).Run();
    }
}

// The lines of each statement, and what it hands on to the next.
void PrintResultsBare(Bare& bare) {
    BareStatement lines(bare.Db(), "SELECT * FROM tblsysTPL WHERE Type = ?");
    BareStatement handOn(
        bare.Db(),
        "INSERT INTO tblsysTPL (ParticularDr, AmtDr, ParticularCr, AmtCr, Type) VALUES (' ', "
        "0, ?, 1, ?)");
    for (const char* section : {"T", "P", "B"}) {
        lines.Bind(1, std::string(section));
        while (lines.Step())
            for (const int particular : {0, 2}) {
                benchmark::DoNotOptimize(lines.Text(particular));
                benchmark::DoNotOptimize(lines.Real(particular + 1));
            }
        lines.Reset();
        if (*section == 'T') handOn.Bind(1, std::string("Gross Profit B/F")).Bind(2, std::string("P")).Run();
        if (*section == 'P') handOn.Bind(1, std::string("Net Profit")).Bind(2, std::string("B")).Run();
    }
}

void FinalResultsBare(benchmark::State& state) {
    Bare bare(BooksWith(Million, Place::Disk, 2), false);
    RebuildBare(bare, qm::BeforeRebuild::KeepTotals);
    for (auto _ : state) {
        RebuildBare(bare, qm::BeforeRebuild::ZeroTotals);
        BuildResultsBare(bare);
        PrintResultsBare(bare);
        bare.Run("DELETE FROM tblsysTPL");
    }
}

// Books with one ledger of many rows and one item of many movements.
const std::filesystem::path& LongBooks() {
    static const std::filesystem::path folder = [] {
        const auto made = BooksWith(0, Place::Disk, 40);
        Bare bare(made, false);
        bare.Run("BEGIN");
        BareStatement row(bare.Db(),
                          "INSERT INTO tb_Ledger2001 (LedgerTrnNo, LedgerCode, LedgerName, LedgerTxnDate, "
                          "LedgerNarration, LedgerTrnType, LedgerDrAmt, LedgerCrAmt) VALUES (?, 1000, "
                          "'Ledger 1000', ?, ?, 'Journal', ?, 0.0)");
        for (std::int64_t i = 0; i < PartyRows; ++i)
            row.Bind(1, i + 1)
                .Bind(2, 36980 + i * 365 / PartyRows)
                .Bind(3, "Narration of row " + std::to_string(i))
                .Bind(4, static_cast<double>(i % 10000) / 100)
                .Run();
        bare.Run("INSERT INTO ItemMaster2001 (Item_ID, Item_Name, Open_Stock) VALUES (1, 'Pens', 0.0)");
        BareStatement movement(
            bare.Db(),
            "INSERT INTO tblItemLed2001 (ItemLedTrnNo, ItemLedItemID, ItemLedTrnDate, ItemLedTrnType, "
            "ItemLedTrnRptQty, ItemLedTrnIssQty, ItemLandingCost, ItemLedUnitPrice, ItemLedNote) VALUES (?, "
            "1, "
            "?, 'Receipt', 1.0, 0.0, 2.5, 2.0, ?)");
        for (std::int64_t i = 0; i < Movements; ++i)
            movement.Bind(1, i + 1)
                .Bind(2, 36980 + i * 365 / Movements)
                .Bind(3, "Note " + std::to_string(i))
                .Run();
        bare.Run("COMMIT");
        return made;
    }();
    return folder;
}

template <class Print>
void StatementOurs(benchmark::State& state, const std::string& sql, Print print) {
    AttachScreens();
    Ours ours(LongBooks());
    for (auto _ : state) {
        Page().BeginReport("Ledger");
        ado::Recordset rows;
        rows.Open(sql, qm::shared().Connection, ado::adOpenForwardOnly, ado::adLockReadOnly, ado::adCmdText);
        double opening = 0;
        print(opening, rows);
    }
    if (Page().ReportText().size() < 500000) state.SkipWithError("the report is short");
}

// Each row read with all its fields as texts, as a statement of them needs.
void StatementBare(benchmark::State& state, const std::string& sql) {
    Bare bare(LongBooks());
    BareStatement rows(bare.Db(), sql);
    for (auto _ : state) {
        while (rows.Step())
            for (int col = 0; col < rows.Columns(); ++col) benchmark::DoNotOptimize(rows.Text(col));
        rows.Reset();
    }
}

const std::string PartySql =
    "SELECT * From tb_Ledger2001 WHERE ledgercode = 1000 And ledgertxnDate >= 36980 And ledgertxnDate <= "
    "37344 "
    "Order by ledgertxnDate, ledgertrntype Desc";
const std::string ItemSql =
    "SELECT * From tblitemLed2001 WHERE itemledItemid = 1 And itemledtrnDate >= 36980 And itemledtrnDate <= "
    "37344 Order by itemledtrndate, itemledTrnType Desc";

const bool registered = [] {
    AddFigure({.name = "trial balance text, 1,000,000 rows, 5,000 ledgers",
               .ours = TrialBalanceOurs,
               .bare = TrialBalanceBare,
               .goal = 0.5});
    AddFigure({.name = "final results text, 1,000,000 rows, 5,000 ledgers",
               .ours = FinalResultsOurs,
               .bare = FinalResultsBare,
               .goal = 0.5});
    AddFigure({.name = "party ledger text, 20,000 rows",
               .ours =
                   [](benchmark::State& state) {
                       StatementOurs(state, PartySql, [](double& opening, ado::Recordset& rows) {
                           Page().PartyPrnLed(opening, rows, "Ledger 1000");
                       });
                   },
               .bare = [](benchmark::State& state) { StatementBare(state, PartySql); },
               .goal = 2});
    AddFigure({.name = "item ledger text, 100,000 movements",
               .ours =
                   [](benchmark::State& state) {
                       StatementOurs(state, ItemSql, [](double& opening, ado::Recordset& rows) {
                           Page().ItemPrnLed(opening, rows, "Pens", 1);
                       });
                   },
               .bare = [](benchmark::State& state) { StatementBare(state, ItemSql); },
               .goal = 2});
    return true;
}();

}  // namespace
}  // namespace bench
