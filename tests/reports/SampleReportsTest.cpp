// The reports over the sample books. The figures of the golden pages were worked out from the two files in
// data/sample alone, by adding each ledger's lines to its opening in decimals; the narrations were cut after
// the 35th letter.
#include "host/commands/Sample.h"
#include "reports/frmTPL.h"
#include "tests/accounts/PartyScreens.h"

namespace {

class SampleReportsTest : public PartyLedgerTest {
  protected:
    SampleReportsTest() {
        books.CloseHost();
        host::FillWithSample(books.DataPath(), 2001);
        books.OpenHost();
    }
};

TEST_F(SampleReportsTest, StatementsOfTwoMonths) {
    OpenScreen();
    screen.ui().dtpDateFrom->SetValue(Date(31));
    screen.ui().dtpDateUpTo->SetValue(Date(91));
    test::ExpectGolden("sample-statements.html", Statements());
}

// Nothing was posted to the three ledgers without figures: their totals stay Null, and so does the closing
// balance after the rebuild. The foot leaves them out, so its closing sides differ.
TEST_F(SampleReportsTest, TrialBalanceOfTheYear) {
    basic::Clock::Set(basic::MakeDate(2002, 3, 31));
    OpenScreen();
    test::ExpectGolden("sample-trial-balance.html", TrialBalance());
}

// Here the ledgers without rows stand with their openings, so that both sides agree; two that came to nothing
// have no line.
TEST_F(SampleReportsTest, FinalResultsOfTheYear) {
    basic::Clock::Set(basic::MakeDate(2002, 3, 31));
    auto& results = forms::Default<qm::frmTPL>();
    Show(results);
    Click(results.ui().cmdView);
    test::ExpectGolden("sample-results.html", results.ui().ucHTMLBox->ui().dhtEdit->DocumentHTML());
    results.Unload();
}

}  // namespace
