// A goods receipt of 50 rows saved on its screen, beside its bare statements: each row in a transaction of
// its own, then the entry and the bill.
#include "bench/Bare.h"
#include "bench/BigBooks.h"
#include "bench/Figures.h"
#include "bench/Ours.h"
#include "bench/Screens.h"
#include "core/MsgBox.h"
#include "inventory/frmReceipt.h"

namespace bench {
namespace {

constexpr std::int64_t Items = 50;

std::filesystem::path StockBooks(int copy) {
    const auto folder = BooksWith(0, Place::Disk, copy);
    Bare bare(folder, false);
    bare.Run("BEGIN");
    bare.Run("DELETE FROM ItemMaster2001");
    BareStatement insert(bare.Db(),
                         "INSERT INTO ItemMaster2001 (Item_ID, Item_Name, Unit_Price) VALUES (?, ?, 2.5)");
    for (std::int64_t id = 1; id <= Items; ++id)
        insert.Bind(1, id).Bind(2, "Item " + std::to_string(id)).Run();
    bare.Run("UPDATE Ledger_Master SET PrimaryGrp = 'Suppliers' WHERE Ledger_ID < 1002");
    bare.Run("COMMIT");
    return folder;
}

// A new receipt as it stands before Save.
void Enter(qm::frmReceipt& screen) {
    auto& ui = screen.ui();
    forms::VSFlexGrid& grid = *ui.vsReceipt;
    ui.cmbReceipt->SetText("<New>");
    for (int row = 1; row <= static_cast<int>(Items); ++row) {
        grid.AddItem("", row);
        grid.SetTextMatrix(row, qm::StockGrid::ItemCol, std::to_string(row));
        grid.SetTextMatrix(row, qm::StockGrid::NameCol, "Item " + std::to_string(row));
        grid.SetTextMatrix(row, qm::StockGrid::PriceCol, "2.5");
        grid.SetTextMatrix(row, qm::StockGrid::QtyCol, "4");
    }
    ui.dtpDate->SetValue(basic::Date{37011});  // 30-Apr-2001
    ui.txtBillNo->SetText("B/17");
    ui.cmbSupplier->SetListIndex(0);
    ui.cmbItemLedgers->SetListIndex(1);
}

void SaveOurs(benchmark::State& state) {
    AttachScreens();
    const auto boxes =
        qm::SetMsgBoxPort([](const std::string&, int, const std::string&) { return qm::vbOK; });
    {
        Ours ours(StockBooks(60));
        auto& screen = forms::Default<qm::frmReceipt>();
        Visit(
            "frmReceipt", [&] { screen.Load(0); },
            [&](forms::Form&) {
                for (auto _ : state) {
                    state.PauseTiming();
                    Enter(screen);
                    Draw();
                    state.ResumeTiming();
                    screen.ui().cmdSave->click();
                    if (screen.ui().cmbReceipt->Text() == "<New>")
                        state.SkipWithError("a receipt was not saved");
                }
            });
    }
    qm::SetMsgBoxPort(boxes);
}

std::int64_t Next(BareStatement& highest) {
    highest.Step();
    const std::int64_t next = highest.Integer(0) + 1;
    highest.Reset();
    return next;
}

void ReadAll(BareStatement& statement) {
    while (statement.Step()) benchmark::DoNotOptimize(statement.Text(0));
    statement.Reset();
}

void SaveBare(benchmark::State& state) {
    Bare bare(StockBooks(61));
    BareStatement begin(bare.Db(), "BEGIN IMMEDIATE"), commit(bare.Db(), "COMMIT");
    BareStatement highestMovement(bare.Db(), "SELECT max(ItemLedTrnNo) FROM tblItemLed2001");
    BareStatement movement(
        bare.Db(),
        "INSERT INTO tblItemLed2001 (ItemLedTrnNo, ItemLedTrnDate, ItemLedTrnType, ItemLedItemId, "
        "ItemLedPONo, "
        "ItemLedItemDesc, ItemLedTrnIssQty, ItemLedTrnRptQty, ItemLedNote, ItemledUnitPrice, ItemLedBillNo, "
        "ItemLandingCost) VALUES (?, 37009, 'Receipt', ?, 0, ?, 0.0, 4.0, '', 2.5, '0', 0.0)");
    BareStatement item(
        bare.Db(), "UPDATE ItemMaster2001 SET ReceivedQty = ifnull(ReceivedQty, 0) + 4.0 WHERE Item_ID = ?");
    BareStatement highestVoucher(bare.Db(), "SELECT max(LedgerTrnNo) FROM tb_Ledger2001");
    BareStatement entry(
        bare.Db(),
        "INSERT INTO tb_Ledger2001 (LedgerTrnNo, LedgerCode, LedgerName, LedgerTxnDate, LedgerNarration, "
        "LedgerTrnType, LedgerDrAmt, LedgerCrAmt) VALUES (?, ?, 'Ledger', 37009, '', 'Journal', ?, ?)");
    BareStatement bill(
        bare.Db(),
        "INSERT INTO tblBills2001 (BillID, BillTxnID, BillVchrNo, ISPoBill, InstrumentID, BillDiscount, "
        "BillTaxRate, BillOtherCharges) VALUES ('B/17', ?, ?, 0, 0, 0.0, 0.0, 0.0)");
    // What the screen reads once the receipt is saved: the list of numbers, the rows, the bill.
    BareStatement numbers(bare.Db(),
                          "SELECT DISTINCT ItemLedTrnNo FROM tblItemLed2001 WHERE ItemLedTrnType = 'Receipt' "
                          "AND ItemLedPoNo = 0");
    BareStatement rows(bare.Db(),
                       "SELECT * FROM tblItemLed2001 WHERE ItemLedTrnNo = ? AND ItemLedTrnType = 'Receipt'");
    BareStatement fields(
        bare.Db(),
        "SELECT LedgerName, LedgerTxnDate, LedgerDrAmt, LedgerCrAmt, LedgerNarration, BillID, BillDiscount, "
        "BillTaxRate, BillOtherCharges FROM tb_Ledger2001, tblBills2001 WHERE BillVchrNo = LedgerTrnNo AND "
        "IsPOBill = 0 AND BillTxnID = ?");
    for (auto _ : state) {
        const std::int64_t number = Next(highestMovement);
        for (std::int64_t id = 1; id <= Items; ++id) {
            begin.Run();
            movement.Bind(1, number).Bind(2, id).Bind(3, "Item " + std::to_string(id)).Run();
            item.Bind(1, id).Run();
            commit.Run();
        }
        begin.Run();
        const std::int64_t voucher = Next(highestVoucher);
        entry.Bind(1, voucher).Bind(2, std::int64_t{1000}).Bind(3, 0.0).Bind(4, 500.0).Run();
        entry.Bind(1, voucher).Bind(2, std::int64_t{1001}).Bind(3, 500.0).Bind(4, 0.0).Run();
        bill.Bind(1, number).Bind(2, voucher).Run();
        commit.Run();
        ReadAll(numbers);
        ReadAll(rows.Bind(1, number));
        ReadAll(fields.Bind(1, number));
    }
}

const bool registered = [] {
    AddFigure({.name = "goods receipt of 50 rows saved", .ours = SaveOurs, .bare = SaveBare, .goal = 1.5});
    return true;
}();

}  // namespace
}  // namespace bench
