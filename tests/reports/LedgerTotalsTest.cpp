// The totals rebuild in its forms: up to a day or over the whole year, with the totals zeroed first or not.
#include <gmock/gmock.h>

#include "platform/ado/Errors.h"
#include "reports/LedgerTotals.h"
#include "tests/reports/ReportScreens.h"

using namespace testing;

namespace {

class LedgerTotalsTest : public ReportScreensTest {
  protected:
    // Totals and closing balance as an earlier rebuild might have left them.
    int AddLedger(const std::string& name, double opening, const std::string& side = "D") {
        const int id = books.AddLedger(name, "Bank", opening, side);
        Run("Update Ledger_Details Set LedDetDRTxnTot = 900, LedDetCRTxnTot = 90, Closing_Bal = 9");
        return id;
    }
    static void Post(const std::string& ledger, int day, const std::string& debit,
                     const std::string& credit) {
        Run("Insert Into tb_Ledger2001 (LedgerTrnNo, LedgerCode, LedgerTxnDate, LedgerDrAmt, LedgerCrAmt) "
            "Values (1, " +
            ledger + ", " + Day(day) + ", " + debit + ", " + credit + ")");
    }
    static void Set(int ledger, const std::string& value) {
        Run("Update Ledger_Details Set " + value + " Where Ledger_ID = " + std::to_string(ledger));
    }
    static Lines Totals() {
        return Rows(
            "Select Name, LedDetDRTxnTot, LedDetCRTxnTot, Closing_Bal From Ledger_Master, Ledger_Details "
            "Where Ledger_Master.Ledger_ID = Ledger_Details.Ledger_ID Order By Name, Fnncl_Yr");
    }
};

// Early has rows in April and May, Late in May only, Idle none; Nulls has a row without amounts. Neither has
// no side and keeps its closing balance; one without an opening gets none. Next year's row is left alone, and
// so is a row for a ledger that has gone.
TEST_F(LedgerTotalsTest, AreWhatTheRowsAddUpTo) {
    const int early = AddLedger("Early", 100), late = AddLedger("Late", 20, "C");
    AddLedger("Idle", 5);
    const int nulls = AddLedger("Nulls", 30, "C"), neither = AddLedger("Neither", 8);
    const int unopened = AddLedger("Unopened", 0);
    Set(neither, "Bal_Type = Null");
    Set(unopened, "Opening_Bal = Null");
    Run("Insert Into Ledger_Details (Ledger_ID, Fnncl_Yr, Opening_Bal, Bal_Type, LedDetDRTxnTot, "
        "LedDetCRTxnTot, Closing_Bal) Values (" +
        std::to_string(early) + ", 2002, 1, 'D', 2, 3, 4)");
    Post(std::to_string(early), 30, "50", "0");
    Post(std::to_string(early), 31, "1", "Null");
    Post(std::to_string(late), 31, "0", "7");
    Post(std::to_string(nulls), 5, "Null", "Null");
    Post(std::to_string(neither), 5, "3", "0");
    Post(std::to_string(unopened), 5, "2", "0");
    Post("9999", 5, "4", "4");
    const std::int32_t april = 36979 + 30;
    using enum qm::BeforeRebuild;
    const struct {
        std::optional<std::int32_t> upto;
        qm::BeforeRebuild before;
        const char *early, *late, *idle;
    } cases[] = {
        {april, KeepTotals, "50|0|150", "900|90|790", "900|90|815"},
        {{}, KeepTotals, "51|0|151", "0|7|-27", "900|90|815"},
        {april, ZeroTotals, "50|0|150", "0|0|-20", "0|0|5"},
        {{}, ZeroTotals, "51|0|151", "0|7|-27", "0|0|5"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(&c - cases));
        Run("Update Ledger_Details Set LedDetDRTxnTot = 900, LedDetCRTxnTot = 90, Closing_Bal = 9 Where "
            "Fnncl_Yr = 2001");
        std::vector<int> done, steps;
        qm::RebuildLedgerTotals(c.upto, c.before, [&](int step, int of) {
            done.push_back(step);
            steps.push_back(of);
        });
        EXPECT_EQ(done.front(), 0) << "before the first is written";
        EXPECT_EQ(done.back(), static_cast<int>(done.size()) - 1) << "each, one by one";
        EXPECT_THAT(steps, Each(done.back())) << "all of them";
        EXPECT_EQ(Totals(), (Lines{std::string("Early|") + c.early, "Early|2|3|4",
                                   std::string("Idle|") + c.idle, std::string("Late|") + c.late,
                                   "Neither|3|0|9", "Nulls|0|0|-30", "Unopened|2|0|Null"}));
    }
}

// The totals go into the statements as texts of 15 digits, which is what the tables then hold: ten times 0.1
// is 1 and not a little below.
TEST_F(LedgerTotalsTest, HoldTheDigitsOfTheText) {
    const int ledger = AddLedger("Dimes", 0);
    for (int i = 0; i < 10; ++i) Post(std::to_string(ledger), 5, "0.1", "1234567890123.45");
    qm::RebuildLedgerTotals();
    EXPECT_EQ(Rows("Select Name From Ledger_Master, Ledger_Details Where Ledger_Master.Ledger_ID = "
                   "Ledger_Details.Ledger_ID And LedDetDRTxnTot = 1 And LedDetCRTxnTot = 12345678901234.5"),
              Lines{"Dimes"});
}

// In no transaction: what was done before the statement that fails stays. A row that bears no ledger makes
// the first update of the sums fail; debits beyond a number make that of their ledger fail, behind the one
// before it, but on a server already the question for them.
TEST_F(LedgerTotalsTest, AFailureLeavesWhatWasDoneBeforeIt) {
    const int early = AddLedger("Early", 100), late = AddLedger("Late", 20, "C");
    Post(std::to_string(early), 5, "50", "1");
    for (int i = 0; i < 2; ++i) Post(std::to_string(late), 5, "1.7E+308", "2");
    const auto rebuild = [] { qm::RebuildLedgerTotals({}, qm::BeforeRebuild::ZeroTotals); };
    EXPECT_EQ(test::ErrorOf(rebuild), basic::error::Overflow);
    EXPECT_EQ(Totals(), test::OnServer() ? (Lines{"Early|900|90|9", "Late|900|90|9"})
                                         : (Lines{"Early|50|90|9", "Late|0|90|9"}));
    Run("Delete From tb_Ledger2001 Where LedgerDrAmt > 50");
    Post("Null", 5, "50", "0");
    Run("Update Ledger_Details Set LedDetDRTxnTot = 900");
    EXPECT_EQ(test::ErrorOf(rebuild), ado::error::Statement);
    EXPECT_EQ(Totals(), (Lines{"Early|0|90|9", "Late|0|90|9"}));
}

}  // namespace
