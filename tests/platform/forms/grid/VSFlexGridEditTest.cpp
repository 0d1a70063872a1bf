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
    int refusedRow = -1;
};

using VSFlexGridEdits = GridSessions<VSFlexGridEditTest>;

TEST_P(VSFlexGridEdits, FireWhatIsTold) {
    RunSession();
}

INSTANTIATE_TEST_SUITE_P(All, VSFlexGridEdits,
                         testing::ValuesIn(test::Sessions("platform/forms/grid/VSFlexGridEdits.txt")),
                         VSFlexGridEdits::NameOf);

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

TEST_F(VSFlexGridEditTest, AFormThatUnloadsInAnEditEventTakesTheGridWithIt) {
    control().AfterEdit = [this](int, int) { form.Unload(); };
    Type("5");
    Key(Qt::Key_Return);
    EXPECT_FALSE(form.Loaded());
}

}  // namespace
