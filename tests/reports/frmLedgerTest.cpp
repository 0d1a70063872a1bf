#include "core/modGeneral.h"
#include "platform/basic/Dates.h"
#include "reports/frmLedger.h"
#include "tests/reports/ReportScreens.h"
#include "tests/support/Golden.h"

using namespace testing;

namespace {

class LedgerTest : public test::ScreenTest {
  protected:
    ~LedgerTest() override { form.Unload(); }

    std::string Report(const std::string& title) {
        form.BeginReport(title);
        form.EndReport();
        return form.ReportText();
    }

    qm::frmLedger form;
};

TEST_F(LedgerTest, ThreeTitlesGetAHeading) {
    form.SetFromDate(basic::MakeDate(2001, 4, 1));
    form.SetToDate(basic::MakeDate(2002, 3, 31));
    test::ExpectGolden("headings.html",
                       Report("Stock Ledger") + Report("Party Ledger") + Report("Trial Balance"));
    for (const char* title : {"Ledger", "party ledger", "Trial Balance ", ""})
        EXPECT_EQ(Report(title), EmptyPage) << title;
}

TEST_F(LedgerTest, TheButtonsStandAtSharesOfTheWidth) {
    Show(form);
    EXPECT_EQ(form.Caption(), "Ledger");
    EXPECT_NEAR(form.ui().cmdPrint->geometry().left(), form.Window()->width() * 4 / 10, 1)
        << "from the first";
    for (const int width : {form.Window()->width(), 1200, form.Window()->minimumWidth()}) {
        form.Window()->resize(width, 600);
        ASSERT_TRUE(QTest::qWaitFor([&] { return form.ui().ucHTMLBox->width() == width; }));
        const QRect print = form.ui().cmdPrint->geometry(), close = form.ui().cmdClose->geometry();
        EXPECT_NEAR(print.left(), width * 4 / 10, 1);
        EXPECT_NEAR(close.left(), width * 5 / 10, 1);
        EXPECT_LT(print.right() + 4, close.left());
        EXPECT_GE(print.width(), form.ui().cmdPrint->sizeHint().width());
        EXPECT_GE(close.width(), form.ui().cmdClose->sizeHint().width());
    }
}

// The words beside the report are the paper's own: its text is as it was.
TEST_F(LedgerTest, PaperTellsTheBooksAndThePeriod) {
    form.SetFromDate(basic::MakeDate(2001, 4, 1));
    form.SetToDate(basic::MakeDate(2002, 3, 31));
    qm::shared().DataPath = "/books/My Firm/";
    const std::pair<const char*, const char*> cases[] = {{"Ledger", "01-Apr-2001 to 31-Mar-2002"},
                                                         {"Trial Balance", "up to 31-Mar-2002"}};
    for (const auto& [title, period] : cases) {
        Report(title);
        const forms::html::Paper& paper = form.ui().ucHTMLBox->ui().dhtEdit->PaperUsed();
        EXPECT_EQ(paper.Title, title);
        EXPECT_EQ(paper.Source, "My Firm");
        EXPECT_EQ(paper.Period, period);
    }
}

TEST_F(LedgerTest, ABlankReportSaysSo) {
    const forms::DHTMLEdit& view = *form.ui().ucHTMLBox->ui().dhtEdit;
    Report("Trial Balance");
    EXPECT_EQ(view.BlankHint(), "Nothing to show for this period");
    books.AddLedger("Alpha", "Debtors", 100, "D");
    form.BeginReport("Trial Balance");
    form.PartyTrial({});
    form.EndReport();
    EXPECT_EQ(view.BlankHint(), "");
}

TEST_F(LedgerTest, PrintsThroughTheDialogAndCloses) {
    Report("Stock Ledger");
    Show(form);
    EXPECT_EQ(DialogOf([&] { Click(form.ui().cmdPrint); }), "Print");
    BringToFront(form);
    form.ui().ucHTMLBox->ui().dhtEdit->SetFocus();
    EXPECT_EQ(
        DialogOf([&] { QTest::keyClick(form.Window()->focusWidget(), Qt::Key_P, Qt::ControlModifier); }),
        "Print");
    BringToFront(form);
    QTest::keyClick(form.Window(), Qt::Key_C, Qt::AltModifier);
    EXPECT_FALSE(form.Loaded());
}

}  // namespace
