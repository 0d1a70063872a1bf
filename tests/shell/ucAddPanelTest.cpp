#include <QVBoxLayout>

#include "shell/ucAddPanel.h"
#include "tests/screens/ScreenFixture.h"

using namespace testing;

namespace {

struct UiPanel {
    qm::ucAddPanel* ucAddPanel1;
    void setupUi(QWidget* window) {
        window->setObjectName("frmPanel");
        ucAddPanel1 = new qm::ucAddPanel(window);
        ucAddPanel1->setObjectName("ucAddPanel1");
        auto* const layout = new QVBoxLayout(window);
        layout->addWidget(ucAddPanel1);
        window->resize(714 + 18, 60);
    }
};

class AddPanelTest : public test::ScreenTest {
  protected:
    AddPanelTest() {
        const std::pair<forms::Event<>*, const char*> events[] = {
            {&panel.AddRec, "Add"},   {&panel.UpdRec, "Upd"},     {&panel.DelRec, "Del"},
            {&panel.FindRec, "Find"}, {&panel.CloseRec, "Close"}, {&panel.NextRec, "Next"},
            {&panel.PrevRec, "Prev"}};
        for (const auto& [event, name] : events)
            *event = [this, text = std::string(name)] { log.push_back(text + " " + Enabled()); };
        form.Show();
    }
    ~AddPanelTest() override { form.Unload(); }

    std::string Enabled() {
        std::string indices;
        for (int i = 0; i < 7; ++i)
            if (panel.cmdUC(i).Enabled()) indices += std::to_string(i);
        return indices;
    }
    void Press(int index) { Click(&panel.cmdUC(index)); }

    forms::FormOf<UiPanel> form;
    qm::ucAddPanel& panel = *form.ui().ucAddPanel1;
    test::Lines log;
};

TEST_F(AddPanelTest, TheButtonsChangeBeforeTheEvent) {
    for (const int index : {2, 3, 4, 5, 6, 1, 0, 2, 4, 1}) Press(index);
    EXPECT_THAT(log, ElementsAre("Del 0123456", "Find 0123456", "Close 0123456", "Prev 0123456",
                                 "Next 0123456", "Upd 0123456", "Add 14", "Close 14", "Upd 0123456"));
}

TEST_F(AddPanelTest, SetEnableActButtsLeavesCloseAndTheArrows) {
    panel.SetEnableActButts(false);
    EXPECT_EQ(Enabled(), "456");
    panel.SetEnableActButts(true);
    EXPECT_EQ(Enabled(), "0123456");
    Press(0);
    panel.SetEnableActButts(true);
    EXPECT_EQ(Enabled(), "01234") << "the arrows stay off until Update";
}

TEST_F(AddPanelTest, WorksByKeyboardAndSharesTheBarEqually) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(form.Window()));
    QTest::keyClick(form.Window(), Qt::Key_F, Qt::AltModifier);
    EXPECT_THAT(log, ElementsAre("Find 0123456"));
    for (int i = 0; i < 7; ++i) {
        const QRect place = panel.cmdUC(i).geometry();
        EXPECT_NEAR(place.left(), panel.width() * i / 7, 1);
        EXPECT_NEAR(place.width(), panel.width() / 7, 1);
        EXPECT_EQ(place.height(), panel.height());
    }
    EXPECT_EQ(panel.cmdUC(5).accessibleName(), "Previous");
    EXPECT_THAT(form.Controls(), SizeIs(1)) << "its parts are not the form's";
}

}  // namespace
