#include <gtest/gtest.h>

#include "core/modGeneral.h"
#include "tests/support/BoxScript.h"
#include "tests/support/FreshBooks.h"

namespace {

using Lines = std::vector<std::string>;

class YearCalls : public testing::Test {
  protected:
    qm::clQm& Host() { return books.Host(); }
    Lines Years() { return books.Rows("Select Fnncl_Yr, Crrnt_Yr_Flg From Fnncl_Yr_Mstr"); }
    Lines Details(const std::string& year) {
        return books.Rows(
            "Select Opening_Bal, Bal_Type, LedDetDRTxnTot, LedDetCRTxnTot, Closing_Bal From Ledger_Details "
            "Where Fnncl_Yr = " +
            year);
    }
    void SetTotals(int ledger, const std::string& debit, const std::string& credit) {
        books.Run("Update Ledger_Details Set LedDetDRTxnTot = " + debit + ", LedDetCRTxnTot = " + credit +
                  ", Closing_Bal = 7 Where Ledger_ID = " + std::to_string(ledger));
    }

    test::FreshBooks books;
    test::BoxScript boxes;
};

TEST_F(YearCalls, SetGetMovesTheFlagButNotTheYearString) {
    books.Run("Insert Into Fnncl_Yr_Mstr (Fnncl_Yr, Crrnt_Yr_Flg) Values ('2002-2003', False)");
    EXPECT_EQ(Host().SetGetFinancialYear("2001"), "2001");
    EXPECT_EQ(Host().SetGetFinancialYear("1999"), "");
    EXPECT_EQ(Years(), (Lines{"2001-2002|True", "2002-2003|False"}));
    EXPECT_EQ(Host().SetGetFinancialYear("2002"), "2002");
    EXPECT_EQ(Years(), (Lines{"2001-2002|False", "2002-2003|True"}));
    EXPECT_EQ(qm::shared().FinYear, "2001");
    Host().StartDataConn();
    EXPECT_EQ(qm::shared().FinYear, "2002");
    books.Run("Update Fnncl_Yr_Mstr Set Crrnt_Yr_Flg = False");
    EXPECT_EQ(Host().SetGetFinancialYear("2001"), "");
}

TEST_F(YearCalls, SetGetLogsAndRollsNothingBack) {
    qm::Conn().BeginTrans();
    books.Run("Update Fnncl_Yr_Mstr Set Fnncl_Yr = '2001-2009'");
    boxes.ExpectLog("ClQm", "");
    EXPECT_EQ(Host().SetGetFinancialYear("20\"02"), "");
    EXPECT_EQ(qm::Conn().TransDepth(), 1);
    qm::Conn().CommitTrans();
    EXPECT_EQ(Years(), Lines{"2001-2009|True"});
}

TEST_F(YearCalls, SetFinancialYearFoldsTheOldYearAndCopiesItUnfolded) {
    const struct {
        double opening;
        const char *side, *debit, *credit, *folded;
    } cases[] = {{100, "C", "200", "50", "50|D|0|0|0"}, {100, "C", "50", "200", "250|C|0|0|0"},
                 {100, "D", "50", "200", "50|C|0|0|0"}, {0, "D", "0", "0", "0|D|0|0|0"},
                 {100, "C", "100", "0", "0|C|0|0|0"},   {10, "X", "5", "5", "10|D|0|0|0"}};
    Lines before, folded;
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        SetTotals(books.AddLedger("L" + std::to_string(i), "Capital", cases[i].opening, cases[i].side),
                  cases[i].debit, cases[i].credit);
        folded.push_back(cases[i].folded);
    }
    before = Details("2001");
    EXPECT_FALSE(Host().SetFinancialYear("2002-2003"));
    EXPECT_EQ(Details("2002"), before);
    EXPECT_EQ(Details("2001"), folded);
    EXPECT_EQ(Years(), (Lines{"2001-2002|False", "2002-2003|True"}));
    EXPECT_EQ(books.Rows("Select * From tb_Ledger2002"), Lines{});
    EXPECT_EQ(qm::shared().FinYear, "2002");
}

TEST_F(YearCalls, ASecondSetFinancialYearDoublesRowsAndEndsAtTheTable) {
    SetTotals(books.AddLedger("L", "Capital", 100, "D"), "5", "0");
    Host().SetFinancialYear("2002-2003");
    EXPECT_EQ(Details("2002"), Lines{"100|D|5|0|7"});
    // The year string now reads 2002: its row is copied once more, and then both are folded.
    Host().SetFinancialYear("2002-2003");
    EXPECT_EQ(Details("2002"), (Lines{"105|D|0|0|0", "105|D|0|0|0"}));
    EXPECT_EQ(Years(), (Lines{"2001-2002|False", "2002-2003|False", "2002-2003|True"}));
    EXPECT_EQ(Details("2001"), Lines{"105|D|0|0|0"});
}

TEST_F(YearCalls, ANullYearEqualsNoneAndGivesUpItsFlag) {
    books.Run("Update Fnncl_Yr_Mstr Set Fnncl_Yr = Null");
    books.Run("Insert Into Fnncl_Yr_Mstr (Fnncl_Yr, Crrnt_Yr_Flg) Values ('2002-2003', False)");
    EXPECT_EQ(Host().SetGetFinancialYear("2002"), "2002");
    EXPECT_EQ(Years(), (Lines{"Null|False", "2002-2003|True"}));
}

TEST_F(YearCalls, ANullTotalEndsTheFoldHalfWay) {
    SetTotals(books.AddLedger("First", "Capital", 100, "D"), "1", "0");
    books.AddLedger("Never posted", "Capital", 5, "D");
    SetTotals(books.AddLedger("Last", "Capital", 100, "D"), "1", "0");
    EXPECT_FALSE(Host().SetFinancialYear("2002-2003"));
    EXPECT_EQ(Details("2001"), (Lines{"101|D|0|0|0", "5|D|Null|Null|0", "100|D|1|0|7"}));
    EXPECT_EQ(Details("2002").size(), 3U);
    EXPECT_EQ(Years(), Lines{"2001-2002|True"});
}

TEST_F(YearCalls, OddArgumentsDoNothing) {
    for (const char* text : {"2002-20031", "", "    -2003"}) EXPECT_FALSE(Host().SetFinancialYear(text));
    EXPECT_EQ(Years(), Lines{"2001-2002|True"});
}

}  // namespace
