#include <QInputMethodEvent>

#include "tests/platform/forms/window/Fixture.h"

namespace {

class TextBoxTest : public FormsTest {
  protected:
    void SetUp() override {
        Show();
        box = form.ui().txtFirst;
        box->Change = [this] { log.push_back("Change " + box->Text()); };
    }
    void AmountsOnly() {
        box->KeyPress = [this](int& ascii) {
            keys.push_back(ascii);
            if ((ascii < '0' || ascii > '9') && ascii != '.' && ascii != vbKeyBack) ascii = 0;
        };
    }
    TextBox* box = nullptr;
    std::vector<int> keys;
};

TEST_F(TextBoxTest, ChangeFiresForCodeAndTyping) {
    box->SetText("12");
    box->SetText("12");
    EXPECT_THAT(Logged(), ElementsAre("Change 12"));
    QTest::keyClicks(box, "a");
    EXPECT_THAT(Logged(), ElementsAre("Change a12"));
}

TEST_F(TextBoxTest, AChangeMayClearTheText) {
    box->Change = [this] {
        log.push_back(box->Text());
        if (box->Text() == "'") box->SetText("");
    };
    QTest::keyClicks(box, "'");
    EXPECT_THAT(Logged(), ElementsAre("'", ""));
    EXPECT_EQ(box->Text(), "");
}

TEST_F(TextBoxTest, KeyPressFilters) {
    AmountsOnly();
    QTest::keyClicks(box, "1-2.x5");
    EXPECT_EQ(box->Text(), "12.5");
    Key(Qt::Key_Backspace);
    EXPECT_EQ(box->Text(), "12.");
    EXPECT_EQ(keys.back(), vbKeyBack);
    QInputMethodEvent composed;
    composed.setCommitString("7\xE2\x82\xAC");
    QApplication::sendEvent(box, &composed);
    EXPECT_EQ(box->Text(), "12.7");
    keys.clear();
    Key(Qt::Key_Home);
    Key(Qt::Key_Delete);
    EXPECT_EQ(box->Text(), "2.7");
    EXPECT_THAT(keys, IsEmpty()) << "keys without a character";
}

TEST_F(TextBoxTest, LockedTakesCodeOnly) {
    box->SetLocked(true);
    QTest::keyClicks(box, "x");
    EXPECT_EQ(box->Text(), "");
    box->SetText("1,249.85");
    EXPECT_EQ(box->Text(), "1,249.85");
}

TEST_F(TextBoxTest, BackColorIsPainted) {
    box->SetBackColor(vbWhite);
    const QImage white = box->grab().toImage();
    box->SetBackColor(vbRed);
    EXPECT_EQ(box->BackColor(), vbRed);
    EXPECT_EQ(box->grab().toImage().pixelColor(box->width() / 2, 5), QColor(255, 0, 0));
    EXPECT_NE(white.pixelColor(box->width() / 2, 5), QColor(255, 0, 0));
}

TEST_F(TextBoxTest, AnAreaPartsItsLinesTheOldWay) {
    TextArea area(nullptr);
    area.SetText("thirty days\r\nnet");
    EXPECT_EQ(area.toPlainText(), "thirty days\nnet");
    EXPECT_EQ(area.Text(), "thirty days\r\nnet");
}

}  // namespace
