#include <QLineEdit>

#include "platform/forms/grid/DropList.h"
#include "tests/platform/forms/grid/GridFixture.h"

namespace {

class VSFlexGridListTest : public ControlTest<VSFlexGrid> {
  protected:
    void SetUp() override {
        VSFlexGrid& grid = control();
        grid.SetCols(3);
        grid.SetRows(4);
        grid.SetColComboList(0, "Dr.|Cr.");
        grid.SetColComboList(1, "#12*1;12\tState Bank\t 10Dr|#7;7\tCash\t 0Dr|#9;9\tBank of Baroda\t 5Cr");
        grid.SetColComboList(2, "...");
        grid.SetEditable(true);
        grid.SetTextMatrix(1, 1, "Cash");
        Show();
        grid.Select(1, 1);
        grid.SetFocus();
        grid.AfterEdit = [this](int, int) {
            log.push_back(control().ComboData() + '=' + control().ComboItem());
        };
        grid.CellButtonClick = [this](int row, int col) { log.push_back(At("button", row, col)); };
    }
    DropList* List() {
        for (auto* list : control().findChildren<DropList*>(QString(), Qt::FindDirectChildrenOnly))
            if (list->isVisible()) return list;
        return nullptr;
    }
};

TEST_F(VSFlexGridListTest, ManyKeysOpenTheList) {
    const std::pair<Qt::Key, Qt::KeyboardModifiers> keys[] = {
        {Qt::Key_F2, {}}, {Qt::Key_F4, {}}, {Qt::Key_Down, Qt::AltModifier}, {Qt::Key_Return, {}}};
    for (const auto& [key, modifiers] : keys) {
        SCOPED_TRACE(key);
        Key(key, modifiers);
        ASSERT_TRUE(List());
        EXPECT_EQ(List()->Choice(), 1);  // the cell's own text
        Key(Qt::Key_Escape);
        EXPECT_FALSE(List());
        EXPECT_FALSE(control().Editing());
    }
    EXPECT_THAT(Logged(), IsEmpty());
}

TEST_F(VSFlexGridListTest, TypingNarrowsAndEnterChooses) {
    Type("ban");
    ASSERT_TRUE(List());
    EXPECT_EQ(List()->RowAxis().Count(), 2);
    EXPECT_EQ(control().EditText(), "Bank of Baroda");  // begins with it
    Key(Qt::Key_Up);
    EXPECT_EQ(control().EditText(), "State Bank");
    Key(Qt::Key_Return);
    EXPECT_THAT(Logged(), ElementsAre("12=State Bank"));
    EXPECT_EQ(control().TextMatrix(1, 1), "State Bank");
    EXPECT_FALSE(List());
    control().SetCol(0);
    Type("c");
    Key(Qt::Key_Tab);
    EXPECT_EQ(control().TextMatrix(1, 0), "Cr.");
}

TEST_F(VSFlexGridListTest, WhatIsNotInTheListChangesNothing) {
    Type("zzz");
    EXPECT_EQ(control().ComboIndex(), -1);
    Key(Qt::Key_Return);
    EXPECT_THAT(Logged(), ElementsAre("="));
    EXPECT_EQ(control().TextMatrix(1, 1), "Cash");
    control().SetColComboList(1, "|Cash|Bank");
    control().Select(1, 1);
    Type("zzz");
    Key(Qt::Key_Return);
    EXPECT_EQ(control().TextMatrix(1, 1), "zzz");  // this list lets other texts in
}

TEST_F(VSFlexGridListTest, TheMouseOpensAndChooses) {
    const QRect cell = control().CellRect(1, 1);
    QTest::mouseClick(control().viewport(), Qt::LeftButton, {}, CellPainter::ButtonRect(cell).center());
    ASSERT_TRUE(List());
    const QPoint third = List()->CellRect(2, 1).center();
    QMouseEvent move(QEvent::MouseMove, third, List()->viewport()->mapToGlobal(third), Qt::NoButton, {}, {});
    QApplication::sendEvent(List()->viewport(), &move);
    EXPECT_EQ(List()->Choice(), 2);
    QTest::mouseClick(List()->viewport(), Qt::LeftButton, {}, third);
    EXPECT_THAT(Logged(), ElementsAre("9=Bank of Baroda"));
    EXPECT_TRUE(control().hasFocus());
    EXPECT_FALSE(List());
}

TEST_F(VSFlexGridListTest, ARefusedChoiceStaysOpen) {
    control().ValidateEdit = [this](int, int, bool& cancel) { cancel = control().ComboData() == "7"; };
    Key(Qt::Key_F4);
    Key(Qt::Key_Return);
    EXPECT_TRUE(control().Editing());
    EXPECT_THAT(Logged(), IsEmpty());
    Key(Qt::Key_Down);
    Key(Qt::Key_Return);
    EXPECT_THAT(Logged(), ElementsAre("9=Bank of Baroda"));
}

TEST_F(VSFlexGridListTest, AButtonCellIsPressedNotTyped) {
    control().Select(1, 2);
    Type("x");
    EXPECT_FALSE(control().Editing());
    EXPECT_THAT(Logged(), IsEmpty());
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_F2, Qt::Key_F4, Qt::Key_Space}) Key(key);
    QTest::mouseClick(control().viewport(), Qt::LeftButton, {},
                      CellPainter::ButtonRect(control().CellRect(1, 2)).center());
    ClickCell(1, 2);  // beside the button
    EXPECT_THAT(Logged(), testing::AllOf(testing::SizeIs(5), testing::Each("button 1,2")));
    control().BeforeEdit = [](int, int, bool& cancel) { cancel = true; };
    Key(Qt::Key_Return);
    EXPECT_THAT(Logged(), IsEmpty());
}

}  // namespace
