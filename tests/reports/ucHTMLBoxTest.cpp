#include <QVBoxLayout>

#include "reports/ucHTMLBox.h"
#include "tests/screens/ScreenFixture.h"

using namespace testing;

namespace {

struct UiBox {
    qm::ucHTMLBox* ucHTMLBox;
    void setupUi(QWidget* window) {
        window->setObjectName("frmBox");
        window->resize(500, 300);
        ucHTMLBox = new qm::ucHTMLBox(window);
        auto* const layout = new QVBoxLayout(window);
        layout->addWidget(ucHTMLBox);
    }
};

class HTMLBoxTest : public test::ScreenTest {
  protected:
    HTMLBoxTest() { form.Show(); }
    ~HTMLBoxTest() override { form.Unload(); }

    forms::FormOf<UiBox> form;
    qm::ucHTMLBox& box = *form.ui().ucHTMLBox;
    forms::DHTMLEdit& dhtEdit = *box.ui().dhtEdit;
};

TEST_F(HTMLBoxTest, TextReadsTextAndSetsMarkup) {
    box.SetHTMl("<html><head><title>T</title></head><body>old</body></html>");
    box.SetText("<b>Cash</b> &amp; <i>Bank</i>");
    EXPECT_EQ(box.Text(), "Cash & Bank");
    EXPECT_EQ(box.rtx(), "<b>Cash</b> &amp; <i>Bank</i>");
    EXPECT_THAT(dhtEdit.DocumentHTML(), HasSubstr("<title>T</title>")) << "only the body is set";
}

TEST_F(HTMLBoxTest, RtxReadsTheBodyAndSetsTheDocument) {
    const std::string document = "<html><head><title>T</title></head><body><u>x</u>";
    box.Setrtx(document);
    EXPECT_EQ(dhtEdit.DocumentHTML(), document);
    EXPECT_EQ(box.rtx(), "<u>x</u>");
    box.Setrtx(basic::Null());
    EXPECT_EQ(dhtEdit.DocumentHTML(), "");
    EXPECT_EQ(box.rtx(), "");
}

TEST_F(HTMLBoxTest, EditableIsStoredAsItIsAndSetHTMlOverridesIt) {
    for (const bool flag : {true, false}) {
        box.Editable(flag);
        EXPECT_EQ(dhtEdit.BrowseMode(), flag);
    }
    box.SetText("x");
    EXPECT_FALSE(dhtEdit.BrowseMode());
    box.SetHTMl("x");
    EXPECT_TRUE(dhtEdit.BrowseMode());
}

TEST_F(HTMLBoxTest, TheViewFillsTheBox) {
    form.Window()->resize(640, 400);
    QTest::qWait(0);
    EXPECT_EQ(dhtEdit.geometry(), box.rect().adjusted(1, 1, 0, 0));
    EXPECT_EQ(dhtEdit.Name(), "dhtEdit");
}

}  // namespace
