// The voucher screen over 5,000 ledgers: its list of ledgers beside the bare query of it, a Save beside the
// bare statements that it runs.
#include "bench/Bare.h"
#include "bench/BigBooks.h"
#include "bench/Figures.h"
#include "bench/Ours.h"
#include "bench/Screens.h"
#include "core/MsgBox.h"
#include "platform/basic/Clock.h"
#include "platform/basic/Dates.h"
#include "vouchers/frmVoucher.h"

namespace bench {
namespace {

constexpr std::int64_t Day = 37009;  // 30-Apr-2001
constexpr std::int64_t First = 1000, Second = 1001;
const std::string Amount = "1234.5", Narration = "Posted by the benchmark";

// A new journal voucher in front of the user.
void OnScreen(const std::function<void(qm::frmVoucher&)>& visit) {
    basic::Clock::Set(basic::MakeDate(2001, 4, 30));
    auto& screen = forms::Default<qm::frmVoucher>();
    Visit(
        "frmVoucher", [&] { screen.Load(0); },
        [&](forms::Form&) {
            screen.ui().cmbVoucherType->SetText("Journal");
            visit(screen);
        });
    basic::Clock::Set({});
}

// A move to the ledger's cell reads the list again; then it drops.
void ListOurs(benchmark::State& state) {
    AttachScreens();
    Ours ours(BooksWith(0, Place::Disk, 0));
    OnScreen([&](qm::frmVoucher& screen) {
        forms::VSFlexGrid& grid = *screen.ui().vsVoucher;
        grid.SetFocus();
        grid.SetTextMatrix(1, qm::VoucherColumn::Side, "Dr.");
        for (auto _ : state) {
            grid.Select(1, qm::VoucherColumn::Ledger);
            grid.EditCell();
            Draw();
            state.PauseTiming();
            screen.ui().dtpDate->SetFocus();
            grid.SetFocus();
            state.ResumeTiming();
        }
    });
}

void ListBare(benchmark::State& state) {
    Bare bare(BooksWith(0, Place::Disk, 0));
    BareStatement rows(bare.Db(),
                       "SELECT m.Ledger_ID, Name, Group_ID, PrimaryGrp, Opening_Bal, Closing_Bal, Bal_Type, "
                       "LedDetDrTxnTot, LedDetCrTxnTot FROM Ledger_Master m, Ledger_Details d WHERE "
                       "m.Ledger_ID = d.Ledger_ID AND d.Fnncl_Yr = 2001 ORDER BY Name");
    for (auto _ : state) {
        std::int64_t read = 0;
        for (; rows.Step(); ++read)
            for (int field = 0; field < rows.Columns(); ++field) benchmark::DoNotOptimize(rows.Text(field));
        rows.Reset();
        if (read < Ledgers) state.SkipWithError("ledgers are missing");
    }
}

// Writes a line as the user leaves it; `amount` is the column of its side.
void Fill(forms::VSFlexGrid& grid, int row, const char* side, std::int64_t ledger, int amount) {
    grid.SetTextMatrix(row, qm::VoucherColumn::Side, side);
    grid.SetTextMatrix(row, qm::VoucherColumn::Ledger, "Ledger " + std::to_string(ledger));
    grid.SetCellData(row, qm::VoucherColumn::Ledger, std::to_string(ledger));
    grid.SetTextMatrix(row, amount, Amount);
    grid.SetTextMatrix(row, qm::VoucherColumn::Particulars, Narration);
}

// Until the screen tells that the voucher is saved; that it then makes itself ready for the next one is left
// out.
void SaveOurs(benchmark::State& state) {
    AttachScreens();
    Ours ours(BooksWith(0, Place::Disk, 3));
    OnScreen([&](qm::frmVoucher& screen) {
        const qm::MsgBoxPort boxes = qm::SetMsgBoxPort([&](const std::string&, int, const std::string&) {
            state.PauseTiming();
            return qm::vbOK;
        });
        forms::VSFlexGrid& grid = *screen.ui().vsVoucher;
        for (auto _ : state) {
            state.PauseTiming();
            Fill(grid, 1, "Dr.", First, qm::VoucherColumn::DrAmount);
            grid.AddItem("", 2);
            Fill(grid, 2, "Cr.", Second, qm::VoucherColumn::CrAmount);
            state.ResumeTiming();
            screen.ui().cmdSave->Click.Fire();
            if (!grid.TextMatrix(1, qm::VoucherColumn::Side).empty())
                state.SkipWithError("the voucher was not saved");
            state.ResumeTiming();
        }
        qm::SetMsgBoxPort(boxes);
    });
}

void SaveBare(benchmark::State& state) {
    Bare bare(BooksWith(0, Place::Disk, 4));
    BareStatement begin(bare.Db(), "BEGIN IMMEDIATE"), commit(bare.Db(), "COMMIT");
    BareStatement highest(bare.Db(), "SELECT max(LedgerTrnNo) FROM tb_Ledger2001");
    BareStatement totals(bare.Db(),
                         "UPDATE Ledger_Details SET LedDetDRTxnTot = ifnull(LedDetDRTxnTot, 0) + ?, "
                         "LedDetCRTxnTot = ifnull(LedDetCRTxnTot, 0) + ? WHERE Ledger_ID = ? AND Fnncl_Yr = "
                         "2001");
    BareStatement balance(bare.Db(),
                          "SELECT Bal_Type, Opening_Bal, Closing_Bal, LedDetDRTxnTot, LedDetCRTxnTot FROM "
                          "Ledger_Details WHERE Ledger_ID = ? AND Fnncl_Yr = 2001");
    BareStatement insert(
        bare.Db(),
        "INSERT INTO tb_Ledger2001 (LedgerTrnNo, LedgerCode, LedgerTxnDate, LedgerDrAmt, LedgerNarration, "
        "LedgerTrnType, LedgerCrAmt, LedgerName, LedgerLedBal, LedgerMcGenerated) VALUES "
        "(?, ?, ?, ?, ?, 'Journal', ?, ?, ?, 1)");
    for (auto _ : state) {
        highest.Step();
        const std::int64_t voucher = highest.Integer(0) + 1;
        highest.Reset();
        for (const std::int64_t ledger : {First, Second}) {
            const double debit = ledger == First ? 1234.5 : 0, credit = 1234.5 - debit;
            begin.Run();
            totals.Bind(1, debit).Bind(2, credit).Bind(3, ledger).Run();
            balance.Bind(1, ledger).Step();
            const double after = balance.Real(1) + balance.Real(3) - balance.Real(4);
            balance.Reset();
            insert.Bind(1, voucher).Bind(2, ledger).Bind(3, Day).Bind(4, debit).Bind(5, Narration);
            insert.Bind(6, credit).Bind(7, "Ledger " + std::to_string(ledger));
            insert.Bind(8, std::to_string(after) + "Dr").Run();
            commit.Run();
        }
    }
}

const bool registered = [] {
    AddFigure({.name = "voucher: list of 5,000 ledgers read and dropped down",
               .ours = ListOurs,
               .bare = ListBare,
               .goal = 3});
    AddFigure({.name = "voucher of two lines saved", .ours = SaveOurs, .bare = SaveBare, .goal = 1.5});
    return true;
}();

}  // namespace
}  // namespace bench
