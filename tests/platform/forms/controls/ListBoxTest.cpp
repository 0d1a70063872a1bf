#include "platform/basic/Error.h"
#include "tests/platform/forms/window/Fixture.h"

namespace {

class ListBoxTest : public FormsTest {
  protected:
    void SetUp() override {
        Show();
        list = new ListBox(form.Window());
        form.Window()->layout()->addWidget(list);
        list->show();
        list->Click = [this] { log.push_back("Click " + std::to_string(list->ListIndex())); };
        for (const char* year : {"2001-2002", "2002-2003", "2003-2004"}) list->AddItem(year);
    }
    void ClickLine(int index) {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualItemRect(list->item(index)).center());
    }
    std::vector<bool> Marks() const {
        std::vector<bool> marks;
        for (int i = 0; i < list->ListCount(); ++i) marks.push_back(list->Selected(i));
        return marks;
    }
    ListBox* list = nullptr;
};

TEST_F(ListBoxTest, AddingSelectsNothingAndTheFocusSelectsNothing) {
    list->SetFocus();
    EXPECT_EQ(list->ListIndex(), -1);
    EXPECT_THAT(Logged(), ElementsAre("txtFirst?", "txtFirst-"));
    EXPECT_THAT(Marks(), ElementsAre(false, false, false));
}

TEST_F(ListBoxTest, ListIndexSelectsAndFiresOncePerChange) {
    list->SetListIndex(1);
    EXPECT_THAT(Logged(), ElementsAre("Click 1"));
    EXPECT_THAT(Marks(), ElementsAre(false, true, false));
    list->SetListIndex(1);
    list->SetSelected(1, true);
    list->SetSelected(0, false);
    EXPECT_THAT(Logged(), IsEmpty());
    ClickLine(2);
    EXPECT_EQ(Logged().back(), "Click 2");
    list->AddItem("2004-2005");
    list->SetItemData(list->NewIndex(), 12);
    EXPECT_EQ(list->ListIndex(), 2);
    EXPECT_EQ(list->ItemData(3), 12);
    list->Clear();
    EXPECT_EQ(list->ListIndex(), -1);
    EXPECT_THAT(Logged(), IsEmpty());
    EXPECT_THROW(list->SetListIndex(0), basic::Error);
}

TEST_F(ListBoxTest, AMultipleListKeepsEveryMark) {
    list->setSelectionMode(QAbstractItemView::MultiSelection);
    list->SelectEach(true);
    EXPECT_EQ(list->SelectedLines().size(), 3u);
    ClickLine(1);
    EXPECT_THAT(Marks(), ElementsAre(true, false, true));
    list->SetEnabled(false);
    EXPECT_THAT(Marks(), ElementsAre(true, false, true));
}

TEST_F(ListBoxTest, InAMultipleListLettersMoveAndOnlySpaceMarks) {
    list->setSelectionMode(QAbstractItemView::MultiSelection);
    for (const char* name : {"Bank", "Basu", " Cash"}) list->AddItem(name);
    list->SelectEach(true);
    list->SetFocus();
    QTest::keyClicks(list, "bas");
    EXPECT_EQ(list->ListIndex(), 4);
    EXPECT_EQ(list->SelectedLines().size(), 6u);
    Key(Qt::Key_Space);
    EXPECT_EQ(list->ListIndex(), 4) << "the blank is no letter";
    Key(Qt::Key_A, Qt::ControlModifier);
    EXPECT_THAT(list->SelectedLines(), ElementsAre(0, 1, 2, 3, 5));
}

// However many marks stand, and wherever: the toolkit is told of all lines in one step or two.
TEST_F(ListBoxTest, AllLinesAreMarkedAndClearedAtOnce) {
    list->setSelectionMode(QAbstractItemView::MultiSelection);
    for (int i = 0; i < 500; ++i) list->AddItem("line");
    for (int i = 0; i < list->ListCount(); i += 2) list->SetSelected(i, true);
    int steps = 0;
    QObject::connect(list, &QListWidget::itemSelectionChanged, [&] { ++steps; });
    list->SelectEach(true);
    EXPECT_EQ(list->SelectedLines().size(), 503u);
    list->SelectEach(false);
    EXPECT_EQ(list->SelectedLines().size(), 0u);
    EXPECT_LE(steps, 3);
}

}  // namespace
