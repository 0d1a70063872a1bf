#include <gmock/gmock.h>

#include "host/doors/Posting.h"
#include "tests/support/BoxScript.h"
#include "tests/support/FreshBooks.h"

// A row that fails half-way through a file that was without fault when it was checked: somebody else was in
// the books meanwhile.
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PostingOfFile : public testing::Test {
  protected:
    // Three vouchers of two rows each, at lines 2 to 7, checked against the books as they are now.
    PostingOfFile() {
        std::vector<host::CsvRow> rows{
            {1, {"voucher", "date", "type", "side", "ledger", "amount", "narration"}}};
        int line = 2;
        for (const char* voucher : {"a", "b", "c"})
            for (const char* side : {"D", "C"})
                rows.push_back({line++,
                                {voucher, "02-Apr-2001", "Receipt", side,
                                 *side == 'D' ? "Cash Box" : "Sales A/c", "100", "n"}});
        file = host::CheckVouchers(rows, books.Host(), 2001);
        EXPECT_EQ(file.faults.size(), 0U);
    }
    // Runs the statement when `after` rows are done.
    host::PostingResult PostAll(std::size_t after, const std::string& statement, bool atOnce = false) {
        return (atOnce ? host::PostAtOnce : host::PostVouchers)(books.Host(), file, 2001,
                                                                [&](std::size_t done) {
                                                                    if (done == after) books.Run(statement);
                                                                    return true;
                                                                });
    }
    std::string Failure(const host::PostingResult& result) {
        if (!result.failure) return "none";
        return std::to_string(result.failure->line) + " " + result.failure->column + ": " +
               result.failure->reason;
    }
    std::string Log() { return books.One("Select Sum(1) From tblError"); }
    std::vector<std::string> Standing() {
        return books.Rows("Select LedgerTrnNo, LedgerCode, LedgerDrAmt, LedgerCrAmt From tb_Ledger2001");
    }
    std::string TotalsOf(int ledger) {
        return books.One("Select LedDetDRTxnTot, LedDetCRTxnTot From Ledger_Details Where Ledger_ID = " +
                         std::to_string(ledger));
    }

    test::FreshBooks books{2001};
    test::BoxScript boxes;  // no box comes: the reason stands in the result
    int cash = books.AddLedger("Cash Box", "Cash In Hand");
    int sales = books.AddLedger("Sales A/c", "Sales");
    int bank = books.AddLedger("Current Account", "Bank");
    host::VoucherFile file;
};

const std::string NoDetails = "(no row of the ledger or of its details could be written)";

TEST_F(PostingOfFile, TakesBackTheRowsOfAVoucherThatFailsHalfWay) {
    const host::PostingResult result =
        PostAll(3, "Delete From Ledger_Details Where Ledger_ID = " + std::to_string(sales));
    EXPECT_EQ(Failure(result),
              "5 voucher: voucher b could not be posted " + NoDetails + "; its rows were taken back");
    ASSERT_EQ(result.posted.size(), 1U);
    EXPECT_EQ(result.posted[0].key, "a");
    EXPECT_EQ(result.posted[0].number, 1);
    EXPECT_THAT(Standing(), ElementsAre("1|17|100|0", "1|18|0|100"));
    EXPECT_EQ(TotalsOf(cash), "100|0");
}

TEST_F(PostingOfFile, LeavesTheRowsWhereAnotherProgramWroteUnderTheNumber) {
    books.Run("Delete From Ledger_Details Where Ledger_ID = " + std::to_string(sales));
    const host::PostingResult result =
        PostAll(1, "Insert Into tb_Ledger2001 (LedgerTrnNo, LedgerCode, LedgerDrAmt) Values (1, 17, 5)");
    EXPECT_EQ(Failure(result), "3 voucher: voucher a could not be posted " + NoDetails +
                                   "; another program wrote under its number, so 1 of its rows under number "
                                   "1 still stand: remove them by hand");
    EXPECT_THAT(result.posted, IsEmpty());
    EXPECT_THAT(Standing(), ElementsAre("1|17|100|0", "1|17|5|Null"));
    EXPECT_EQ(TotalsOf(cash), "100|Null");
}

TEST_F(PostingOfFile, SaysSoWhereNothingStandsOrNothingCanBeTakenBack) {
    books.Run("Delete From Ledger_Details Where Ledger_ID = " + std::to_string(cash));
    EXPECT_EQ(Failure(PostAll(9, "")),
              "2 voucher: voucher a could not be posted " + NoDetails + "; nothing of it was posted");
    EXPECT_THAT(Standing(), IsEmpty());
}

TEST_F(PostingOfFile, SaysWhichRowsStandWhereTheyCannotBeTakenBack) {
    const host::PostingResult result =
        PostAll(1, "Delete From Ledger_Details Where Ledger_ID <> " + std::to_string(bank));
    EXPECT_EQ(Failure(result),
              "3 voucher: voucher a could not be posted " + NoDetails +
                  "; its rows could not be taken back: 1 of its rows under number 1 still stand");
    EXPECT_THAT(Standing(), ElementsAre("1|17|100|0"));
}

// Another program makes 2002 the current year, between two vouchers and within one that then fails.
TEST_F(PostingOfFile, StopsWhereTheCurrentYearHasMoved) {
    books.Run("Select * Into tb_Ledger2002 From tblSysLedgerStr");
    books.Run("Insert Into tb_Ledger2002 (LedgerTrnNo, LedgerCode) Values (2, 17)");
    books.Run("Insert Into Fnncl_Yr_Mstr (Fnncl_Yr, Crrnt_Yr_Flg) Values (\"2002-2003\", False)");
    const std::string move = "Update Fnncl_Yr_Mstr Set Crrnt_Yr_Flg = Iif(Fnncl_Yr = \"2002-2003\", 1, 0)";
    const auto back = [&] { books.Host().SetGetFinancialYear("2001"), books.Host().StartDataConn(); };
    EXPECT_EQ(Failure(PostAll(2, move)),
              "4 date: voucher b could not be posted (the file was checked for 2001, and another program has "
              "made 2002 the current year); nothing of it was posted");
    EXPECT_THAT(Standing(), ElementsAre("1|17|100|0", "1|18|0|100"));
    back();
    books.Run("Update Ledger_Details Set Ledger_ID = 99 Where Ledger_ID = " + std::to_string(sales));
    EXPECT_EQ(Failure(PostAll(1, move)), "3 voucher: voucher a could not be posted " + NoDetails +
                                             "; another program has moved the current year, so 1 of its rows "
                                             "under number 2 still stand: remove them by hand");
    EXPECT_EQ(books.One("Select LedgerTrnNo From tb_Ledger2002"), "2");
    back();
}

TEST_F(PostingOfFile, AtOnceLeavesNothingButTheErrorLog) {
    const auto result =
        PostAll(3, "Delete From Ledger_Details Where Ledger_ID = " + std::to_string(sales), true);
    EXPECT_EQ(Failure(result),
              "5 voucher: voucher b could not be posted " + NoDetails + "; nothing of the file was posted");
    EXPECT_THAT(result.posted, IsEmpty());
    EXPECT_THAT(Standing(), IsEmpty());
    EXPECT_EQ(TotalsOf(cash) + TotalsOf(sales), "Null|NullNull|Null");
    EXPECT_EQ(Log(), "1");
    // Here the class's failure step, which rolls back whatever is open, ends the one transaction itself.
    books.Run(
        "Update Ledger_Details Set Bal_Type = 'C', Opening_Bal = 1.7E308, LedDetCRTxnTot = 1.7E308 Where "
        "Ledger_ID = " +
        std::to_string(cash));
    EXPECT_THAT(Failure(PostAll(9, "", true)),
                testing::StartsWith("2 voucher: voucher a could not be posted (Overflow)"));
    EXPECT_THAT(Standing(), IsEmpty());
    EXPECT_EQ(Log(), "2");
}

TEST_F(PostingOfFile, StopsBeforeTheNextVoucherWhenAsked) {
    const auto result =
        host::PostVouchers(books.Host(), file, 2001, [](std::size_t done) { return done < 1; });
    EXPECT_EQ(Failure(result), "4 voucher: stopped before voucher b; nothing of it was posted");
    EXPECT_THAT(Standing(), ElementsAre("1|17|100|0", "1|18|0|100"));
}

}  // namespace
