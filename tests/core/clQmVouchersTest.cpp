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
    qm::clQm& Host() { return books.Host(); }
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
    bool Post(int voucher, const std::string& side, double amount, int ledger,
              const std::string& category = "J", const std::string& name = "A",
              const std::string& narration = "text") {
        return Host().InsertVoucher(voucher, 36980, category, side, narration, amount, ledger, name);
    }

    test::FreshBooks books;
    test::BoxScript boxes;
    int cash = books.AddLedger("Cash Box", "Cash In Hand", 0, "D");
    int sales = books.AddLedger("Sales A/c", "Sales", 500, "C");
};

TEST_F(VoucherCalls, PostsTheRowAndTheTotalWithTheBalanceBefore) {
    EXPECT_EQ(Host().GetNextTrnID(), 1);
    EXPECT_TRUE(Post(1, "d", 100, cash, "r", "Cash Box", "it's \xe0\xa4\xa8\xe0\xa4\x95\xe0\xa4\xa6"));
    EXPECT_TRUE(Post(1, "C", 100, sales, "R", "Sales A/c"));
    EXPECT_TRUE(Post(2, "D", 0.1 + 0.2, cash, "P"));
    EXPECT_TRUE(Post(2, "C", 1234567.891, cash, "C"));
    EXPECT_EQ(Ledger(), (Lines{"1|" + Id(cash) + "|36980|Receipt|100|0|0Dr",
                               "1|" + Id(sales) + "|36980|Receipt|0|100|500Cr",
                               "2|" + Id(cash) + "|36980|Payment|0.3|0|100Dr",
                               "2|" + Id(cash) + "|36980|Contra|0|1234567.891|100.3Dr"}));
    EXPECT_EQ(Totals(cash), "100.3|1234567.891");
    EXPECT_EQ(Totals(sales), "Null|100");
    EXPECT_EQ(
        books.One("Select LedgerMcGenerated, LedgerVchrNo, LedgerName, LedgerNarration From tb_Ledger2001"),
        "True|Null|Cash Box|it's \xe0\xa4\xa8\xe0\xa4\x95\xe0\xa4\xa6");
    EXPECT_EQ(Host().GetNextTrnID(), 3);
    EXPECT_EQ(Host().VchrTrnNo(), basic::Value(std::int32_t{3}));
    EXPECT_TRUE(Host().GetVchrNoFromTxnNo(1).IsNull());
    EXPECT_EQ(test::ErrorOf([&] { Host().GetVchrNoFromTxnNo(9); }), basic::error::Subscript);
}

TEST_F(VoucherCalls, FailuresLogAndLeaveNothing) {
    struct Case {
        std::string side, category, name, narration;
        int ledger;
        const char* description;
    };
    const Case cases[] = {
        {"D", "X", "A", "n", cash, "Number of query values"},  // a category of no type leaves a value out
        {"X", "J", "A", "n", cash, "Syntax error"},            // a side of neither leaves the update empty
        {"D", "J", "A", "n", 999, "\r"},                       // no detail row: a failed count says nothing
        {"D", "J", "A \"x\"", "n", cash, "Syntax error"},      // a double quote is not doubled
        {"D", "J", "A", "\"quoted\"", cash, "Syntax error"},
    };
    for (const Case& c : cases) {
        boxes.ExpectLog("Class-ClQm", c.description);
        EXPECT_FALSE(Post(1, c.side, 100, c.ledger, c.category, c.name, c.narration)) << c.description;
        EXPECT_EQ(qm::Conn().TransDepth(), 0);
    }
    EXPECT_EQ(Ledger(), Lines{});
    EXPECT_EQ(Totals(cash), "Null|Null");
    EXPECT_EQ(books.One("Select Max(ErrNumber) As N From tblError Where ErrDesc = ''"), "0");
    EXPECT_EQ(books.Rows("Select frmName From tblError").size(), std::size(cases));
}

TEST_F(VoucherCalls, NeverLoadsTheYear) {
    qm::shared().FinYear.clear();
    boxes.ExpectLog("Class-ClQm", "");
    EXPECT_FALSE(Post(1, "D", 100, cash));
    Host().GetNextTrnID();
    EXPECT_TRUE(Post(1, "D", 100, cash));
}

TEST_F(VoucherCalls, UpdateWritesAllRowsWithTheNewAmount) {
    Post(1, "D", 100, cash);
    Post(1, "C", 100, sales);
    EXPECT_TRUE(Host().UpdateVoucher(1, 36990, 200));
    EXPECT_EQ(Ledger(), (Lines{"1|" + Id(cash) + "|36990|Journal|200|0|0Dr",
                               "1|" + Id(sales) + "|36990|Journal|0|200|500Cr"}));
    EXPECT_EQ(Totals(cash), "200|0");
    EXPECT_EQ(Totals(sales), "0|200");
}

TEST_F(VoucherCalls, UpdateDropsARowWithBothAmountsAndIgnoresWhatInsertSays) {
    Post(1, "D", 100, cash);
    Post(1, "C", 40, sales);
    books.Run("Update tb_Ledger2001 Set LedgerCrAmt = 40 Where LedgerCode = " + Id(cash));
    books.Run("Update tb_Ledger2001 Set LedgerNarration = 'a \" in it' Where LedgerCode = " + Id(sales));
    boxes.ExpectLog("Class-ClQm", "");  // InsertVoucher of the second row
    EXPECT_TRUE(Host().UpdateVoucher(1, 36990, 200));
    EXPECT_EQ(Ledger(), Lines{});
    EXPECT_EQ(Totals(cash), "0|-40");  // both amounts were taken away
    EXPECT_EQ(qm::Conn().TransDepth(), 0);
}

TEST_F(VoucherCalls, UpdateCommitsTheReversalsWhereNoAmountCanBeWritten) {
    using Limits = std::numeric_limits<double>;
    for (const double amount :
         {Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN(), Limits::max()}) {
        Post(1, "D", 100, cash);
        Post(1, "C", 100, sales);
        boxes.ExpectLog("Class-ClQm", "Syntax error");
        boxes.ExpectLog("Class-ClQm", "Syntax error");
        EXPECT_TRUE(Host().UpdateVoucher(1, 36990, amount)) << amount;
        EXPECT_EQ(Ledger(), Lines{}) << amount;
        EXPECT_EQ(Totals(cash) + " " + Totals(sales), "0|0 0|0") << amount;
        EXPECT_EQ(qm::Conn().TransDepth(), 0);
    }
}

TEST_F(VoucherCalls, UpdateCommitsItsDeleteBeforeItCanFail) {
    Post(1, "D", 100, cash);
    Post(1, "C", 100, sales);
    books.Run("Delete From Ledger_Details Where Ledger_ID = " + Id(sales));
    boxes.ExpectLog("Class-ClQm", "");
    EXPECT_FALSE(Host().UpdateVoucher(1, 36990, 200));
    EXPECT_EQ(Ledger(), Lines{"1|" + Id(cash) + "|36990|Journal|200|0|0Dr"});
}

// A Null opening fails InsertVoucher before its own transaction begins, so its failure step undoes its
// caller's, and the caller then has none to commit.
TEST_F(VoucherCalls, AFailureBeforeItsTransactionUndoesTheCallers) {
    Post(1, "D", 100, cash);
    books.Run("Update Ledger_Details Set Opening_Bal = Null");
    boxes.ExpectLog("Class-ClQm", "Invalid use of Null");
    boxes.ExpectLog("Class-ClQm", "No transaction is active");
    EXPECT_FALSE(Host().UpdateVoucher(1, 36990, 200));
    EXPECT_EQ(Ledger(), Lines{});
    EXPECT_EQ(Totals(cash), "100|Null");  // the reversal was undone with the caller's transaction
    EXPECT_EQ(qm::Conn().TransDepth(), 0);
}

TEST_F(VoucherCalls, SomeLoadTheYearAndSomeTakeItAsItStands) {
    Post(1, "D", 100, cash);
    const auto withStaleYear = [&](const std::function<void()>& call) {
        qm::shared().FinYear = "1999";
        call();
        const std::string after = qm::shared().FinYear;
        qm::shared().FinYear = "2001";
        return after;
    };
    EXPECT_EQ(withStaleYear([&] { Host().GetNextTrnID(); }), "2001");
    EXPECT_EQ(withStaleYear([&] { EXPECT_TRUE(Host().UpdateVoucher(1, 36990, 5)); }), "2001");
    EXPECT_EQ(withStaleYear([&] { EXPECT_TRUE(Host().DeleteVoucher(1)); }), "2001");
    EXPECT_EQ(withStaleYear([&] { EXPECT_THROW(Host().VchrTrnNo(), basic::Error); }), "1999");
    EXPECT_EQ(withStaleYear([&] { EXPECT_THROW(Host().GetVchrNoFromTxnNo(1), basic::Error); }), "1999");
}

TEST_F(VoucherCalls, NothingToUpdateIsAFailureNothingToDeleteIsNot) {
    boxes.ExpectLog("Class-ClQm", "");
    EXPECT_FALSE(Host().UpdateVoucher(7, 36990, 200));
    EXPECT_FALSE(Host().UpdateVoucher(0, 36990, 200));
    EXPECT_FALSE(Host().DeleteVoucher(0));
    EXPECT_TRUE(Host().DeleteVoucher(7));
}

TEST_F(VoucherCalls, DeleteLeavesTheGapAndFailsBeforeTheRowsGo) {
    for (int voucher : {1, 2, 3}) {
        Post(voucher, "D", 10, cash);
        Post(voucher, "C", 10, sales);
    }
    EXPECT_TRUE(Host().DeleteVoucher(2));
    EXPECT_EQ(books.Rows("Select Distinct LedgerTrnNo From tb_Ledger2001"), (Lines{"1", "3"}));
    EXPECT_EQ(Totals(cash), "20|0");
    EXPECT_EQ(Host().GetNextTrnID(), 4);
    // The totals of the rows before the failure are already reduced, and the rows still stand.
    books.Run("Delete From Ledger_Details Where Ledger_ID = " + Id(sales));
    boxes.ExpectLog("Class-ClQm", "");
    EXPECT_FALSE(Host().DeleteVoucher(3));
    EXPECT_EQ(Totals(cash), "10|0");
    EXPECT_EQ(books.Rows("Select LedgerTrnNo From tb_Ledger2001 Where LedgerTrnNo = 3").size(), 2U);
}

TEST_F(VoucherCalls, ReverseNamesNoYearAndTestsThreeValued) {
    Post(1, "D", 100, cash);
    Post(1, "C", 100, sales);
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
