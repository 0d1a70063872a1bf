#include <QMenu>

#include "tests/desk/DeskFixture.h"

namespace {

using PartiesPageTest = test::DeskTest;

TEST_F(PartiesPageTest, WhoOwesForLongIsThreeKeysAwayAndTheStatementOneMore) {
    FillWithSample();
    Start();
    desk->Go("parties");
    WaitForTotals("2 rows, Balance 114,654.00");
    Child<QMenu>("age").popup({});
    QTest::keyClick(&Child<QMenu>("age"), Qt::Key_9);
    WaitForTotals("Over 90 42,152.00");
    Key(Qt::Key_Down);
    EXPECT_EQ(CurrentLine(), "Trial Office Supplies|Debtors|84,902.00|||72,502.00|12,400.00");
    Key(Qt::Key_Return);
    EXPECT_EQ(Title(), "Trial Office Supplies");
    EXPECT_THAT(Sheet().TotalsText().toStdString(), testing::EndsWith("Balance 84,902.00"));
    Key(Qt::Key_Left, Qt::AltModifier);
    EXPECT_THAT(CurrentLine(), testing::StartsWith("Trial Office Supplies|"));
    Key(Qt::Key_W, Qt::AltModifier);
    WaitForTotals("Balance -");
}

}  // namespace
