#include <QTreeView>

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
}

}  // namespace
