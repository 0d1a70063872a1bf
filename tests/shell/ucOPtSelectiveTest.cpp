// The list of records with its two choices, on a screen that embeds it.
#include <gmock/gmock.h>

#include "reports/frmItemLedger.h"
#include "tests/reports/ReportScreens.h"

using namespace testing;

namespace {

class SelectiveTest : public ReportScreensTest {
  protected:
    ~SelectiveTest() override { screen.Unload(); }

    static void AddItem(int id, const std::string& name) {
        Run("Insert Into ItemMaster2001 (Item_ID, Item_Name) Values (" + std::to_string(id) + ", " + name +
            ")");
    }
    void Fill() {
        screen.Show();
        BringToFront(screen);
    }
    auto& List() { return *screen.ui().ucItemLedger->ui().lstItem; }
    Lines Listed() {
        Lines lines;
        for (int i = 0; i < List().ListCount(); ++i)
            lines.push_back(List().List(i) + (List().Selected(i) ? " *" : ""));
        return lines;
    }

    qm::frmItemLedger& screen = forms::Default<qm::frmItemLedger>();
    qm::ucOPtSelective& selective = *screen.ui().ucItemLedger;
};

TEST_F(SelectiveTest, FillsOnceByFocusAndKeepsItsMarks) {
    AddItem(30000, "'b'");
    AddItem(3, "'a'");
    EXPECT_EQ(Listed(), Lines{});
    EXPECT_FALSE(selective.ui().optAll->Enabled());
    screen.Unload();
    Fill();
    qm::ucOPtSelective& shown = *screen.ui().ucItemLedger;
    EXPECT_EQ(Listed(), (Lines{"a", "b"}));
    EXPECT_EQ(Active(screen), "optAll") << "not the button that closes the screen";
    EXPECT_FALSE(List().Enabled());
    EXPECT_FALSE(shown.ui().cmdOk->Enabled());
    Click(shown.ui().optSel);
    EXPECT_TRUE(List().Enabled());
    List().SetSelected(1, true);
    AddItem(4, "'c'");
    screen.ui().dtpDateFrom->SetFocus();
    shown.SetFocus();
    EXPECT_EQ(Listed(), (Lines{"a", "b *"}));
    shown.OkClick = [] {};
    Click(shown.ui().cmdOk);
    EXPECT_THAT(shown.itemSel(), ElementsAre(30000, 0));
    EXPECT_FALSE(shown.ui().cmdOk->Enabled());
    Click(shown.ui().optAll);
    EXPECT_TRUE(List().Enabled()) << "as it was";
    EXPECT_EQ(Listed(), (Lines{"a *", "b *"}));
    Click(shown.ui().cmdOk);
    EXPECT_THAT(shown.itemSel(), ElementsAre(3, 30000, 0));
    Click(shown.ui().optSel);
    bool raised = false;
    shown.OkClick = [&] { raised = true; };
    Click(shown.ui().cmdOk);
    EXPECT_THAT(shown.itemSel(), ElementsAre(0));
    EXPECT_TRUE(raised);
}

// The second focus leaves the record set open, so the next opening runs its source again: the rows are new,
// but they are those of the year in which it was first opened. Kept.
TEST_F(SelectiveTest, ARecordSetThatASecondFocusOpenedIsRunAgain) {
    AddItem(1, "'a'");
    screen.Unload();
    Fill();
    screen.ui().dtpDateFrom->SetFocus();
    screen.ui().ucItemLedger->SetFocus();
    screen.Unload();
    AddItem(2, "'b'");
    qm::shared().FinYear = "2002";
    Fill();
    EXPECT_EQ(Listed(), (Lines{"a", "b"}));
    qm::shared().FinYear = "2001";
}

TEST_F(SelectiveTest, AKeyBeyondSixteenBitsOverflowsAndAnEmptySetOnlyEnables) {
    screen.Unload();
    Fill();
    EXPECT_TRUE(screen.ui().ucItemLedger->ui().optSel->Enabled());
    EXPECT_EQ(Listed(), Lines{});
    screen.Unload();
    AddItem(32768, "'far'");
    Fill();
    EXPECT_EQ(Listed(), Lines{"far"});
    Click(screen.ui().ucItemLedger->ui().optAll);
    ExpectBox("Run-time error '6':\n\nOverflow", 0);
    Click(screen.ui().ucItemLedger->ui().cmdOk);
    EXPECT_THAT(screen.ui().ucItemLedger->itemSel(), ElementsAre(0, 0));
}

}  // namespace
