#include "platform/basic/Error.h"
#include "tests/platform/forms/window/Fixture.h"

namespace {

class ButtonTest : public FormsTest {
  protected:
    void SetUp() override {
        Show();
        form.ui().optTwo->setText("Two");
        form.ui().optOne->Click = [this] { log.push_back("One"); };
        form.ui().optTwo->Click = [this] { log.push_back("Two"); };
    }
};

TEST_F(ButtonTest, OptionsOfAFrameAreOneGroup) {
    OptionButton &one = *form.ui().optOne, &two = *form.ui().optTwo;
    Logged();
    one.SetValue(1);
    EXPECT_THAT(Logged(), ElementsAre("One"));
    one.SetValue(1);
    EXPECT_THAT(Logged(), IsEmpty());
    const auto clickTwo = [&] { QTest::mouseClick(&two, Qt::LeftButton, {}, QPoint(8, two.height() / 2)); };
    two.SetFocus();
    Logged();
    clickTwo();
    EXPECT_THAT(Logged(), ElementsAre("Two"));
    EXPECT_FALSE(one.Value());
    clickTwo();
    EXPECT_THAT(Logged(), ElementsAre("Two")) << "the user's click on the chosen one fires again";
    two.SetValue(0);
    EXPECT_FALSE(one.Value() || two.Value()) << "code can leave the group without a choice";
    EXPECT_THAT(Logged(), IsEmpty());
    auto* elsewhere = new OptionButton(form.Window());
    elsewhere->SetValue(1);
    one.SetValue(1);
    EXPECT_TRUE(elsewhere->Value());
}

// In its picture, whoever gave it: a default button has a colour of its own, an option perhaps no mark yet.
TEST_F(ButtonTest, TheFocusIsSeen) {
    form.ui().cmdSave->setDefault(true);
    auto* check = new CheckBox(form.ui().fmeBox);
    form.ui().fmeBox->layout()->addWidget(check);
    check->show();
    for (Control* control :
         std::initializer_list<Control*>{form.ui().cmdSave, form.ui().cmdExit, form.ui().optOne, check}) {
        form.ui().txtFirst->SetFocus();
        const QImage without = control->Widget()->grab().toImage();
        control->SetFocus();
        EXPECT_NE(control->Widget()->grab().toImage(), without) << control->Name();
    }
}

TEST_F(ButtonTest, TabComesToTheChosenOption) {
    const auto next = [this] {
        form.ui().txtThird->SetFocus();
        Key(Qt::Key_Tab);
        return Active(form);
    };
    EXPECT_EQ(next(), "optOne");
    form.ui().optTwo->SetValue(1);
    EXPECT_EQ(next(), "optTwo");
}

TEST_F(ButtonTest, CheckBoxFiresOnEveryChange) {
    auto* check = new CheckBox(form.Window());
    form.Window()->layout()->addWidget(check);
    check->show();
    check->Click = [&] { log.push_back("Click " + std::to_string(check->Value())); };
    check->SetValue(1);
    check->SetValue(1);
    EXPECT_THAT(Logged(), ElementsAre("Click 1"));
    check->SetFocus();
    Logged();
    QTest::keyClick(check, Qt::Key_Space);
    EXPECT_THAT(Logged(), ElementsAre("Click 0"));
    check->SetLocked(true);
    QTest::keyClick(check, Qt::Key_Space);
    EXPECT_THAT(Logged(), IsEmpty());
}

TEST_F(ButtonTest, ControlsOfAnArrayAreFoundByIndex) {
    const ControlArray<CommandButton> cmdUC(form, "cmdUC");
    auto* third = new CommandButton(form.Window());
    third->setObjectName("cmdUC_3");
    EXPECT_EQ(&cmdUC(3), third);
    EXPECT_THROW(cmdUC(4), basic::Error);
}

}  // namespace
