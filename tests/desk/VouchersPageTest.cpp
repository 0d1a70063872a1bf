#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMenu>
#include <QTableView>
#include <QToolButton>

#include "core/DBCode.h"
#include "platform/ado/Connection.h"
#include "platform/basic/Dates.h"
#include "tests/desk/DeskFixture.h"
#include "vouchers/VoucherGrid.h"
#include "vouchers/frmVoucher.h"

namespace {

using VouchersPageTest = test::DeskTest;

TEST_F(VouchersPageTest, EnterOpensTheVoucherAndComesBackToItsLineBroughtUpToDate) {
    StartOnVouchers();
    for (int i = 0; i < 5; ++i) Key(Qt::Key_Down);
    EXPECT_EQ(CurrentLine(),
              "07-Apr-2001|3|Payment|Current Account||40,000.00|Part payment of the opening balance");
    script.Modal("frmVoucher", [this](forms::Form& form) {
        EXPECT_EQ(static_cast<qm::frmVoucher&>(form).ui().txtVoucherNo->Text(), "3");
        // Meanwhile two lines come in above it.
        test::FreshBooks::Run(NewLines("LedgerTrnNo = 1", "36981, 1, 0, 'early'"));
        test::FreshBooks::Run("Update tb_Ledger2001 Set LedgerNarration = 'changed' Where LedgerTrnNo = 3");
    });
    Key(Qt::Key_Return);
    WaitForTotals("144 lines");
    EXPECT_EQ(CurrentLine(), "07-Apr-2001|3|Payment|Current Account||40,000.00|changed");
    EXPECT_EQ(Sheet().Current(), 7u);
}

TEST_F(VouchersPageTest, ChipsNarrowTheLinesAndTheirTotalsByKeysAlone) {
    StartOnVouchers();
    const struct {
        std::vector<std::string> Keys;
        const char* Where;  // what the chips leave by now
    } steps[] = {
        {{"Ctrl+F", "'shop rent"}, "LedgerNarration Like '%shop%rent%'"},
        {{"Alt+P", "Y"},
         "LedgerNarration Like '%shop%rent%' And LedgerTxnDate >= 37010 And LedgerTxnDate <= 37040"},
        {{"Alt+A"}, "LedgerTrnNo > 0"},
        {{"Alt+P", "Up", "'16", "Return"}, "LedgerTxnDate >= 36995"},
        {{"Alt+T", "C"}, "LedgerTxnDate >= 36995 And LedgerTrnType = 'Contra'"},
        {{"Alt+P", "W"}, "LedgerTrnType = 'Contra'"},
        {{"Alt+N", "'10000", "Return"}, "LedgerTrnType = 'Contra' And LedgerDrAmt + LedgerCrAmt >= 10000"},
        {{"Alt+A", "Ctrl+F", "'rent", "Alt+T", "P"},
         "LedgerNarration Like '%rent%' And LedgerTrnType = 'Payment'"},
        {{"Alt+A", "Alt+L", "'trial", "Return"}, "LedgerName = 'Trial Office Supplies'"},
    };
    for (const auto& [keys, where] : steps) {
        SCOPED_TRACE(where);
        Press(keys);
        const QStringList sums =
            QString::fromStdString(
                test::FreshBooks::One(
                    std::string(
                        "Select Sum(1), Sum(LedgerDrAmt), Sum(LedgerCrAmt) From tb_Ledger2001 Where ") +
                    where))
                .split('|');
        const QLocale english(QLocale::English);
        WaitForTotals(QString("%1 lines, Debit %2, Credit %3")
                          .arg(sums[0], english.toString(sums[1].toDouble(), 'f', 2),
                               english.toString(sums[2].toDouble(), 'f', 2))
                          .toUtf8());
    }
    // No words are left, and nothing to clear.
    const auto* const cross = desk->Shown()->findChild<QLineEdit*>("words")->findChild<QToolButton*>();
    EXPECT_TRUE(QTest::qWaitFor([&] { return cross->property("opacity").toReal() == 0; }));
}

// A name is never markup, nor its & the mark of a letter.
TEST_F(VouchersPageTest, ANameStandsAsItIsWhereverItIsShown) {
    StartOnVouchers();
    test::FreshBooks::Run("Update Ledger_Master Set Name = 'Shop & <b>Rent</b>' Where Name = 'Shop Rent'");
    auto& menu = *desk->Shown()->findChild<QMenu*>("ledger");
    menu.popup({});
    auto& part = *menu.findChild<QLineEdit*>();
    QTest::keyClicks(&part, "shop");
    QTest::keyClick(&part, Qt::Key_Return);
    WaitForTotals("12 lines");
    EXPECT_THAT(static_cast<QAbstractButton*>(menu.parentWidget())->text().toStdString(),
                testing::StartsWith("Shop && <b>Rent</b>"));
    Key(Qt::Key_F, Qt::ControlModifier);
    Type("none");
    ASSERT_TRUE(QTest::qWaitFor([&] { return !Sheet().View().isVisible(); }));
    for (const QLabel* const label : desk->Shown()->findChildren<QLabel*>())
        EXPECT_FALSE(label->textFormat() != Qt::PlainText && Qt::mightBeRichText(label->text()))
            << label->text().toStdString();
}

// The toolkit has some of them for itself there: Ctrl+Y takes back what was undone.
TEST_F(VouchersPageTest, TheDesksKeysWorkInATextBoxToo) {
    StartOnVouchers();
    Key(Qt::Key_F, Qt::ControlModifier);
    Type("rent");
    Key(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_TRUE(desk->findChild<QComboBox*>("year")->view()->isVisible());
}

TEST_F(VouchersPageTest, AFigureOfFifteenDigitsIsNotCut) {
    StartOnVouchers();
    test::FreshBooks::Run("Update tb_Ledger2001 Set LedgerDrAmt = 999999999999999 Where LedgerTrnNo = 1");
    WaitForTotals("Debit 2,000,000,001,675,300.00");
    const auto& table = dynamic_cast<QTableView&>(Sheet().View());
    EXPECT_GT(table.columnWidth(4), table.fontMetrics().horizontalAdvance("2,000,000,001,675,300.00"));
}

TEST_F(VouchersPageTest, AnotherProgramsLinesShowByThemselvesUnderTheSameRowFilterAndScroll) {
    StartOnVouchers();
    Key(Qt::Key_F, Qt::ControlModifier);
    Type("rent");
    WaitForTotals("24 lines");
    Sheet().View().setFocus();
    for (int i = 0; i < 20; ++i) Key(Qt::Key_Down);
    const std::string row = CurrentLine();
    const int place = Sheet().View().visualRect(Sheet().View().currentIndex()).top();
    ado::Connection other;
    other.Properties("Data Source") = books.DataPath() + qm::BooksFile;
    other.Properties("Jet OLEDB:Database Password") = qm::BooksPassword;
    other.Open();
    other.Execute(NewLines("LedgerTrnNo = 1", "36981, 1, 0, 'Rent of a stall'"));
    WaitForTotals("26 lines");
    EXPECT_EQ(CurrentLine(), row);
    EXPECT_EQ(Sheet().View().visualRect(Sheet().View().currentIndex()).top(), place);
}

TEST_F(VouchersPageTest, ACopyPostsNothingBeforeSaveAndThenAsANewVoucher) {
    StartOnVouchers();
    const auto posted = [] {
        return test::FreshBooks::One(
            "Select Sum(1), Sum(LedgerDrAmt) From tb_Ledger2001 Where LedgerNarration = 'Salaries of March'");
    };
    script.Modal("frmVoucher", [&](forms::Form& form) {
        auto& ui = static_cast<qm::frmVoucher&>(form).ui();
        EXPECT_EQ(ui.txtVoucherNo->Text(), "<New>");
        EXPECT_EQ(ui.cmbVoucherType->Text(), "Payment");
        EXPECT_EQ(ui.vsVoucher->TextMatrix(1, qm::Ledger), "Salaries Payable");
        EXPECT_EQ(posted(), "2|21000");
        ui.dtpDate->SetValue(basic::MakeDate(2001, 4, 30));
        ASSERT_TRUE(QTest::qWaitForWindowActive(static_cast<QWidget*>(form.Window())));
        QTest::keyClick(form.Window()->focusWidget(), Qt::Key_S, Qt::ControlModifier);
    });
    script.Box("Voucher Saved with no. '" +
               test::FreshBooks::One("Select Max(LedgerTrnNo) + 1 From tb_Ledger2001") + "'");
    Key(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(posted(), "4|42000");
    WaitForTotals("144 lines");
}

}  // namespace
