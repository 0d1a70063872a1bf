#include "tests/platform/forms/window/Fixture.h"

namespace {

class KeyTest : public FormsTest {
  protected:
    void SetUp() override { Show(); }
};

TEST_F(KeyTest, CtrlLetterGoesToTheFormFirstAndMovesNoFocus) {
    const struct {
        const char* what;
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        EventLog events;
    } keys[] = {
        {"Ctrl+S", Qt::Key_S, Qt::ControlModifier, {"KeyDown S2"}},
        {"Ctrl+Shift+S", Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier, {"KeyDown S3"}},
        {"AltGr as Ctrl and Alt", Qt::Key_Q, Qt::ControlModifier | Qt::AltModifier, {}},
        {"AltGr as a group switch", Qt::Key_Q, Qt::ControlModifier | Qt::GroupSwitchModifier, {}},
        {"a letter", Qt::Key_S, {}, {}},
        {"Ctrl alone with a digit", Qt::Key_1, Qt::ControlModifier, {}},
    };
    for (const auto& key : keys) {
        SCOPED_TRACE(key.what);
        Key(key.key, key.modifiers);
        EXPECT_EQ(Logged(), key.events);
        EXPECT_EQ(Active(form), "txtFirst");
    }
}

// The scan codes are those of the window systems here.
TEST_F(KeyTest, ALayoutWithoutLatinLettersKeepsTheirPlaces) {
    const struct {
        int key;
        quint32 scanCode;
        std::vector<std::string> events;
    } keys[] = {
        {0x042B, 39, {"KeyDown S2"}},  // Cyrillic Yeru, at the place of S
        {0x0938, 58, {"KeyDown M2"}},  // Devanagari Sa, where M stands
        {0x0416, 47, {}},              // beside L: no letter there
        {Qt::Key_F5, 71, {}},
        {Qt::Key_Semicolon, 39, {}},
    };
    for (const auto& key : keys) {
        QKeyEvent press(QEvent::KeyPress, key.key, Qt::ControlModifier, key.scanCode, 0, 0);
        QApplication::sendEvent(form.Window()->focusWidget(), &press);
        EXPECT_EQ(Logged(), key.events) << key.key;
    }
}

TEST_F(KeyTest, WorksWhileTheButtonIsDisabledAndFromAnyControl) {
    form.ui().cmdSave->SetEnabled(false);
    for (Control* control :
         std::initializer_list<Control*>{form.ui().txtSecond, form.ui().optOne, form.ui().cmbList}) {
        control->SetFocus();
        Logged();
        Key(Qt::Key_S, Qt::ControlModifier);
        EXPECT_THAT(Logged(), ElementsAre("KeyDown S2")) << control->Name();
    }
}

TEST_F(KeyTest, TheControlGetsTheKeyAfterTheForm) {
    form.ui().txtFirst->SetText("abc");
    form.ui().txtFirst->setCursorPosition(0);
    Key(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(form.ui().txtFirst->selectedText(), "abc");
}

TEST_F(KeyTest, AFormThatUnloadsItselfByKeyIsGone) {
    form.OnKey = [this](int) { form.Unload(); };
    form.ui().txtFirst->SetText("abc");
    Key(Qt::Key_X, Qt::ControlModifier);
    EXPECT_THAT(Logged(), ElementsAre("KeyDown X2", "Unload"));
    EXPECT_FALSE(form.Loaded());
}

}  // namespace
