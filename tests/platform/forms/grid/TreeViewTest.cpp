#include <QLineEdit>

#include "platform/forms/controls/Button.h"
#include "platform/forms/controls/TreeView.h"
#include "tests/platform/forms/grid/GridFixture.h"
#include "tests/support/ErrorOf.h"

namespace {

class TreeViewTest : public ControlTest<TreeView> {
  protected:
    void SetUp() override { Fill(); }
    void Fill() {
        TreeView& tree = control();
        tree.Clear();
        tree.Add("", 0, "R2", "Suppliers");
        tree.Add("", 0, "R1", "Bank");
        tree.Add("R2", tvwChild, "C5", "sharma");
        tree.Add("R2", tvwChild, "C4", "Anand");
        tree.expandAll();
    }
    std::string Texts() {
        std::string all;
        for (QTreeWidgetItemIterator it(&control()); *it; ++it) all += (*it)->text(0).toStdString() + ' ';
        return all;
    }
    void ClickNode(const std::string& key) {
        QTest::mouseClick(control().viewport(), Qt::LeftButton, {},
                          control().visualItemRect(&control().Item(key)).center());
    }
};

TEST_F(TreeViewTest, NodesKnowTheirPlace) {
    const Node& node = control().Item("C5");
    EXPECT_EQ(node.FullPath(), "Suppliers\\sharma");
    EXPECT_EQ(node.Parent()->Key(), "R2");
    EXPECT_EQ(node.Parent()->Children(), 2);
    EXPECT_EQ(node.Parent()->Parent(), nullptr);
    EXPECT_TRUE(node.Tag.IsNull());
    EXPECT_EQ(control().Count(), 4);
    EXPECT_EQ(control().SelectedItem(), nullptr);
    control().Item("C5").SetSelected(true);
    EXPECT_EQ(control().SelectedItem(), &node);
}

TEST_F(TreeViewTest, EqualKeysAndMissingRelativesAreRefused) {
    const ImageList images;
    TreeView& tree = control();
    tree.SetImageList(&images);
    EXPECT_EQ(test::ErrorOf([&] { tree.Add("", 0, "R1", "again"); }), KeyNotUnique);
    EXPECT_EQ(test::ErrorOf([&] { tree.Add("R9", tvwChild, "C9", "orphan"); }), ElementNotFound);
    EXPECT_EQ(test::ErrorOf([&] { tree.Add("R1", tvwChild, "C9", "bare", "Received"); }), ElementNotFound);
    EXPECT_EQ(test::ErrorOf([&] { tree.Item("C9"); }), ElementNotFound);
    EXPECT_EQ(control().Count(), 4);
    tree.Clear();
    EXPECT_EQ(test::ErrorOf([&] { tree.Item("R1"); }), ElementNotFound);
    tree.Add("", 0, "R1", "Bank");  // free again
}

TEST_F(TreeViewTest, APictureIsLightOnASelectedRow) {
    ImageList images;
    images.Add("Received", ":/forms/icons/received.svg");
    const auto shade = [&](QIcon::Mode mode) {
        const QImage image = images.Icon("Received").pixmap(QSize(16, 16), 2, mode).toImage();
        int light = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (qAlpha(image.pixel(x, y)) > 200) light = std::max(light, qGray(image.pixel(x, y)));
        return light;
    };
    EXPECT_LT(shade(QIcon::Normal), 100);
    EXPECT_GT(shade(QIcon::Selected), 200);
}

TEST_F(TreeViewTest, SortsWhereTold) {
    EXPECT_EQ(Texts(), "Suppliers sharma Anand Bank ");
    control().SetSorted(true);
    EXPECT_EQ(Texts(), "Bank Suppliers Anand sharma ");
    control().Add("R2", tvwChild, "C6", "Mehta");
    control().Add("", 0, "R3", "assets");
    EXPECT_EQ(Texts(), "assets Bank Suppliers Anand Mehta sharma ");
}

TEST_F(TreeViewTest, NodeClickIsTheUsersChoiceOnly) {
    Show();
    control().SetFocus();
    control().NodeClick = [this](Node& node) { log.push_back(node.Key()); };
    control().Click = [this] { log.push_back("click"); };
    control().Item("R2").SetSelected(true);
    EXPECT_THAT(Logged(), IsEmpty());
    ClickNode("C5");
    EXPECT_THAT(Logged(), ElementsAre("C5", "click"));
    Key(Qt::Key_Down);
    EXPECT_THAT(Logged(), ElementsAre("C4"));
    QTest::mouseClick(control().viewport(), Qt::LeftButton, {},
                      control().viewport()->rect().bottomRight() - QPoint(5, 5));
    EXPECT_THAT(Logged(), ElementsAre("click"));
    control().NodeClick = [this](Node&) { Fill(); };  // a handler may throw all nodes away
    ClickNode("C5");
    EXPECT_EQ(control().Count(), 4);
}

class LabelEditTest : public TreeViewTest {
  protected:
    void SetUp() override {
        Fill();
        Show();
        control().SetFocus();
        control().Item("C5").SetSelected(true);
        control().AfterLabelEdit = [this](bool& cancel, const std::string& text) {
            log.push_back(control().SelectedItem()->FullPath() + " -> " + text);
            if (rebuild) Fill();
            cancel = refuse;
        };
    }
    void Rename(const std::string& text, Qt::Key end) {
        Key(Qt::Key_F2);
        Type(text);
        Key(end);
        QApplication::processEvents();
    }
    bool rebuild = false;
    bool refuse = false;
};

TEST_F(LabelEditTest, TakesRefusesOrDropsTheNewText) {
    Rename("Verma", Qt::Key_Return);
    EXPECT_THAT(Logged(), ElementsAre("Suppliers\\sharma -> Verma"));
    EXPECT_EQ(control().Item("C5").Text(), "Verma");
    Rename("", Qt::Key_Return);
    EXPECT_THAT(Logged(), ElementsAre("Suppliers\\Verma -> Verma"));  // unchanged, and told all the same
    Rename("Gupta", Qt::Key_Escape);
    EXPECT_THAT(Logged(), IsEmpty());
    refuse = true;
    Rename("Gupta", Qt::Key_Return);
    EXPECT_EQ(control().Item("C5").Text(), "Verma");
}

TEST_F(LabelEditTest, ARebuiltTreeThrowsTheLabelAway) {
    rebuild = true;
    Rename("Verma", Qt::Key_Return);
    EXPECT_EQ(Texts(), "Suppliers sharma Anand Bank ");
}

TEST_F(LabelEditTest, LeavingCompletesItACommandDropsItAndOtherLettersAreItsOwn) {
    Key(Qt::Key_F2);
    Key(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(static_cast<QLineEdit*>(Focused())->text(), "");
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(static_cast<QLineEdit*>(Focused())->text(), "sharma");
    EXPECT_THAT(Logged(), IsEmpty());
    Type("Be");
    Key(Qt::Key_D, Qt::ControlModifier);
    EXPECT_THAT(Logged(), ElementsAre("Form D"));
    EXPECT_EQ(control().Item("C5").Text(), "sharma");
    Key(Qt::Key_F2);
    Type("Gupta");
    form.ui().txtAfter->SetFocus();
    EXPECT_THAT(Logged(), ElementsAre("Suppliers\\sharma -> Gupta"));
    EXPECT_EQ(Active(), "txtAfter");
    CommandButton go(form.Window());
    go.setText("&Go");
    go.show();
    go.Click = [this] { log.push_back("Go"); };
    control().SetFocus();
    Key(Qt::Key_F2);
    Type("Shah");
    Key(Qt::Key_G, Qt::AltModifier);
    EXPECT_THAT(Logged(), ElementsAre("Suppliers\\Gupta -> Shah", "Go"));
}

}  // namespace
