#include <QAccessible>
#include <QMessageBox>

#include "platform/basic/Error.h"
#include "platform/forms/window/Form.h"
#include "tests/platform/forms/window/Fixture.h"

namespace {

class FormTest : public FormsTest {};

TEST_F(FormTest, TouchingAControlLoadsTheFormAndShowingRunsActivate) {
    EXPECT_FALSE(form.Loaded());
    form.ui().txtFirst->SetText("kept");
    EXPECT_THAT(Logged(), ElementsAre("Load"));
    EXPECT_FALSE(form.Visible());
    form.Show();
    EXPECT_THAT(Logged(), ElementsAre("Activate", "txtFirst+"));
    form.Hide();
    EXPECT_EQ(form.ui().txtFirst->Text(), "kept");
    form.Show();
    EXPECT_THAT(Logged(), ElementsAre("Activate"));
    form.Unload();
    EXPECT_THAT(Logged(), ElementsAre("Unload"));
    EXPECT_FALSE(form.Loaded());
    EXPECT_EQ(form.ui().txtFirst->Text(), "") << "a new window";
}

TEST_F(FormTest, FormActivateMayGiveTheFocus) {
    form.OnActivate = [this] { form.ui().txtThird->SetFocus(); };
    form.Show();
    EXPECT_THAT(Logged(), ElementsAre("Load", "Activate", "txtThird+"));
}

TEST_F(FormTest, AFailedLoadLeavesItUnloadedAndReachesTheCaller) {
    form.OnLoad = [] { basic::Raise(basic::error::InvalidNull); };
    EXPECT_THROW(form.Show(vbModal), basic::Error);
    EXPECT_FALSE(form.Loaded());
    EXPECT_THAT(Logged(), ElementsAre("Load"));
    form.OnLoad = {};
    form.Show();
    EXPECT_TRUE(form.Visible());
}

TEST_F(FormTest, AnUnloadInsideFormLoadIsAnErrorOfTheCaller) {
    form.OnLoad = [this] { form.Unload(); };
    EXPECT_THROW(form.Show(), basic::Error);
    EXPECT_FALSE(form.Loaded());
}

TEST_F(FormTest, AnErrorInUnloadIsShownAndTheWindowGoes) {
    Show();
    script.Box("Run-time error '6':\n\nOverflow");
    form.OnUnload = [] { throw basic::Error(6, "Overflow"); };
    form.Unload();
    EXPECT_FALSE(form.Loaded());
}

TEST_F(FormTest, UnloadInsideAnOwnEventWaitsForItsEnd) {
    Show();
    form.ui().cmdExit->Click = [this] {
        form.Unload();
        log.push_back(form.ui().txtFirst->Text() + "still there");
    };
    Click(form.ui().cmdExit);
    EXPECT_THAT(Logged(), ElementsAre("txtFirst?", "txtFirst-", "still there", "Unload"));
    EXPECT_FALSE(form.Loaded());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

TEST_F(FormTest, TheCloseBoxUnloads) {
    Show();
    form.Window()->close();
    EXPECT_THAT(Logged(), ElementsAre("Unload"));
}

TEST_F(FormTest, AModalShowReturnsWhenHiddenOrUnloadedAndTheFormBelowIsActivated) {
    Show();
    EventLog upperLog;
    frmTest upper(upperLog);
    for (const bool hide : {true, false}) {
        script.Modal("frmTest", [&](Form& shown) {
            EXPECT_EQ(&shown, &upper);
            EXPECT_TRUE(shown.Visible());
            hide ? shown.Hide() : shown.Unload();
            log.push_back("left");
        });
        upper.Show(vbModal);
        EXPECT_EQ(upper.Loaded(), hide);
        EXPECT_THAT(Logged(), ElementsAre("left", "Activate"));
    }
    EXPECT_EQ(Active(form), "txtFirst");
}

TEST_F(FormTest, MembersLiveOnAndThereIsOneDefaultInstance) {
    struct frmKeeps : frmTest {
        frmKeeps() : frmTest(log) {}
        EventLog log;
        int kept = 0;
    };
    Default<frmKeeps>().kept = 7;
    Default<frmKeeps>().Show();
    Default<frmKeeps>().Unload();
    EXPECT_EQ(Default<frmKeeps>().kept, 7);
}

TEST_F(FormTest, ControlsComeInTheOrderOfTheirMaking) {
    std::vector<std::string> names;
    for (basic::Control* control : form.Controls())
        names.push_back(control->TypeName() + ' ' + control->Name());
    EXPECT_THAT(names,
                ElementsAre("Label lblFirst", "TextBox txtFirst", "Label lblSecond", "TextBox txtSecond",
                            "TextBox txtThird", "Frame fmeBox", "OptionButton optOne", "OptionButton optTwo",
                            "ComboBox cmbList", "CommandButton cmdSave", "CommandButton cmdExit"));
    EXPECT_THAT(form.ControlsOf<OptionButton>(), ElementsAre(form.ui().optOne, form.ui().optTwo));
}

TEST_F(FormTest, OpensCentredAndFitsTheScreen) {
    form.ui();
    form.Window()->resize(5000, 5000);
    const QMargins margins = form.Window()->layout()->contentsMargins();
    form.Show();
    EXPECT_TRUE(form.Window()->screen()->availableGeometry().contains(form.Window()->geometry()));
    EXPECT_LT(form.Window()->layout()->contentsMargins().top(), margins.top()) << "its lists need the room";
}

TEST_F(FormTest, AWindowThatGrowsStaysOnTheScreen) {
    Show();
    const QRect screen = form.Window()->screen()->availableGeometry();
    const auto shown = [&] { return screen.contains(form.Window()->geometry()); };
    form.SetTop(TwipsFromPixels(screen.bottom() - 100, form.Window()));
    EXPECT_TRUE(shown());
    form.SetHeight(TwipsFromPixels(screen.height() + 50, form.Window()));
    EXPECT_TRUE(shown());
    while (form.Window()->minimumSizeHint().height() <= screen.height()) {
        auto* const box = new TextBox(form.Window());
        form.Window()->layout()->addWidget(box);
        box->show();
    }
    form.SetHeight(0);
    EXPECT_TRUE(shown()) << "its lines stand closer";
}

TEST_F(FormTest, WhatWasJustHiddenDoesNotHoldTheHeight) {
    Show();
    form.SetHeight(0);
    const int least = form.Height();
    form.ui().fmeBox->SetVisible(false);
    form.SetHeight(0);
    EXPECT_LT(form.Height(), least);
    form.ui().fmeBox->SetVisible(true);
    form.SetHeight(0);
    EXPECT_EQ(form.Height(), least);
}

TEST_F(FormTest, ControlsHaveAccessibleNames) {
    form.ui();
    form.Unload();
    form.OnLoad = [] {};
    struct UiNamed : UiTest {
        CommandButton* cmdPrevious;
        ListBox* lstInside;
        void setupUi(QWidget* window) {
            UiTest::setupUi(window);
            cmdPrevious = new CommandButton(window);
            cmdPrevious->setToolTip("Previous      Ctrl+P");
            lstInside = new ListBox(fmeBox);
        }
    };
    FormOf<UiNamed> named;
    EXPECT_EQ(named.ui().cmdPrevious->accessibleName(), "Previous");
    EXPECT_EQ(named.ui().lstInside->accessibleName(), "Box");
    const auto seen = [](QWidget* widget) {
        return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
    };
    EXPECT_EQ(seen(named.ui().txtFirst), "First");
    EXPECT_EQ(seen(named.ui().cmdSave), "Save");
}

// The real loop of a modal window, without a script: an error nobody trapped shows its box, the window stays
// open and works.
TEST(ModalForm, AnUntrappedErrorInsideLeavesTheWindowOpen) {
    EventLog log;
    frmTest form(log);
    form.ui().cmdSave->Click = [] { throw basic::Error(3021, "Either EOF or BOF is true"); };
    QTimer::singleShot(0, [&] {
        QTimer::singleShot(0, [&] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            EXPECT_EQ(box->text(), "Run-time error '3021':\n\nEither EOF or BOF is true");
            QTest::keyClick(box, Qt::Key_Return);
        });
        QTest::mouseClick(form.ui().cmdSave, Qt::LeftButton);
        EXPECT_TRUE(form.Visible());
        EXPECT_EQ(form.Window()->focusWidget(), form.ui().cmdSave);
        form.ui().cmdExit->Click = [&] { form.Unload(); };
        QTest::mouseClick(form.ui().cmdExit, Qt::LeftButton);
    });
    form.Show(vbModal);
    EXPECT_FALSE(form.Loaded());
    EXPECT_THAT(log, testing::Contains("Unload"));
}

}  // namespace
