#include <QTreeView>

#include "accounts/Ledger_Master.h"
#include "tests/desk/DeskFixture.h"
#include "vouchers/frmVoucher.h"

namespace {

using LedgersPageTest = test::DeskTest;

// From a figure of the tree to the voucher that made it and back, by keys alone.
TEST_F(LedgersPageTest, LeadsFromAFigureToItsVoucherAndBackToTheSameRows) {
    FillWithSample();
    Start();
    Key(Qt::Key_3, Qt::AltModifier);
    WaitForTotals("rows");
    Type("model");
    EXPECT_EQ(CurrentLine(), "Model School Stores|46,200.00|199,752.00|216,200.00|29,752.00");
    Key(Qt::Key_Return);
    EXPECT_EQ(Title(), "Model School Stores");
    EXPECT_THAT(Sheet().TotalsText().toStdString(), testing::EndsWith("Balance 29,752.00"));
    for (int i = 0; i < 2; ++i) Key(Qt::Key_Down);
    EXPECT_EQ(CurrentLine(), "16-Apr-2001|5|Receipt|Cheque received||46,200.00|26,460.00");
    script.Modal("frmVoucher", [](forms::Form& form) {
        EXPECT_EQ(static_cast<qm::frmVoucher&>(form).ui().txtVoucherNo->Text(), "5");
    });
    Key(Qt::Key_Return);
    EXPECT_THAT(CurrentLine(), testing::StartsWith("16-Apr-2001|5|"));
    Key(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(Title(), "Ledgers");
    EXPECT_THAT(CurrentLine(), testing::StartsWith("Model School Stores|"));
    EXPECT_EQ(desk->focusWidget(), &Sheet().View());
    script.Modal("Ledger_Master", [](forms::Form& form) {
        auto& ledger = static_cast<qm::Ledger_Master&>(form);
        EXPECT_EQ(ledger.ui().txtLedName->Text(), "Model School Stores");
        EXPECT_EQ(ledger.ui().Combo1->Text(), "Debtors");
        EXPECT_EQ(ledger.ui().Text2->Text(), "46200");
        EXPECT_EQ(ledger.ui().Text1_12->Text(), " stores@example.org");
    });
    Key(Qt::Key_M, Qt::ControlModifier);
}

// The balances of a long statement are read beside the window: its end is empty until they are there.
TEST_F(LedgersPageTest, ALongStatementHasItsBalancesSoonAndKeepsItsRowWhenAnotherLineComes) {
    FillWithSample();
    books.OpenHost();
    for (int i = 0; i < 12; ++i)  // so many are added up aside
        test::FreshBooks::Run(
            "Insert Into tb_Ledger2001 (LedgerTrnNo, LedgerTxnDate, LedgerTrnType, LedgerCode, LedgerName, "
            "LedgerDrAmt, LedgerCrAmt, LedgerNarration) Select LedgerTrnNo, LedgerTxnDate, LedgerTrnType, "
            "LedgerCode, LedgerName, LedgerDrAmt, LedgerCrAmt, LedgerNarration From tb_Ledger2001 Where "
            "LedgerName = 'Model School Stores'");
    Start();
    Key(Qt::Key_3, Qt::AltModifier);
    WaitForTotals("rows");
    Type("model");
    Key(Qt::Key_Return);
    WaitForTotals("lines");
    Key(Qt::Key_End, Qt::ControlModifier);
    const std::string closing = Sheet().TotalsText().section(' ', -1).toStdString();
    ASSERT_TRUE(QTest::qWaitFor([&] { return CurrentLine().ends_with("|" + closing); })) << CurrentLine();
    const std::string last = CurrentLine();
    const std::size_t row = *Sheet().Current();
    test::FreshBooks::Run(NewLines(
        "LedgerTrnNo = 4 And LedgerName = 'Model School Stores' And LedgerDrAmt > 0", "36981, 0, 1, ''"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return *Sheet().Current() > row; }));
    EXPECT_EQ(CurrentLine().substr(0, 30), last.substr(0, 30));
    EXPECT_NE(CurrentLine(), last);  // one more in credit, each
}

}  // namespace
