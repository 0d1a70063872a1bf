#include "platform/basic/Error.h"
#include "tests/platform/forms/window/Fixture.h"

namespace {

class ComboBoxTest : public FormsTest {
  protected:
    void SetUp() override {
        Show();
        combo = form.ui().cmbList;
        combo->Change = [this] { log.push_back("Change " + combo->Text()); };
        combo->Click = [this] { log.push_back("Click " + std::to_string(combo->ListIndex())); };
        for (const char* line : {"Receipt", "Payment", "Contra"}) combo->AddItem(line);
    }
    ComboBox* combo = nullptr;
};

TEST_F(ComboBoxTest, AddingLinesChoosesNone) {
    EXPECT_EQ(combo->ListIndex(), -1);
    EXPECT_EQ(combo->Text(), "");
    EXPECT_EQ(combo->NewIndex(), 2);
    EXPECT_THAT(Logged(), IsEmpty());
}

TEST_F(ComboBoxTest, WhatCodeSetsAndWhatFires) {
    const struct {
        const char* what;
        std::function<void()> act;
        EventLog events;
        std::string text;
        int index;
    } steps[] = {
        {"a line's text", [this] { combo->SetText("Payment"); }, {"Change Payment", "Click 1"}, "Payment", 1},
        {"the same text", [this] { combo->SetText("Payment"); }, {}, "Payment", 1},
        {"an unlisted text", [this] { combo->SetText("Old one"); }, {"Change Old one"}, "Old one", -1},
        {"the unlisted text again", [this] { combo->SetText("Old one"); }, {}, "Old one", -1},
        {"another case is another text",
         [this] { combo->SetText("contra"); },
         {"Change contra"},
         "contra",
         -1},
        {"an index", [this] { combo->SetListIndex(2); }, {"Click 2"}, "Contra", 2},
        {"the same index", [this] { combo->SetListIndex(2); }, {}, "Contra", 2},
        {"no index", [this] { combo->SetListIndex(-1); }, {}, "", -1},
        {"the empty text", [this] { combo->SetText(""); }, {}, "", -1},
        {"a text, to be cleared",
         [this] { combo->SetText("Receipt"); },
         {"Change Receipt", "Click 0"},
         "Receipt",
         0},
        {"clear", [this] { combo->Clear(); }, {}, "", -1},
        {"a line after clear", [this] { combo->AddItem("<New>"); }, {}, "", -1},
    };
    for (const auto& step : steps) {
        SCOPED_TRACE(step.what);
        step.act();
        EXPECT_EQ(Logged(), step.events);
        EXPECT_EQ(combo->Text(), step.text);
        EXPECT_EQ(combo->ListIndex(), step.index);
    }
}

TEST_F(ComboBoxTest, ItemDataReadsZeroWithoutALine) {
    combo->SetItemData(combo->NewIndex(), 40000);
    EXPECT_EQ(combo->ItemData(-1), 0);
    EXPECT_EQ(combo->ItemData(0), 0);
    EXPECT_EQ(combo->ItemData(2), 40000);
    EXPECT_THROW(combo->ItemData(3), basic::Error);
    EXPECT_THROW(combo->SetListIndex(3), basic::Error);
}

TEST_F(ComboBoxTest, TheUserChoosesByKeyAndByList) {
    combo->SetFocus();
    Key(Qt::Key_Down);
    EXPECT_THAT(Logged(), ElementsAre("txtFirst?", "txtFirst-", "Click 0"));
    Key(Qt::Key_F4);
    ASSERT_TRUE(combo->view()->isVisible());
    QTest::keyClick(combo->view(), Qt::Key_Down);
    QTest::keyClick(combo->view(), Qt::Key_Return);
    EXPECT_THAT(Logged(), ElementsAre("Click 1"));
    EXPECT_EQ(combo->Text(), "Payment");
    EXPECT_EQ(Active(form), "cmbList") << "the list is no other control";
    combo->OpenList();
    SystemKey(Qt::Key_Down);
    SystemKey(Qt::Key_Tab);
    QCoreApplication::processEvents();
    EXPECT_FALSE(combo->view()->isVisible()) << "Tab takes the line and goes on";
    EXPECT_EQ(combo->Text(), "Contra");
    EXPECT_NE(Active(form), "cmbList");
}

// The press of such a key goes to the window that has the system's focus: the form's, where the list was
// dropped before that came back from a box.
TEST_F(ComboBoxTest, AKeyThatClosesTheListDoesNothingElse) {
    form.ui().cmdSave->setDefault(true);
    combo->SetFocus();
    for (const auto& [key, modifiers] : {std::pair(Qt::Key_Return, Qt::NoModifier),
                                         {Qt::Key_Enter, Qt::KeypadModifier},
                                         {Qt::Key_Escape, Qt::NoModifier},
                                         {Qt::Key_Down, Qt::AltModifier},
                                         {Qt::Key_F4, Qt::NoModifier}}) {
        SCOPED_TRACE(key);
        combo->SetListIndex(1);
        combo->OpenList();
        ASSERT_TRUE(combo->view()->isVisible());
        Logged();
        SystemKey(key, modifiers);
        EXPECT_FALSE(combo->view()->isVisible());
        EXPECT_THAT(Logged(), IsEmpty());
        EXPECT_TRUE(combo->hasFocus());
    }
    SystemKey(Qt::Key_Up);
    EXPECT_THAT(Logged(), ElementsAre("Click 0")) << "the next key is the form's again";
    QWindow* const list = combo->view()->window()->windowHandle();
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease})
        qt_handleKeyEvent(list, type, Qt::Key_Down, {});
    EXPECT_THAT(Logged(), ElementsAre("Click 1")) << "and where the system still sends it to the list";
}

TEST_F(ComboBoxTest, AListWithoutAChoiceDropsOnItsFirstLine) {
    combo->SetFocus();
    for (const Qt::Key before : {Qt::Key_F4, Qt::Key_Backspace}) {
        Key(before);
        combo->SetListIndex(-1);
        combo->OpenList();
        Logged();
        SystemKey(Qt::Key_Return);
        EXPECT_THAT(Logged(), ElementsAre("Click 0"));
    }
    combo->SetText("Old one");
    combo->OpenList();
    EXPECT_FALSE(combo->view()->currentIndex().isValid());
    combo->hidePopup();
}

TEST_F(ComboBoxTest, TypedLettersFindTheLineWithTheBlankInItsName) {
    for (const char* group : {"Current Liabilities", "Current Asset", "Asset"}) combo->AddItem(group);
    combo->SetFocus();
    Key(Qt::Key_S, Qt::ControlModifier);
    Key(Qt::Key_Backspace);
    QTest::keyClicks(combo, "current asset");
    EXPECT_EQ(combo->Text(), "Current Asset");
    EXPECT_FALSE(combo->view()->isVisible());
    QTest::qWait(QApplication::keyboardInputInterval() + 50);
    Key(Qt::Key_Space);
    EXPECT_TRUE(combo->view()->isVisible()) << "alone it opens the list";
    combo->hidePopup();
}

TEST_F(ComboBoxTest, LockedTakesNoChoiceButCodeStillSetsIt) {
    combo->SetLocked(true);
    combo->SetFocus();
    Logged();
    Key(Qt::Key_Down);
    Key(Qt::Key_F4);
    Click(combo);
    EXPECT_FALSE(combo->view()->isVisible());
    EXPECT_THAT(Logged(), IsEmpty());
    combo->SetText("Contra");
    EXPECT_EQ(combo->ListIndex(), 2);
}

TEST_F(ComboBoxTest, TypingFiresChangeAndChoosesNothing) {
    combo->hide();
    combo->setEditable(true);
    combo->show();
    combo->SetText("Payment");
    combo->SetFocus();
    Logged();
    combo->lineEdit()->selectAll();
    QTest::keyClicks(combo, "Co");
    EXPECT_THAT(Logged(), ElementsAre("Change C", "Change Co"));
    EXPECT_EQ(combo->ListIndex(), -1);
    QTest::keyClicks(combo, "ntra");
    Logged();
    Key(Qt::Key_Return);
    EXPECT_THAT(Logged(), IsEmpty());
    EXPECT_EQ(combo->Text(), "Contra");
    EXPECT_EQ(combo->ListIndex(), -1);
    combo->SetText("<New>");
    EXPECT_EQ(combo->lineEdit()->text(), "<New>");
}

TEST_F(ComboBoxTest, ShowsATextThatIsInNoLine) {
    const auto pixels = [this] { return combo->grab().toImage(); };
    const QImage empty = pixels();
    combo->SetText("MMMMMM");
    EXPECT_NE(pixels(), empty);
}

}  // namespace
