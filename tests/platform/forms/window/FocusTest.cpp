#include "platform/basic/Error.h"
#include "platform/forms/window/MessageBox.h"
#include "tests/platform/forms/window/Fixture.h"

namespace {

class FocusTest : public FormsTest {
  protected:
    void SetUp() override { Show(); }
    UiTest& ui() { return form.ui(); }
    void Hold(Control& control) {
        control.Validate = [this](bool& cancel) {
            log.push_back("held");
            cancel = true;
        };
    }
};

TEST_F(FocusTest, TabClickAndSetFocusGoThroughValidate) {
    EXPECT_EQ(Active(form), "txtFirst");
    Key(Qt::Key_Tab);
    EXPECT_THAT(Logged(), ElementsAre("txtFirst?", "txtFirst-", "txtSecond+"));
    Key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_THAT(Logged(), ElementsAre("txtSecond?", "txtSecond-", "txtFirst+"));
    Click(ui().txtThird);
    EXPECT_THAT(Logged(), ElementsAre("txtFirst?", "txtFirst-", "txtThird+"));
    ui().txtSecond->SetFocus();
    EXPECT_THAT(Logged(), ElementsAre("txtThird?", "txtThird-", "txtSecond+"));
    ui().txtSecond->SetFocus();
    EXPECT_THAT(Logged(), IsEmpty());
    EXPECT_TRUE(ui().txtSecond->hasFocus());
}

TEST_F(FocusTest, AHeldFocusCarriesNothingOut) {
    Hold(*ui().txtFirst);
    const struct {
        const char* what;
        std::function<void()> act;
    } ways[] = {
        {"tab", [this] { Key(Qt::Key_Tab); }},
        {"click", [this] { Click(ui().cmdSave); }},
        {"alt", [this] { Key(Qt::Key_S, Qt::AltModifier); }},
        {"label", [this] { Key(Qt::Key_C, Qt::AltModifier); }},
        {"frame", [this] { Key(Qt::Key_B, Qt::AltModifier); }},
        {"code", [this] { ui().cmdSave->SetFocus(); }},
        {"list", [this] { Click(ui().cmbList); }},
        {"option", [this] { Click(ui().optTwo); }},
    };
    for (const auto& way : ways) {
        SCOPED_TRACE(way.what);
        way.act();
        EXPECT_THAT(Logged(), ElementsAre("held"));
        EXPECT_EQ(Active(form), "txtFirst");
        EXPECT_TRUE(ui().txtFirst->hasFocus());
    }
    EXPECT_FALSE(ui().optTwo->Value());
    EXPECT_FALSE(ui().cmbList->view()->isVisible());
}

TEST_F(FocusTest, AltLetterMovesTheFocusBeforeItClicks) {
    Key(Qt::Key_S, Qt::AltModifier);
    EXPECT_THAT(Logged(), ElementsAre("txtFirst?", "txtFirst-", "cmdSave+", "cmdSave_Click"));
    Key(Qt::Key_C, Qt::AltModifier);
    EXPECT_EQ(Active(form), "txtSecond");
    Key(Qt::Key_B, Qt::AltModifier);
    EXPECT_EQ(Active(form), "optOne");
}

TEST_F(FocusTest, ATextThatIsEnteredByKeyIsSelectedAndAClickPlacesTheCursor) {
    TextBox* const box = ui().txtSecond;
    box->SetText("Balance");
    const struct {
        const char* what;
        std::function<void()> enter;
        const char* selected;
    } ways[] = {
        {"tab", [this] { Key(Qt::Key_Tab); }, "Balance"},
        {"alt", [this] { Key(Qt::Key_C, Qt::AltModifier); }, "Balance"},
        {"click", [this] { Click(ui().txtSecond); }, ""},
        {"code", [this] { ui().txtSecond->SetFocus(); }, ""},
        {"back", [this] { ui().txtThird->SetFocus(), Key(Qt::Key_Backtab, Qt::ShiftModifier); }, "Balance"},
    };
    for (const auto& way : ways) {
        SCOPED_TRACE(way.what);
        ui().txtFirst->SetFocus();
        way.enter();
        EXPECT_EQ(Active(form), "txtSecond");
        EXPECT_EQ(box->selectedText(), way.selected);
    }
}

TEST_F(FocusTest, SetFocusInsideValidateWins) {
    ui().txtFirst->Validate = [this](bool&) { ui().txtThird->SetFocus(); };
    Click(ui().cmdSave);
    EXPECT_THAT(Logged(), ElementsAre("txtFirst-", "txtThird+"));
    EXPECT_EQ(Active(form), "txtThird");
    EXPECT_TRUE(ui().txtThird->hasFocus());
}

TEST_F(FocusTest, ABoxInsideValidateDoesNotRunItAgain) {
    script.Box("Please enter a valid numeric quantity");
    ui().txtFirst->Validate = [this](bool& cancel) {
        log.push_back("Validate");
        ShowMessage("Please enter a valid numeric quantity", 64, "Tovik Softwares");
        Key(Qt::Key_Tab);  // still inside
        cancel = true;
    };
    Key(Qt::Key_Tab);
    EXPECT_THAT(Logged(), ElementsAre("Validate"));
    EXPECT_EQ(Active(form), "txtFirst");
}

TEST_F(FocusTest, AControlThatItsOwnValidateDisablesLetsTheFocusGoOn) {
    ui().txtFirst->Validate = [this](bool&) { ui().txtFirst->SetEnabled(false); };
    Click(ui().txtThird);
    EXPECT_THAT(Logged(), ElementsAre("txtFirst-", "txtThird+"));
    EXPECT_FALSE(ui().txtFirst->Enabled());
}

TEST_F(FocusTest, DisablingOrHidingMovesOnWithoutValidate) {
    ui().txtFirst->SetEnabled(false);
    EXPECT_THAT(Logged(), ElementsAre("txtFirst-", "txtSecond+"));
    ui().txtSecond->SetVisible(false);
    EXPECT_THAT(Logged(), ElementsAre("txtSecond-", "txtThird+"));
    ui().optOne->SetFocus();
    ui().fmeBox->SetEnabled(false);
    EXPECT_EQ(Active(form), "cmbList");
    EXPECT_TRUE(ui().cmbList->hasFocus());
    ui().txtFirst->SetFocus();
    EXPECT_EQ(Active(form), "cmbList") << "a disabled control takes no focus";
}

TEST_F(FocusTest, LostFocusMaySendTheFocusElsewhereAndTheClickIsCarriedOut) {
    ui().txtFirst->LostFocus = [this] { ui().txtSecond->SetFocus(); };
    Click(ui().cmdSave);
    EXPECT_EQ(Active(form), "txtSecond");
    EXPECT_THAT(Logged(), testing::Contains("cmdSave_Click"));
}

TEST_F(FocusTest, AnErrorInValidateIsShownAndTheFocusGoes) {
    script.Box("Run-time error '6':\n\nOverflow");
    ui().txtFirst->Validate = [](bool&) { throw basic::Error(6, "Overflow"); };
    Key(Qt::Key_Tab);
    EXPECT_EQ(Active(form), "txtSecond");
}

TEST_F(FocusTest, OtherWindowsFireNothing) {
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    form.Window()->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form.Window()));
    EXPECT_THAT(Logged(), IsEmpty());
    EXPECT_TRUE(ui().txtFirst->hasFocus());
}

TEST_F(FocusTest, EnterPressesTheDefaultButtonWithValidate) {
    ui().cmdSave->setDefault(true);
    Key(Qt::Key_Return);
    EXPECT_THAT(Logged(), ElementsAre("txtFirst?", "txtFirst-", "cmdSave+", "cmdSave_Click"));
    ui().txtFirst->SetFocus();
    Hold(*ui().txtFirst);
    Logged();
    Key(Qt::Key_Return);
    EXPECT_THAT(Logged(), ElementsAre("held"));
    Key(Qt::Key_Escape);
    EXPECT_TRUE(form.Visible());
}

TEST_F(FocusTest, AUserControlSaysWhenTheFocusEnters) {
    struct Panel : UserControl {
        explicit Panel(QWidget* parent) : UserControl(parent), one(this), two(this) {
            one.setGeometry(0, 0, 20, 20);
            two.setGeometry(30, 0, 20, 20);
            setMinimumSize(60, 20);
        }
        TextBox one, two;
    };
    auto* panel = new Panel(form.Window());
    form.Window()->layout()->addWidget(panel);
    panel->show();
    panel->EnterFocus = [this] { log.push_back("Enter"); };
    panel->SetFocus();
    EXPECT_THAT(Logged(), ElementsAre("txtFirst?", "txtFirst-", "Enter"));
    EXPECT_EQ(form.ActiveControl(), &panel->one);
    Key(Qt::Key_Tab);
    EXPECT_EQ(form.ActiveControl(), &panel->two);
    EXPECT_THAT(Logged(), IsEmpty());
    for (basic::Control* control : form.Controls())
        EXPECT_NE(control, &panel->one) << "its parts are not the form's";
}

}  // namespace
