#include <gmock/gmock.h>

#include "core/FDBCode.h"
#include "core/modGeneral.h"
#include "host/audit/Audit.h"
#include "platform/basic/Dates.h"
#include "platform/basic/Number.h"
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

const char* const CopyDetails =
    "Insert Into Ledger_Details Select Ledger_ID As Ledger_ID, '2002' As Fnncl_Yr, Opening_Bal, Bal_Type "
    "From "
    "Ledger_Details Where Fnncl_Yr = 2001";

std::string Receive(int receipt, int order, double qty, double price) {
    return "Insert Into tblItemLed2001 (ItemLedTrnNo, ItemLedTrnType, ItemLedItemID, ItemLedPONo, "
           "ItemLedTrnRptQty, ItemLedUnitPrice) Values (" +
           std::to_string(receipt) + ", 'Receipt', 1, " + std::to_string(order) + ", " +
           basic::NumberText(qty) + ", " + basic::NumberText(price) + ")";
}

// With a discount of 10 and a tax of 5 percent.
std::string Bill(int receipt, int voucher, const char* ofOrder) {
    const std::string number = std::to_string(receipt);
    return "Insert Into tblBills2001 (BillID, BillTxnID, BillVchrNo, ISPoBill, BillDiscount, BillTaxRate, "
           "BillOtherCharges) Values ('B" +
           number + "', " + number + ", " + std::to_string(voucher) + ", " + ofOrder + ", 10, 5, 0)";
}

std::string Post(int voucher, int ledger, double debit, double credit) {
    return "Insert Into tb_Ledger2001 (LedgerTrnNo, LedgerCode, LedgerDrAmt, LedgerCrAmt, LedgerMcGenerated) "
           "Values (" +
           std::to_string(voucher) + ", " + std::to_string(ledger) + ", " + basic::NumberText(debit) + ", " +
           basic::NumberText(credit) + ", True)";
}

const Case cases[] = {
    {{}, {}},

    // The years.
    {{"Insert Into Fnncl_Yr_Mstr (Fnncl_Yr, Crrnt_Yr_Flg) Values ('2001-2002', False)"},
     {"note: year 2001-2002: stands twice in the register"}},
    {{"Update Fnncl_Yr_Mstr Set Crrnt_Yr_Flg = False"}, {"error: years: none is flagged as current"}},
    {{"Insert Into Fnncl_Yr_Mstr (Fnncl_Yr, Crrnt_Yr_Flg) Values ('2001-2002', True)"},
     {"note: year 2001-2002: stands twice in the register", "error: years: 2 are flagged as current"}},
    {{"Delete From Fnncl_Yr_Mstr"},
     {"note: years: none yet; the first start makes 2001-2002",
      "error: year 2001: has details of ledgers and is not in the register: a new year was not finished"}},
    {{"Insert Into Fnncl_Yr_Mstr (Fnncl_Yr) Values ('2002-2003')"},
     {"error: year 2002: the table tb_Ledger2002 is missing",
      "note: year 2002: has no table tblItemLed2002; its stock screens will not work",
      "note: year 2002: has no table tblPO2002; its stock screens will not work",
      "note: year 2002: has no table tblPODet2002; its stock screens will not work",
      "note: year 2002: has no table tblBills2002; its stock screens will not work",
      "note: year 2002: has no table ItemMaster2002; its stock screens will not work"}},

    // A new year that ended half-way, and one that was then begun again.
    {{CopyDetails},
     {"error: year 2002: has details of ledgers and is not in the register: a new year was not finished"}},
    {{CopyDetails, CopyDetails, "Insert Into Fnncl_Yr_Mstr (Fnncl_Yr) Values ('2002-2003')",
      "Select * Into tb_Ledger2002 From tblsysLedgerstr", "Select * Into tblPO2002 From tblsysPOstr",
      "Select * Into tblPODet2002 From tblsysPODetstr", "Select * Into tblItemLed2002 From tblsysItemLedstr",
      "Select * Into tblBills2002 From tblSysBills"},
     {"error: year 2002: has no table ItemMaster2002: a new year was not finished",
      "error: year 2002: 2 ledgers have more than one detail row: the new year was begun more than once",
      "note: ledger 17 'Cash Box': has 2 detail rows in 2002",
      "note: ledger 18 'Sales A/c': has 2 detail rows in 2002"}},
    {{"Insert Into ItemMaster2001 (Item_ID) Values (1)",
      "Insert Into Fnncl_Yr_Mstr (Fnncl_Yr) Values ('2002-2003')",
      "Select * Into tb_Ledger2002 From tblsysLedgerstr", "Select * Into ItemMaster2002 From ItemMasterstr",
      "Select * Into tblPO2002 From tblsysPOstr", "Select * Into tblPODet2002 From tblsysPODetstr",
      "Select * Into tblItemLed2002 From tblsysItemLedstr", "Select * Into tblBills2002 From tblSysBills"},
     {"note: year 2002: has no items, and 2001 has; the new year may not have been finished"}},
    {{"Insert Into tblvchrmst (vchrmstType, vchrmstFinYear) Values ('Contra', 0)"},
     {"error: voucher register: 'Contra' is of no year: a new year was not finished"}},

    // Bytes of another alphabet's table, as another program may have put them there.
    {{"Update tb_Ledger2001 Set LedgerNarration = 'Caf\xE9' Where LedgerCode = 18",
      "Update Ledger_Master Set Notes = 'Caf\xC3\xA9'"},
     {"error: tb_Ledger2001, row 2: LedgerNarration 'Caf\xEF\xBF\xBD' holds bytes that are no UTF-8"}},

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
    {{"Update tb_Ledger2001 Set LedgerDrAmt = 100.004 Where LedgerCode = 17"},
     {"error: voucher 1 of 2001: the amount 100.004 of ledger 17 has more than two decimals"}},
    {{"Update tb_Ledger2001 Set LedgerDrAmt = 100.005 Where LedgerCode = 17",
      "Update tb_Ledger2001 Set LedgerCrAmt = 100.004 Where LedgerCode = 18"},
     {"error: voucher 1 of 2001: the amount 100.005 of ledger 17 has more than two decimals",
      "error: voucher 1 of 2001: the amount 100.004 of ledger 18 has more than two decimals",
      "error: voucher 1 of 2001: debit 100.01, credit 100"}},
    {{"Update tb_Ledger2001 Set LedgerDrAmt = 9999999999999.99",
      "Update tb_Ledger2001 Set LedgerCrAmt = "
      "9999999999999.98 Where LedgerCode = 18",
      "Update tb_Ledger2001 Set LedgerDrAmt = 0 Where LedgerCode = 18",
      "Update Ledger_Details Set LedDetDRTxnTot = 9999999999999.99 Where Ledger_ID = 17",
      "Update Ledger_Details Set LedDetCRTxnTot = 9999999999999.98 Where Ledger_ID = 18"},
     {"error: voucher 1 of 2001: debit 9999999999999.99, credit 9999999999999.98"}},
    {{"Update tb_Ledger2001 Set LedgerDrAmt = 1E20 Where LedgerCode = 17",
      "Update tb_Ledger2001 Set LedgerCrAmt = 1E20 Where LedgerCode = 18",
      "Update Ledger_Details Set LedDetDRTxnTot = 1E20, LedDetCRTxnTot = 5.55111512312578E-17 Where "
      "Ledger_ID = 17",
      "Update Ledger_Details Set LedDetCRTxnTot = 1E20, Opening_Bal = 500.00000001 Where Ledger_ID = 18"},
     {"note: details of ledger 17 in 2001: the debit total 1E+20 is too large to bear paise",
      "note: details of ledger 17 in 2001: the credit total 5.55111512312578E-17 bears a residue of "
      "floating-point sums",
      "note: details of ledger 18 in 2001: the opening balance 500.00000001 bears a residue of "
      "floating-point "
      "sums",
      "note: details of ledger 18 in 2001: the credit total 1E+20 is too large to bear paise",
      "error: voucher 1 of 2001: the amount 1E+20 of ledger 17 is too large to bear paise",
      "error: voucher 1 of 2001: the amount 1E+20 of ledger 18 is too large to bear paise"}},
    {{"Update tb_Ledger2001 Set LedgerLedBal = '5.55111512312578E-17Cr' Where LedgerCode = 17"},
     {"note: voucher 1 of 2001: the balance text 5.55111512312578E-17Cr of ledger 17 bears a residue of "
      "floating-point sums"}},
    {{"Update tb_Ledger2001 Set LedgerTxnDate = 36979 Where LedgerCode = 17",
      "Insert Into tblPO2001 (poNumber, Podate) Values (1, 37345)",
      "Insert Into tblPO2001 (poNumber, Podate) Values (2, 37344)",
      "Insert Into tblItemLed2001 (ItemLedTrnNo, ItemLedTrnDate) Values (3, 36980)",
      "Insert Into tblItemLed2001 (ItemLedTrnNo, ItemLedTrnDate) Values (4, 2147483647)"},
     {"error: voucher 1 of 2001: dated 31-Mar-2001, outside the year",
      "error: movements of 2001: item 0 does not stand",
      "error: stock movement 4 of 2001: dated day 2147483647, outside the year",
      "error: order 1 of 2001: dated 01-Apr-2002, outside the year"}},
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

    // Goods without a bill; bills whose vouchers bear the part before a comma, and one that bears the whole.
    {{"Insert Into ItemMaster2001 (Item_ID, Item_Name, ReceivedQty) Values (1, 'Paper', 125)",
      Receive(1, 0, 12.5, 100), Receive(2, 0, 12.5, 100), Receive(3, 1, 12.5, 100), Receive(4, 0, 12.5, 10),
      Receive(5, 0, 75, 10), Bill(2, 2, "False"), Bill(3, 3, "True"), Bill(4, 4, "False"),
      Bill(5, 1, "False"), Post(2, 17, 1, 0), Post(2, 18, 0, 1), Post(3, 17, 1, 0), Post(3, 18, 0, 1),
      Post(4, 17, 106.25, 0), Post(4, 18, 0, 106.25),
      "Update Ledger_Details Set LedDetDRTxnTot = 208.25 Where Ledger_ID = 17",
      "Update Ledger_Details Set LedDetCRTxnTot = 208.25 Where Ledger_ID = 18"},
     {"note: bill 'B2' of receipt 2 in 2001: its voucher 2 bears 1, the part before the comma of 1,249.85",
      "note: bill 'B3' of receipt 3 in 2001: its voucher 3 bears 1, the part before the comma of 1,062.50",
      "error: receipt 1 of 2001: its goods have no bill and no voucher"}},

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
