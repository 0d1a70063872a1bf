#include <limits>

#include <gtest/gtest.h>

#include "core/FDBCode.h"
#include "core/VoucherReversal.h"
#include "core/modGeneral.h"
#include "tests/support/BoxScript.h"
#include "tests/support/FreshBooks.h"

namespace {

using Lines = std::vector<std::string>;

class VoucherCalls : public testing::Test {
  protected:
    Lines Ledger() {
        return books.Rows(
            "Select LedgerTrnNo, LedgerCode, LedgerTxnDate, LedgerTrnType, LedgerDrAmt, LedgerCrAmt, "
            "LedgerLedBal From tb_Ledger2001");
    }
    std::string Totals(int ledger, const std::string& year = "2001") {
        return books.One("Select LedDetDRTxnTot, LedDetCRTxnTot From Ledger_Details Where Ledger_ID = " +
                         std::to_string(ledger) + " And Fnncl_Yr = " + year);
    }
    std::string Id(int ledger) { return std::to_string(ledger); }
    void Post(const std::string& side, int ledger) {
        EXPECT_TRUE(books.Host().InsertVoucher(1, 36980, "J", side, "text", 100, ledger, "A"));
    }

    test::FreshBooks books;
    test::BoxScript boxes;
    int cash = books.AddLedger("Cash Box", "Cash In Hand", 0, "D");
    int sales = books.AddLedger("Sales A/c", "Sales", 500, "C");
};

TEST_F(VoucherCalls, UpdateCommitsTheReversalsWhereNoAmountCanBeWritten) {
    using Limits = std::numeric_limits<double>;
    for (const double amount :
         {Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN(), Limits::max()}) {
        Post("D", cash);
        Post("C", sales);
        boxes.ExpectLog("Class-ClQm", "Syntax error");
        boxes.ExpectLog("Class-ClQm", "Syntax error");
        EXPECT_TRUE(books.Host().UpdateVoucher(1, 36990, amount)) << amount;
        EXPECT_EQ(Ledger(), Lines{}) << amount;
        EXPECT_EQ(Totals(cash) + " " + Totals(sales), "0|0 0|0") << amount;
        EXPECT_EQ(qm::Conn().TransDepth(), 0);
    }
}

TEST_F(VoucherCalls, ReverseNamesNoYearAndTestsThreeValued) {
    Post("D", cash);
    Post("C", sales);
    books.Run("Update tb_Ledger2001 Set LedgerDrAmt = Null Where LedgerCode = " + Id(sales));
    books.Run("Insert Into Ledger_Details (Ledger_ID, Fnncl_Yr, Opening_Bal, Bal_Type) Values (" + Id(cash) +
              ", 2002, 0, 'D')");
    qm::ReverseVoucher(1, qm::Conn());
    EXPECT_EQ(Ledger(), Lines{});
    EXPECT_EQ(Totals(cash), "0|0");             // the 0 of the credit side ran as "- 0" over a Null
    EXPECT_EQ(Totals(cash, "2002"), "-100|0");  // the other year's row went down with it
    EXPECT_EQ(Totals(sales), "Null|0");         // the Null was passed over
}

TEST_F(VoucherCalls, PostVoucherRowWritesTheRowOnly) {
    const basic::Value date = std::string("01-Apr-2001");  // then the codes: a receipt on the credit side
    EXPECT_EQ(qm::PostVoucherRow(5, date, 2, 1, "goods", 12.5, cash, "Cash Box"), 5);
    EXPECT_EQ(books.Rows("Select LedgerTrnNo, LedgerTxnDate, LedgerTrnType, LedgerDrAmt, LedgerCrAmt, "
                         "LedgerLedBal, LedgerMcGenerated From tb_Ledger2001"),
              Lines{"5|36980|Receipt|0|12.5|Null|False"});
    EXPECT_EQ(Totals(cash), "Null|Null");
    boxes.ExpectLog("Module-FDBCode", "");
    EXPECT_EQ(qm::PostVoucherRow(6, date, 4, 0, "goods", 12.5, cash, "Cash Box"), 0);
    // Inside the caller's transaction it undoes its own part only.
    qm::Conn().BeginTrans();
    EXPECT_EQ(qm::PostVoucherRow(7, date, 3, 0, "goods", 1, cash, "Cash Box"), 7);
    boxes.ExpectLog("Module-FDBCode", "");
    EXPECT_EQ(qm::PostVoucherRow(7, date, 3, 2, "goods", 1, cash, "Cash Box"), 0);
    EXPECT_EQ(qm::Conn().TransDepth(), 1);
    qm::Conn().CommitTrans();
    EXPECT_EQ(Ledger().size(), 2U);
}

}  // namespace
