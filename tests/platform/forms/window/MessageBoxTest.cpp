#include <QMessageBox>

#include "platform/forms/controls/Text.h"
#include "platform/forms/window/Application.h"
#include "platform/forms/window/MessageBox.h"
#include "tests/platform/forms/window/Fixture.h"

namespace {

// A real box over a real form; `act` is what the user does with it.
class MessageBoxTest : public testing::Test {
  protected:
    int Ask(const std::string& text, int flags, const std::function<void(QMessageBox&)>& act,
            const char* title = "Tovik Softwares") {
        QTimer::singleShot(0, [act] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            act(*box);
        });
        return ShowMessage(text, flags, title);
    }
    EventLog log;
    frmTest form{log};
};

TEST_F(MessageBoxTest, LineEnds) {
    const std::pair<std::string, std::string> texts[] = {
        {"one\r\n\r\ntwo", "one\n\ntwo"},
        {"error\r   LEDGER NOT CREATED  ", "error\n   LEDGER NOT CREATED  "},
        {"range \r\n\r\n'01-Apr-2000'", "range \n\n'01-Apr-2000'"},
        {"a\nb\r\rc\r", "a\nb\n\nc\n"},
        {"<b>& plain", "<b>& plain"},
    };
    for (const auto& [text, shown] : texts) {
        EXPECT_EQ(WithLineEnds(text), shown);
        Ask(text, 0, [&](QMessageBox& box) {
            EXPECT_EQ(FromQt(box.text()), shown);
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            QTest::keyClick(&box, Qt::Key_Escape);
        });
    }
}

// The window itself is asked: a title put in on the way to it would be no one's.
TEST_F(MessageBoxTest, BearsTheTitleThatItWasGivenOrNone) {
    for (const char* title : {"Tovik Softwares", ""})
        Ask(
            "text", 0,
            [&](QMessageBox& box) {
                EXPECT_EQ(box.windowTitle(), title);
                QTest::keyClick(&box, Qt::Key_Escape);
            },
            title);
}

TEST_F(MessageBoxTest, AnswersAndIcons) {
    const struct {
        int flags;
        Qt::Key key;
        int answer;
        const char* icon;
    } boxes[] = {
        {0, Qt::Key_Return, 1, ""},
        {64, Qt::Key_Escape, 1, ":/forms/icons/information.svg"},
        {68, Qt::Key_Return, 6, ":/forms/icons/question.svg"},
        {68, Qt::Key_Escape, 7, ":/forms/icons/question.svg"},
        {4, Qt::Key_Escape, 7, ""},
    };
    for (const auto& expected : boxes)
        EXPECT_EQ(
            Ask("Are you sure ?", expected.flags,
                [&](QMessageBox& box) {
                    EXPECT_EQ(box.iconPixmap().toImage(), QIcon(expected.icon).pixmap(36, 36).toImage());
                    for (const QAbstractButton* button : box.buttons())
                        EXPECT_TRUE(button->icon().isNull()) << "no picture of the toolkit's";
                    QFont title = box.font();
                    title.setBold(true);
                    EXPECT_GT(box.width(), QFontMetrics(title).horizontalAdvance(box.windowTitle()) + 100)
                        << "with the frame's own buttons";
                    QTest::keyClick(&box, expected.key);
                }),
            expected.answer);
}

// The system has not told yet that the form is active again when the next box or list comes.
TEST_F(MessageBoxTest, WhatFollowsAtOnceStandsOverTheFormAndItsControlHasTheFocus) {
    form.Show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form.Window()));
    ComboBox& list = *form.ui().cmbList;
    list.AddItem("Receipt");
    list.SetFocus();
    for (const char* text : {"Cannot save Voucher", "Disk full"})
        Ask(text, 64, [this](QMessageBox& box) {
            EXPECT_EQ(box.parentWidget(), form.Window());
            QTest::keyClick(&box, Qt::Key_Return);
        });
    EXPECT_TRUE(list.hasFocus());
    list.OpenList();
    qt_handleKeyEvent(form.Window()->windowHandle(), QEvent::KeyPress, Qt::Key_Escape, {});
    EXPECT_TRUE(list.hasFocus());

    frmTest picker(log);
    picker.OnActivate = [&] { QTimer::singleShot(0, [&] { picker.Unload(); }); };
    picker.Show(vbModal);
    Ask("No items", 64, [this](QMessageBox& box) {
        EXPECT_EQ(box.parentWidget(), form.Window());
        QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_TRUE(list.hasFocus());
}

TEST_F(MessageBoxTest, GivesTheFocusBackAndFiresNothing) {
    form.Show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form.Window()));
    form.ui().txtSecond->SetFocus();
    log.clear();
    SetMousePointer(vbHourglass);
    Ask("Saved", 64, [](QMessageBox& box) {
        EXPECT_EQ(QApplication::overrideCursor(), nullptr) << "no hourglass over a box that waits";
        QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_NE(QApplication::overrideCursor(), nullptr);
    SetMousePointer(vbDefault);
    EXPECT_TRUE(QTest::qWaitForWindowActive(form.Window()));
    EXPECT_TRUE(form.ui().txtSecond->hasFocus());
    EXPECT_THAT(log, IsEmpty()) << "neither focus events nor Form_Activate";
}

}  // namespace
