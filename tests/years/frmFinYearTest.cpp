#include "tests/years/YearScreens.h"
#include "years/frmFinYear.h"
#include "years/frmNewFinYear.h"

namespace {

class FinYearTest : public YearScreensTest {
  protected:
    forms::ListBox& List() { return *form.ui().lstFinYear; }
    void ClickLine(int index) {
        QTest::mouseClick(List().viewport(), Qt::LeftButton, {},
                          List().visualItemRect(List().item(index)).center());
    }
    // The lines, the chosen one in brackets.
    Lines Shown() {
        Lines lines;
        for (int i = 0; i < List().ListCount(); ++i)
            lines.push_back(List().Selected(i) ? "[" + List().List(i) + "]" : List().List(i));
        return lines;
    }
    qm::frmFinYear form;
};

TEST_F(FinYearTest, SetMovesTheFlagAndLeavesTheYearString) {
    AddYear("2002-2003");
    AddYear("2003-2004");
    Show(form);
    EXPECT_EQ(Shown(), (Lines{"[2001-2002]", "2002-2003", "2003-2004"}));
    ClickLine(2);
    Key(form, Qt::Key_Up);
    EXPECT_EQ(Shown(), (Lines{"2001-2002", "[2002-2003]", "2003-2004"}));
    Click(form.ui().cmdSet);
    EXPECT_EQ(Years(), (Lines{"2001-2002|False", "2002-2003|True", "2003-2004|False"}));
    EXPECT_EQ(Shown(), (Lines{"2001-2002", "[2002-2003]", "2003-2004"}));
    EXPECT_EQ(qm::shared().FinYear, "2001");
    List().SetFocus();
    Key(form, Qt::Key_Home);
    Key(form, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(Years(), (Lines{"2001-2002|True", "2002-2003|False", "2003-2004|False"}));
    EXPECT_TRUE(form.Visible());
    Key(form, Qt::Key_E, Qt::AltModifier);
    EXPECT_FALSE(form.Loaded());
}

TEST_F(FinYearTest, TheNewYearIsListedWhenItsScreenHasClosed) {
    Show(form);
    script.Modal("frmNewFinYear", [&](forms::Form& shown) {
        BringToFront(shown);
        Type(shown, "2002");
        Key(shown, Qt::Key_S, Qt::AltModifier);
        Key(shown, Qt::Key_E, Qt::AltModifier);
        EXPECT_FALSE(shown.Visible());
    });
    Key(form, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(Shown(), (Lines{"[2001-2002]", "2002-2003"}));
    ClickLine(1);
    script.Modal("frmNewFinYear", [](forms::Form& shown) { shown.Window()->close(); });
    Click(form.ui().cmdAdd);
    EXPECT_EQ(Shown(), (Lines{"[2001-2002]", "2002-2003"})) << "filled anew from the flags";
    Key(form, Qt::Key_X, Qt::ControlModifier);
    EXPECT_FALSE(form.Loaded());
}

// The remembered line counts, whatever the list shows, and it outlives the window.
TEST_F(FinYearTest, SetTakesTheRememberedLine) {
    AddYear("2002-2003");
    Run("Update Fnncl_Yr_Mstr Set Crrnt_Yr_Flg = False");
    Show(form);
    EXPECT_EQ(Shown(), (Lines{"2001-2002", "2002-2003"}));
    Key(form, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(Years(), (Lines{"2001-2002|True", "2002-2003|False"}));
    ClickLine(1);
    form.Window()->close();
    Run("Update Fnncl_Yr_Mstr Set Crrnt_Yr_Flg = False");
    Show(form);
    EXPECT_EQ(List().ListIndex(), -1);
    Key(form, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(Years(), (Lines{"2001-2002|False", "2002-2003|True"}));
}

TEST_F(FinYearTest, OfTwoFlaggedYearsTheLastStandsSelectedAlone) {
    AddYear("2002-2003");
    Run("Update Fnncl_Yr_Mstr Set Crrnt_Yr_Flg = True");
    Show(form);
    EXPECT_EQ(Shown(), (Lines{"2001-2002", "[2002-2003]"}));
    form.Window()->close();
}

TEST_F(FinYearTest, NoYearAtAllIsAnErrorThatNobodyTraps) {
    Run("Delete From Fnncl_Yr_Mstr");
    script.Box(
        "Run-time error '3021':\n\nEither BOF or EOF is True, or the current record has been deleted. The "
        "operation needs a current record.");
    form.Show();
    EXPECT_TRUE(form.Visible());
    form.Unload();
}

}  // namespace
