#include <gmock/gmock.h>

#include "core/FDBCode.h"
#include "core/modGeneral.h"
#include "host/audit/Audit.h"
#include "platform/basic/Dates.h"
#include "tests/support/FreshBooks.h"

// Each finding once, in books of two ledgers and one voucher that are whole: a statement breaks them, the
// audit says so and nothing else. Damaged pages are broken in tests/outside.
namespace {

using Lines = std::vector<std::string>;

Lines Findings() {
    Lines lines;
    for (const host::Finding& finding : host::Audit::Run())
        lines.push_back((finding.severity == host::Severity::Error ? "error: " : "note: ") + finding.text);
    return lines;
}

class AuditOfBooks : public testing::Test {
  protected:
    AuditOfBooks() {
        EXPECT_EQ(std::to_string(cash) + " " + std::to_string(sales), "17 18");  // as the cases name them
        books.Host().InsertVoucher(1, 36980, "R", "D", "n", 100, cash, "Cash Box");
        books.Host().InsertVoucher(1, 36980, "R", "C", "n", 100, sales, "Sales A/c");
    }

    test::FreshBooks books{2001};
    int cash = books.AddLedger("Cash Box", "Cash In Hand", 500, "D");
    int sales = books.AddLedger("Sales A/c", "Sales", 500, "C");
};

struct Case {
    Lines statements;
    Lines findings;
};

const Case cases[] = {
    {{}, {}},

    // The years.
    {{"Insert Into Fnncl_Yr_Mstr (Fnncl_Yr, Crrnt_Yr_Flg) Values ('2001-2002', False)"},
     {"note: year 2001-2002: stands twice in the register"}},
    {{"Update Fnncl_Yr_Mstr Set Crrnt_Yr_Flg = False"}, {"error: years: none is flagged as current"}},
    {{"Insert Into Fnncl_Yr_Mstr (Fnncl_Yr, Crrnt_Yr_Flg) Values ('2001-2002', True)"},
     {"note: year 2001-2002: stands twice in the register", "error: years: 2 are flagged as current"}},
    {{"Delete From Fnncl_Yr_Mstr"}, {"note: years: none yet; the first start makes 2001-2002"}},
    {{"Insert Into Fnncl_Yr_Mstr (Fnncl_Yr) Values ('2002-2003')"},
     {"error: year 2002: the table tb_Ledger2002 is missing",
      "note: year 2002: has no table tblItemLed2002; its stock screens will not work",
      "note: year 2002: has no table tblPO2002; its stock screens will not work",
      "note: year 2002: has no table tblPODet2002; its stock screens will not work",
      "note: year 2002: has no table tblBills2002; its stock screens will not work",
      "note: year 2002: has no table ItemMaster2002; its stock screens will not work"}},

    // Leaves, ledgers and details.
    {{"Insert Into Ledger_Master Select * From Ledger_Master Where Ledger_ID = 17"},
     {"error: ledger 17 'Cash Box': stands twice"}},
    {{"Delete From Group_Head_Master Where Group_Id = 17"},
     {"error: ledger 17 'Cash Box': has no leaf in the group tree"}},
    {{"Update Group_Head_Master Set Group_Head_Name = 'Till' Where Group_Id = 17"},
     {"note: ledger 17 'Cash Box': is named 'Till' in the group tree"}},
    {{"Update Ledger_Master Set Group_Id = 18 Where Ledger_ID = 17"},
     {"error: ledger 17 'Cash Box': its group is no primary group of the tree, so no tree shows it"}},
    {{"Update Ledger_Master Set PrimaryGrp = 'Cash' Where Ledger_ID = 17"},
     {"error: ledger 17 'Cash Box': its primary group 'Cash' does not stand"}},
    {{"Update Ledger_Master Set PrimaryGrp = 'CASH in hand' Where Ledger_ID = 17"}, {}},
    {{"Insert Into Group_Head_Master (Group_Head_Name, Parent_Id) Values ('Till', 9)"},
     {"error: leaf 19 'Till': has no ledger"}},
    {{"Update Ledger_Details Set Bal_Type = 'Dr' Where Ledger_ID = 17"},
     {"error: details of ledger 17 in 2001: the balance type is 'Dr', neither D nor C"}},
    {{"Insert Into Ledger_Details (Ledger_ID, Fnncl_Yr, Bal_Type) Values (99, 2001, 'D')"},
     {"note: details of ledger 99 in 2001: their ledger is gone (deleted in another year)"}},
    {{"Insert Into Ledger_Details Select * From Ledger_Details Where Ledger_ID = 17"},
     {"note: ledger 17 'Cash Box': has 2 detail rows in 2001"}},
    {{"Delete From Ledger_Details Where Ledger_ID = 17"},
     {"error: ledger 17 'Cash Box': has no detail row in any year"}},

    // Vouchers and running totals.
    {{"Insert Into tb_Ledger2001 (LedgerTrnNo, LedgerCode, LedgerDrAmt, LedgerCrAmt, LedgerMcGenerated) "
      "Values (2, 17, 0.1, 0, True)",
      "Update Ledger_Details Set LedDetDRTxnTot = 100.1 Where Ledger_ID = 17"},
     {"error: voucher 2 of 2001: debit 0.1, credit 0"}},
    {{"Update tb_Ledger2001 Set LedgerDrAmt = 100.004 Where LedgerCode = 17"}, {}},  // less than half a paisa
    {{"Update tb_Ledger2001 Set LedgerCode = 99 Where LedgerCode = 18"},
     {"error: rows of 2001: ledger 99 does not stand (debit 0, credit 100)",
      "note: totals of ledger 18 in 2001: they are not the sums of its rows until the next rebuild (totals 0 "
      "and 100, rows 0 and 0)"}},
    {{"Update Ledger_Details Set LedDetDRTxnTot = Null Where Ledger_ID = 17"},
     {"note: totals of ledger 17 in 2001: they are not the sums of its rows until the next rebuild (totals 0 "
      "and 0, rows 100 and 0)"}},
    {{"Insert Into tb_Ledger2001 (LedgerTrnNo, LedgerCode, LedgerDrAmt, LedgerCrAmt) Values (2, 17, 70, 0)",
      "Insert Into tb_Ledger2001 (LedgerTrnNo, LedgerCode, LedgerDrAmt, LedgerCrAmt) Values (2, 18, 0, 70)"},
     {"note: totals of ledger 17 in 2001: vouchers of the stock screens are not in the running totals "
      "(totals 100 and 0, rows 170 and 0)",
      "note: totals of ledger 18 in 2001: vouchers of the stock screens are not in the running totals "
      "(totals 0 and 100, rows 0 and 170)"}},

    // Stock.
    {{"Insert Into ItemMaster2001 (Item_ID, Item_Name, ReceivedQty) Values (1, 'Paper', 12)",
      "Insert Into tblItemLed2001 (ItemLedItemID, ItemLedTrnRptQty) Values (1, 12)",
      "Insert Into tblItemLed2001 (ItemLedItemID, ItemLedTrnIssQty) Values (1, 2.5)"},
     {"error: item 1 'Paper' of 2001: counters say received 12 and issued 0, movements 12 and 2.5"}},
    {{"Insert Into tblItemLed2001 (ItemLedItemID, ItemLedTrnRptQty) Values (5, 12)"},
     {"error: movements of 2001: item 5 does not stand"}},
    {{"Insert Into tblBills2001 (BillID, BillTxnID, BillVchrNo) Values ('A/1', 1, 1)",
      "Insert Into tblBills2001 (BillID, BillTxnID, BillVchrNo) Values ('A/2', 2, 7)"},
     {"note: bill 'A/2' of receipt 2 in 2001: its voucher 7 does not stand (deleted in the day book)"}},

    // Rows that never got their numbers are counted under 0, not tripped over.
    {{"Insert Into Ledger_Details (Bal_Type) Values ('C')"},
     {"note: details of ledger 0 in 0: their ledger is gone (deleted in another year)"}},
    {{"Insert Into tb_Ledger2001 (LedgerDrAmt) Values (5)"},
     {"error: voucher 0 of 2001: debit 5, credit 0",
      "error: rows of 2001: ledger 0 does not stand (debit 5, credit 0)"}},
    {{"Insert Into tblItemLed2001 (ItemLedTrnRptQty) Values (3)"},
     {"error: movements of 2001: item 0 does not stand"}},
    {{"Insert Into tblBills2001 (BillID) Values ('B/1')"},
     {"error: bill 'B/1' of receipt  in 2001: bears no voucher number"}},
};

TEST_F(AuditOfBooks, NamesEachFaultAndNothingElse) {
    for (const Case& broken : cases) {
        SCOPED_TRACE(testing::PrintToString(broken.statements));
        qm::Conn().BeginTrans();
        for (const std::string& statement : broken.statements) books.Run(statement);
        EXPECT_EQ(Findings(), broken.findings);
        qm::Conn().RollbackTrans();
    }
}

// A supplier's bill as the receipt screens post it, under a ledger that a voucher has raised and under one
// that none has; then as the day book leaves it.
TEST_F(AuditOfBooks, TakesTheVouchersOfReceiptsAsTheyAre) {
    const int supplier = books.AddLedger("Acme", "Suppliers");
    for (const double amount : {70.25, 0.0}) {
        const std::int32_t voucher = books.Host().GetNextTrnID();
        const auto post = [&](qm::SideCode side, int ledger, const char* name) {
            EXPECT_EQ(qm::PostVoucherRow(voucher, basic::MakeDate(2001, 4, 30), qm::Journal, side, "n",
                                         amount, ledger, name),
                      voucher);
        };
        post(qm::Credit, supplier, "Acme");
        post(qm::Debit, cash, "Cash Box");
        books.Run("Insert Into tblBills2001 (BillID, BillTxnID, BillVchrNo) Values ('A/1', 1, " +
                  std::to_string(voucher) + ")");
    }
    const std::string notInTotals = ": vouchers of the stock screens are not in the running totals (totals ";
    EXPECT_EQ(Findings(),
              (Lines{"note: totals of ledger 17 in 2001" + notInTotals + "100 and 0, rows 170.25 and 0)",
                     "note: totals of ledger 19 in 2001" + notInTotals + "0 and 0, rows 0 and 70.25)"}));
    qm::ReverseVoucher(2, qm::Conn());
    const std::string notTheSums = ": they are not the sums of its rows until the next rebuild (totals ";
    EXPECT_EQ(Findings(),
              (Lines{"note: totals of ledger 17 in 2001" + notTheSums + "29.75 and 0, rows 100 and 0)",
                     "note: totals of ledger 19 in 2001" + notTheSums + "0 and -70.25, rows 0 and 0)",
                     "note: bill 'A/1' of receipt 1 in 2001: its voucher 2 does not stand (deleted in the "
                     "day book)"}));
}

}  // namespace
