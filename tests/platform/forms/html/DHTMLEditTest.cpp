#include <QAccessible>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QScrollBar>
#include <QToolButton>
#include <set>

#include "platform/forms/html/DHTMLEdit.h"
#include "tests/platform/forms/window/Fixture.h"

namespace {

struct UiReport {
    DHTMLEdit* dhtEdit;
    CommandButton* cmdPrint;
    void setupUi(QWidget* window) {
        window->setObjectName("frmReport");
        window->setWindowTitle("Report");
        window->resize(700, 400);
        auto* const layout = new QVBoxLayout(window);
        dhtEdit = new DHTMLEdit(window);
        cmdPrint = new CommandButton(window);
        cmdPrint->setDefault(true);
        layout->addWidget(dhtEdit);
        layout->addWidget(cmdPrint);
    }
};

std::string Ledger(int rows) {
    std::string text =
        "<html><body><table width='100%' cellspacing='0' cellpadding=0><tr><td "
        "colspan=3><b>Cash</b></td></tr>";
    for (int i = 1; i <= rows; ++i)
        text += "<tr><td width='20%'>0" + std::to_string(i) + "</td><td width='40%'>bill <i>no</i> " +
                std::to_string(i) + "</td><td></td><td align='Right'>1,500.00</td></tr>";
    return text + "</table></body></html>";
}

class DHTMLEditTest : public testing::Test {
  protected:
    DHTMLEditTest() {
        form.ui().cmdPrint->Click = [this] { ++printed; };
        form.Show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(form.Window()));
        view.SetFocus();
    }
    ~DHTMLEditTest() override { form.Unload(); }

    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(form.Window()->focusWidget(), key, modifiers);
    }
    static std::string Pasted() { return QApplication::clipboard()->text().toStdString(); }
    std::string FindBarAnswer() { return view.findChild<QLabel*>("answer")->text().toStdString(); }
    int Scrolled() { return view.verticalScrollBar()->value(); }

    FormOf<UiReport> form;
    DHTMLEdit& view = *form.ui().dhtEdit;
    int printed = 0;
};

TEST_F(DHTMLEditTest, CopiesForASpreadsheet) {
    view.SetDocumentHTML(Ledger(2));
    Key(Qt::Key_A, Qt::ControlModifier);
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Pasted(), "Cash\n01\tbill no 1\t\t1,500.00\n02\tbill no 2\t\t1,500.00");
    const QMimeData* content = QApplication::clipboard()->mimeData();
    EXPECT_THAT(content->html().toStdString(),
                testing::HasSubstr("<tr><td>01</td><td>bill no 1</td><td></td><td>1,500.00</td></tr>"));
    view.SetDocumentHTML("a &lt;script&gt;");
    view.Copy();
    EXPECT_THAT(QApplication::clipboard()->mimeData()->html().toStdString(),
                testing::HasSubstr("a &lt;script&gt;"));
}

TEST_F(DHTMLEditTest, MarksWithTheMouse) {
    view.SetDocumentHTML(Ledger(3));
    view.viewport()->repaint();
    const int line = view.DocumentHeight() / 5;
    QTest::mousePress(view.viewport(), Qt::LeftButton, {}, QPoint(160, 8 + line * 3 / 2));
    QMouseEvent move(QEvent::MouseMove, QPointF(20, 8 + line * 5 / 2), QPointF(), Qt::NoButton,
                     Qt::LeftButton, {});
    QApplication::sendEvent(view.viewport(), &move);
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, QPoint(20, 8 + line * 5 / 2));
    EXPECT_EQ(view.SelectedText(), "\tbill no 1\t\t1,500.00\n02");
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, QPoint(20, 20));
    EXPECT_THAT(view.SelectedText(), testing::StartsWith("Cash\n01")) << "nothing is marked: all";
}

TEST_F(DHTMLEditTest, FindsFromPlaceToPlace) {
    view.SetDocumentHTML(Ledger(1200));
    EXPECT_TRUE(view.Find("BILL NO 1199")) << "in any case, over markup";
    EXPECT_EQ(view.SelectedText(), "bill no 1199");
    EXPECT_GT(Scrolled(), 0);
    EXPECT_TRUE(view.Find("0999")) << "behind the end, from the begin again";
    EXPECT_FALSE(view.Find("nowhere"));
    EXPECT_EQ(view.SelectedText(), "0999") << "what was found stays";
}

TEST_F(DHTMLEditTest, TheFindFieldWorksByKeys) {
    view.SetDocumentHTML(Ledger(20));
    Key(Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(form.Window()->focusWidget(), "no 1");
    EXPECT_EQ(view.SelectedText(), "no 1");
    Key(Qt::Key_Return);
    EXPECT_EQ(view.SelectedText(), "no 10");
    QTest::keyClicks(form.Window()->focusWidget(), "x");
    EXPECT_EQ(FindBarAnswer(), "Not found");
    Key(Qt::Key_Backspace);
    EXPECT_EQ(FindBarAnswer(), "");
    Key(Qt::Key_Escape);
    EXPECT_EQ(form.Window()->focusWidget(), &view);
    Key(Qt::Key_F3);
    EXPECT_EQ(view.SelectedText(), "no 11");
    EXPECT_EQ(printed, 0) << "Enter in the field is no press of the form's button";
    EXPECT_EQ(form.ActiveControl(), &view);
}

TEST_F(DHTMLEditTest, ScrollsAndZoomsByKeys) {
    view.SetDocumentHTML(Ledger(300));
    const int height = view.DocumentHeight();
    view.viewport()->repaint();
    Key(Qt::Key_PageDown);
    EXPECT_GT(Scrolled(), 200);
    Key(Qt::Key_End);
    EXPECT_EQ(Scrolled(), height - view.viewport()->height());
    Key(Qt::Key_Home);
    EXPECT_EQ(Scrolled(), 0);
    for (int i = 0; i < 5; ++i) Key(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(view.Zoom(), 150);
    Key(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(view.Zoom(), 140);
    Key(Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(view.Zoom(), 100);
    QWheelEvent wheel({9, 9}, {9, 9}, {}, {0, -120}, Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(view.viewport(), &wheel);
    EXPECT_EQ(view.Zoom(), 90);
}

// Laying out what lies above must not move what the user reads.
TEST_F(DHTMLEditTest, WhatIsReadStaysWhileTheRestIsLaidOut) {
    std::string text = "<table width='100%'>";
    for (int i = 0; i < 1500; ++i)
        text += "<tr><td width='10%'>" + std::to_string(i) +
                "</td></tr><tr><td>a row of some lines, each a bit higher than guessed before</td></tr>";
    view.SetDocumentHTML(text);
    view.viewport()->repaint();
    view.verticalScrollBar()->setValue(view.verticalScrollBar()->maximum() / 2);
    view.viewport()->repaint();
    const QImage before = view.viewport()->grab().toImage();
    const int scrolled = Scrolled();
    ASSERT_TRUE(QTest::qWaitFor([&] { return Scrolled() != scrolled; }));
    QTest::qWait(50);
    EXPECT_EQ(view.viewport()->grab().toImage(), before);
}

TEST_F(DHTMLEditTest, ReadsAloud) {
    view.SetDocumentHTML(Ledger(1));
    QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(&view);
    ASSERT_TRUE(seen && seen->textInterface());
    EXPECT_EQ(seen->text(QAccessible::Name), "Report");
    EXPECT_EQ(seen->role(), QAccessible::Document);
    EXPECT_EQ(seen->textInterface()->text(0, 7), "Cash\n01");
}

// Without a mouse: each control is reached by Tab, and the printing begins by Ctrl+P or by Enter on its
// button.
TEST_F(DHTMLEditTest, ThePrintWindowWorksByKeys) {
    view.SetDocumentHTML(Ledger(200));
    view.SetPaper({"Stock Ledger", "", ""});
    int dialogs = 0;
    const auto begins = [&](const std::function<void()>& key) {
        QTimer user;  // the dialog asks the system for its printers before it shows
        QObject::connect(&user, &QTimer::timeout, [&] {
            auto* const dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
            if (!dialog) return;
            EXPECT_EQ(dialog->printer()->docName(), "Stock Ledger");
            ++dialogs;
            dialog->reject();
        });
        user.start(1);
        key();
    };
    QTimer::singleShot(0, [&] {
        auto* const preview = qobject_cast<QPrintPreviewDialog*>(QApplication::activeModalWidget());
        ASSERT_TRUE(preview);
        preview->activateWindow();
        ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == preview; }));
        std::set<QWidget*> reached;
        QToolButton* print = nullptr;
        while (preview->focusWidget() && reached.insert(preview->focusWidget()).second) {
            auto* const button = qobject_cast<QToolButton*>(preview->focusWidget());
            if (button && button->defaultAction() && button->defaultAction()->text() == "Print")
                print = button;
            QTest::keyClick(preview->focusWidget(), Qt::Key_Tab);
        }
        for (QToolButton* button : preview->findChildren<QToolButton*>()) {
            const bool there = button->isVisible() && button->isEnabled();
            EXPECT_EQ(reached.contains(button), there) << button->text().toStdString();
        }
        begins([&] { QTest::keyClick(preview->focusWidget(), Qt::Key_P, Qt::ControlModifier); });
        ASSERT_TRUE(print);
        EXPECT_EQ(dialogs, 1) << "by Ctrl+P";
        print->setFocus();
        begins([&] { QTest::keyClick(print, Qt::Key_Return); });
        preview->reject();
    });
    view.PrintDocument(true);
    EXPECT_EQ(dialogs, 2);
}

// It is painted for who looks, and is no part of what is read, copied or printed.
TEST_F(DHTMLEditTest, ABlankHintIsOnlyPainted) {
    view.SetDocumentHTML("<p>Heading</p>");
    const QImage without = view.viewport()->grab().toImage();
    const int height = view.DocumentHeight();
    view.SetBlankHint("Nothing to show");
    EXPECT_NE(view.viewport()->grab().toImage(), without);
    EXPECT_EQ(view.SelectedText(), "Heading");
    EXPECT_EQ(view.BodyInnerText(), "Heading");
    EXPECT_EQ(view.DocumentHeight(), height);
    view.SetBlankHint("");
    EXPECT_EQ(view.viewport()->grab().toImage(), without);
}

}  // namespace
