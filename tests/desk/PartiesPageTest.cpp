#include "tests/desk/DeskFixture.h"

namespace {

using PartiesPageTest = test::DeskTest;

TEST_F(PartiesPageTest, WhoOwesForLongIsThreeKeysAwayAndTheStatementOneMore) {
    FillWithSample();
    Start();
    Press({"Alt+5"});
    WaitForTotals("2 rows, Balance 114,654.00");
    // Each age by its letter: older than so many days, or between two.
    const std::pair<const char*, const char*> ages[] = {{"U", "0 rows"}, {"3", "2 rows"},
                                                        {"T", "0 rows"}, {"6", "2 rows"},
                                                        {"D", "1 row"},  {"9", "Over 90 42,152.00"}};
    for (const auto& [letter, totals] : ages) {
        SCOPED_TRACE(letter);
        Press({"Alt+O", letter});
        WaitForTotals(totals);
    }
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
