#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMenu>
#include <QPushButton>
#include <QTableView>
#include <QToolButton>
#include <clocale>
#include <future>

#include "core/DBCode.h"
#include "desk/Books.h"
#include "platform/ado/Connection.h"
#include "platform/basic/Dates.h"
#include "tests/desk/DeskFixture.h"
#include "tests/desk/DialogUser.h"
#include "vouchers/VoucherGrid.h"
#include "vouchers/frmVoucher.h"

namespace {

class VouchersPageTest : public test::DeskTest {
  protected:
    void StartOnVouchers() {
        FillWithSample();
        Start();
        Key(Qt::Key_2, Qt::AltModifier);
        ASSERT_EQ(Title(), "Vouchers");
        WaitForTotals("142 lines");
    }
};

TEST_F(VouchersPageTest, EnterOpensTheVoucherAndComesBackToItsLineBroughtUpToDate) {
    StartOnVouchers();
    for (int i = 0; i < 5; ++i) Key(Qt::Key_Down);
    EXPECT_EQ(CurrentLine(),
              "07-Apr-2001|3|Payment|Current Account||40,000.00|Part payment of the opening balance");
    script.Modal("frmVoucher", [this](forms::Form& form) {
        EXPECT_EQ(static_cast<qm::frmVoucher&>(form).ui().txtVoucherNo->Text(), "3");
        // Meanwhile two lines come in above it.
        test::FreshBooks::Run(
            "Insert Into tb_Ledger2001 (LedgerTrnNo, LedgerTxnDate, LedgerTrnType, LedgerCode, "
            "LedgerName, LedgerDrAmt, LedgerCrAmt, LedgerNarration) Select 900, 36981, 'Journal', "
            "LedgerCode, LedgerName, 1, 0, 'early' From tb_Ledger2001 Where LedgerTrnNo = 1");
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
    other.Execute(
        "Insert Into tb_Ledger2001 (LedgerTrnNo, LedgerTxnDate, LedgerTrnType, LedgerCode, LedgerName, "
        "LedgerDrAmt, LedgerCrAmt, LedgerNarration) Select 900, 36981, 'Journal', LedgerCode, LedgerName, 1, "
        "0, 'Rent of a stall' From tb_Ledger2001 Where LedgerTrnNo = 1");
    WaitForTotals("26 lines");
    EXPECT_EQ(CurrentLine(), row);
    EXPECT_EQ(Sheet().View().visualRect(Sheet().View().currentIndex()).top(), place);
}

TEST_F(VouchersPageTest, AHeadSortsAndWhatIsCopiedIsWhatIsShown) {
    StartOnVouchers();
    auto& header = *dynamic_cast<QTableView&>(Sheet().View()).horizontalHeader();
    const auto click = [&](int section) {
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                          {header.sectionViewportPosition(section) + 20, header.height() / 2});
    };
    click(4);
    click(4);  // the greatest debit first
    ASSERT_TRUE(QTest::qWaitFor([this] { return Line(0).find("|95,000.00|") != std::string::npos; }))
        << Line(0);
    header.setSectionHidden(2, true);
    header.moveSection(header.visualIndex(4), 0);
    QTest::mouseClick(Sheet().View().viewport(), Qt::LeftButton, {}, {40, 10});
    Key(Qt::Key_C, Qt::ControlModifier);
    const QString text = QApplication::clipboard()->text();
    EXPECT_EQ(text.section('\n', 0, 0).toStdString(), "Debit\tDate\tVoucher\tLedger\tCredit\tNarration");
    EXPECT_EQ(text.section('\n', 1, 1).section('\t', 0, 0).toStdString(), "95000.00");
}

TEST_F(VouchersPageTest, TheLinesAndOneVoucherGoToPaperAndTheLinesToFiles) {
    StartOnVouchers();
    EXPECT_EQ(DialogOf(Qt::Key_P, Qt::ControlModifier), "Print");
    EXPECT_EQ(DialogOf(Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier), "Print");
    EXPECT_EQ(Told(), "nothing");
    const auto written = [this](desk::SheetFile kind, const char* name) {
        const std::filesystem::path file = settings / name;
        Sheet().Save(kind, QString::fromStdString(file.string()));
        EXPECT_TRUE(QTest::qWaitFor([&] { return Told() == "Written: " + file.string(); })) << Told();
        return test::Bytes(file);
    };
    EXPECT_THAT(written(desk::SheetFile::Csv, "a.csv"),
                testing::StartsWith("date,voucher,type,ledger,debit,credit,narration\r\n2001-04-02,1,"));
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr),
                 "C");  // a spreadsheet's figures bear a point in every language
    EXPECT_THAT(written(desk::SheetFile::Workbook, "a.xlsx"), testing::StartsWith("PK"));
    EXPECT_THAT(written(desk::SheetFile::Pdf, "a.pdf"), testing::StartsWith("%PDF"));
    // A name that was typed without its end.
    test::DialogUser user;
    user.Will({"'" + (settings / "a").string(), "Escape"});
    for (QAction* const action : desk->Shown()->findChildren<QAction*>())
        if (action->text().startsWith("&CSV")) action->trigger();
    EXPECT_TRUE(QTest::qWaitFor([&] { return user.Done(); }));
    EXPECT_THAT(user.Asked(), testing::EndsWith("a.csv stands there already. Is it to be replaced?"));
}

// The thread that writes files is held up as by a million lines.
TEST_F(VouchersPageTest, AFileIsWrittenWhateverIsLookedAtMeanwhileUnlessItIsCancelled) {
    StartOnVouchers();
    const auto hold = [this](std::future<void>& until) {
        desk->Books().Writer().Start(
            *desk, [&until](queries::Reading&, desk::Worker::Job&) { until.wait(); },
            [](std::exception_ptr) {});
    };
    const std::filesystem::path file = settings / "a.csv";
    const auto save = [&] { Sheet().Save(desk::SheetFile::Csv, QString::fromStdString(file.string())); };
    for (const bool cancelled : {true, false}) {
        std::promise<void> go;
        std::future<void> gone = go.get_future();
        hold(gone);
        save();
        Key(Qt::Key_F, Qt::ControlModifier);
        Type(cancelled ? "rent" : " shop");
        WaitForTotals("24 lines");
        Key(Qt::Key_3, Qt::AltModifier);
        auto& jobs = *desk->findChild<QWidget*>("fileJobs");
        auto& cancel = *jobs.findChildren<QWidget*>(Qt::FindDirectChildrenOnly).back();
        ASSERT_TRUE(QTest::qWaitFor([&] { return cancel.isVisible(); }));
        QWidget* const worked = desk->focusWidget();
        cancel.findChild<QPushButton*>("cancelJob")->setFocus();
        if (cancelled) Key(Qt::Key_Space);
        go.set_value();
        bool ended = false;
        desk->Books().Writer().Start(
            *desk, [](queries::Reading&, desk::Worker::Job&) {}, [&](std::exception_ptr) { ended = true; });
        ASSERT_TRUE(QTest::qWaitFor([&] { return ended; }));
        EXPECT_EQ(std::filesystem::exists(file), !cancelled);
        EXPECT_EQ(desk->focusWidget(), worked);
        EXPECT_EQ(Told(), cancelled ? "nothing" : "Written: " + file.string());
        Key(Qt::Key_2, Qt::AltModifier);
    }
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
