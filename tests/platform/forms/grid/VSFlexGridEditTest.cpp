#include <QClipboard>
#include <QLineEdit>

#include "platform/basic/Number.h"
#include "tests/platform/forms/grid/GridFixture.h"

namespace {

class VSFlexGridEditTest : public ControlTest<VSFlexGrid> {
  protected:
    void SetUp() override {
        VSFlexGrid& grid = control();
        grid.SetCols(4);
        grid.SetRows(1);
        for (int row = 1; row < 5; ++row) grid.AddItem("\t10\ttext\t");
        grid.SetColBoolean(0, true);
        grid.SetEditable(true);
        Show();
        grid.Select(1, 1);
        grid.SetFocus();
        grid.KeyDown = [this](int& code, int) { Note("KeyDown " + std::to_string(code)); };
        grid.KeyPress = [this](int&) { Note("KeyPress"); };
        grid.BeforeEdit = [this](int row, int col, bool& cancel) {
            Note(At("BeforeEdit", row, col));
            cancel = col == 3;
        };
        grid.StartEdit = [this](int, int, bool& cancel) {
            Note("StartEdit");
            cancel = refuseStart;
        };
        grid.KeyPressEdit = [this](int, int, int& ascii) {
            Note("KeyPressEdit");
            if (ascii == '-') ascii = 0;
        };
        grid.ValidateEdit = [this](int, int col, bool& cancel) {
            Note("ValidateEdit " + control().EditText());
            cancel = col == 1 && !basic::IsNumeric(control().EditText());
        };
        grid.AfterEdit = [this](int row, int col) { Note(At("AfterEdit", row, col)); };
        grid.BeforeRowColChange = [this](int, int, int row, int col, bool&) { Note(At("Before", row, col)); };
        grid.AfterRowColChange = [this](int, int, int row, int col) { Note(At("After", row, col)); };
        grid.GotFocus = [this] { Note("GotFocus"); };
        grid.LostFocus = [this] { Note("LostFocus"); };
    }
    void Note(const std::string& what) { log.push_back(what); }
    const std::string& Text(int row, int col) { return control().TextMatrix(row, col); }
    bool refuseStart = false;
};

TEST_F(VSFlexGridEditTest, AKeyAndAMoveFireInTheirOrder) {
    Type("5");
    EXPECT_THAT(Logged(),
                ElementsAre("KeyDown 53", "KeyPress", "BeforeEdit 1,1", "StartEdit", "KeyPressEdit"));
    Type("0");
    EXPECT_THAT(Logged(), ElementsAre("KeyPressEdit"));
    Key(Qt::Key_Return);
    EXPECT_THAT(Logged(), ElementsAre("ValidateEdit 50", "AfterEdit 1,1", "Before 1,2", "After 1,2"));
    EXPECT_EQ(Text(1, 1), "50");
    EXPECT_FALSE(control().Editing());
}

TEST_F(VSFlexGridEditTest, AfterEditFiresThoughNothingChangedButNotOnEsc) {
    Key(Qt::Key_F2);
    Logged();
    Key(Qt::Key_Tab);
    EXPECT_THAT(Logged(),
                ElementsAre("ValidateEdit 10", "AfterEdit 1,1", "KeyDown 9", "Before 1,2", "After 1,2"));
    Type("x");
    Logged();
    Key(Qt::Key_Escape);
    EXPECT_THAT(Logged(), IsEmpty());
    EXPECT_EQ(Text(1, 2), "text");
    EXPECT_FALSE(control().Editing());
    EXPECT_TRUE(control().hasFocus());
    Key(Qt::Key_F2);
    Logged();
    form.ui().txtAfter->SetFocus();
    EXPECT_THAT(Logged(), ElementsAre("ValidateEdit text", "AfterEdit 1,2", "LostFocus"));
}

TEST_F(VSFlexGridEditTest, TheEditorIsAPartOfTheGrid) {
    Type("7");
    Key(Qt::Key_Escape);
    Type("7");
    Key(Qt::Key_Return);
    const EventLog events = Logged();
    EXPECT_THAT(events, testing::Not(testing::Contains("GotFocus")));
    EXPECT_THAT(events, testing::Not(testing::Contains("LostFocus")));
    EXPECT_EQ(Active(), "tested");
}

TEST_F(VSFlexGridEditTest, ARefusedEditHoldsTheFocusTheMoveAndTheCommand) {
    const struct {
        const char* what;
        std::function<void()> act;
    } ways[] = {
        {"enter", [this] { Key(Qt::Key_Return); }},
        {"tab", [this] { Key(Qt::Key_Tab); }},
        {"arrow", [this] { Key(Qt::Key_Down); }},
        {"another cell", [this] { ClickCell(3, 2); }},
        {"another control", [this] { QTest::mouseClick(form.ui().txtAfter, Qt::LeftButton); }},
        {"code", [this] { form.ui().txtAfter->SetFocus(); }},
        {"select", [this] { control().Select(2, 2); }},
        {"ctrl", [this] { Key(Qt::Key_S, Qt::ControlModifier); }},
    };
    Type("5x");
    Logged();
    for (const auto& way : ways) {
        SCOPED_TRACE(way.what);
        way.act();
        EXPECT_THAT(Logged(), ElementsAre("ValidateEdit 5x"));
        EXPECT_TRUE(control().Editing());
        EXPECT_EQ(Active(), "tested");
        EXPECT_EQ(Focused()->objectName(), "tested.editor");
        EXPECT_EQ(control().Row(), 1);
        EXPECT_EQ(control().Col(), 1);
        EXPECT_EQ(Text(1, 1), "10");
    }
    Type("5");  // the refused text is selected: the next key replaces it
    Key(Qt::Key_Return);
    EXPECT_EQ(Text(1, 1), "5");
}

TEST_F(VSFlexGridEditTest, CtrlLetterCompletesTheEditFirst) {
    Type("5");
    Logged();
    Key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_THAT(Logged(), ElementsAre("ValidateEdit 5", "AfterEdit 1,1", "Form S"));
    EXPECT_EQ(Text(1, 1), "5");
}

// They neither end the edit nor come to the form, and what is pasted goes the way of what is typed.
TEST_F(VSFlexGridEditTest, LettersWithoutACommandAreTheOpenEditorsOwn) {
    Type("4");
    QGuiApplication::clipboard()->setText("-9-\n8");
    Logged();
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_THAT(Logged(), ElementsAre("KeyPressEdit", "KeyPressEdit", "KeyPressEdit"));
    EXPECT_EQ(control().EditText(), "49");
    Key(Qt::Key_A, Qt::ControlModifier);
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "49");
    Key(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(control().EditText(), "");
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(control().EditText(), "49");
    EXPECT_THAT(Logged(), IsEmpty());
    Key(Qt::Key_Return);
    Logged();
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_THAT(Logged(), testing::Contains("Form V"));
    EXPECT_FALSE(control().Editing());
}

TEST_F(VSFlexGridEditTest, ACancelledEditOpensNoEditor) {
    control().Select(1, 3);
    Logged();
    Type("5");
    Key(Qt::Key_F2);
    EXPECT_THAT(Logged(),
                ElementsAre("KeyDown 53", "KeyPress", "BeforeEdit 1,3", "KeyDown 113", "BeforeEdit 1,3"));
    refuseStart = true;
    control().Select(1, 1);
    Logged();
    control().EditCell();
    EXPECT_THAT(Logged(), ElementsAre("BeforeEdit 1,1", "StartEdit"));
    EXPECT_FALSE(control().Editing());
    EXPECT_EQ(Text(1, 1), "10");
}

TEST_F(VSFlexGridEditTest, ADroppedCharacterDoesNothing) {
    Type("-");
    EXPECT_FALSE(control().Editing());
    EXPECT_EQ(Text(1, 1), "10");
    Type("4-2");
    QGuiApplication::clipboard()->setText("-9-");
    Key(Qt::Key_Insert, Qt::ShiftModifier);  // pasted characters go the same way
    EXPECT_EQ(control().EditText(), "429");
    control().SetEditMaxLength(3);
    Key(Qt::Key_Return);
    control().Select(1, 1);
    Type("12345");
    EXPECT_EQ(control().EditText(), "123");
}

TEST_F(VSFlexGridEditTest, WhereAfterEditSelectsEnterDoesNotMoveOn) {
    control().AfterEdit = [this](int, int) { control().Select(4, 2); };
    Type("5");
    Key(Qt::Key_Return);
    EXPECT_EQ(control().Row(), 4);
    EXPECT_EQ(control().Col(), 2);
    control().AfterEdit = [this](int, int) { form.ui().txtBefore->SetFocus(); };
    Type("z");
    Key(Qt::Key_Return);
    EXPECT_EQ(Active(), "txtBefore");
    EXPECT_EQ(control().Col(), 2);
}

TEST_F(VSFlexGridEditTest, TheMouseEditsTheCurrentCellOnly) {
    ClickCell(2, 2);
    EXPECT_FALSE(control().Editing());
    ClickCell(2, 2);
    EXPECT_TRUE(control().Editing());
    ClickCell(3, 2);
    EXPECT_FALSE(control().Editing());
    EXPECT_EQ(control().Row(), 3);
}

TEST_F(VSFlexGridEditTest, ACheckBoxIsTickedByMouseAndBlank) {
    control().Select(1, 2);
    Logged();
    ClickCell(2, 0);
    EXPECT_TRUE(control().CellChecked(2, 0));
    EXPECT_THAT(Logged(), ElementsAre("Before 2,0", "After 2,0", "BeforeEdit 2,0", "StartEdit",
                                      "ValidateEdit ", "AfterEdit 2,0"));
    Type(" ");
    EXPECT_FALSE(control().CellChecked(2, 0));
    Type("x");
    EXPECT_FALSE(control().CellChecked(2, 0));
    EXPECT_FALSE(control().Editing());
}

TEST_F(VSFlexGridEditTest, RowsThatGoTakeTheOpenEditorWithThem) {
    control().Select(4, 1);
    Type("5");
    Logged();
    control().SetRows(2);
    EXPECT_FALSE(control().Editing());
    EXPECT_THAT(Logged(), IsEmpty());
    control().SetEditable(false);
    control().EditCell();
    Type("5");
    EXPECT_FALSE(control().Editing());
}

TEST_F(VSFlexGridEditTest, AFormThatUnloadsInAnEditEventTakesTheGridWithIt) {
    control().AfterEdit = [this](int, int) { form.Unload(); };
    Type("5");
    Key(Qt::Key_Return);
    EXPECT_FALSE(form.Loaded());
}

}  // namespace
