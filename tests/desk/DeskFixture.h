#pragma once

#include <QAbstractItemView>
#include <QApplication>
#include <QDialog>
#include <QKeySequence>
#include <QLabel>
#include <QMenu>
#include <QSettings>
#include <QTest>
#include <QTimer>
#include <functional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "desk/DeskWindow.h"
#include "desk/NoticeBar.h"
#include "desk/Page.h"
#include "desk/SearchField.h"
#include "desk/SheetView.h"
#include "host/commands/Sample.h"
#include "platform/forms/window/Form.h"
#include "platform/forms/window/Script.h"
#include "tests/support/FreshBooks.h"
#include "tests/support/TempFolder.h"

extern "C" void qmAttachScreens();

namespace test {

// The desk on books of the year 2001, with settings of its own, driven by keys. Screens of the module that it
// opens are answered by the script.
class DeskTest : public testing::Test {
  protected:
    DeskTest() {
        qmAttachScreens();
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                           QString::fromStdString(settings.Path().string()));
    }

    // What the books hold has been laid down: the class is the desk's from now on.
    void Start() {
        const std::string path = books.DataPath();
        books.CloseHost();
        desk = std::make_unique<desk::DeskWindow>();
        desk->resize(1000, 700);
        desk->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(desk.get()));
        desk->OpenBooks(path);
    }
    // The sample firm's year: 142 lines of vouchers.
    void FillWithSample() {
        books.CloseHost();
        host::FillWithSample(books.DataPath(), 2001);
    }
    void StartOnVouchers() {
        FillWithSample();
        Start();
        Key(Qt::Key_2, Qt::AltModifier);
        ASSERT_EQ(Title(), "Vouchers");
        WaitForTotals("142 lines");
    }
    // A voucher 900 of one side: a line like each of the books that fits, with a day, sides and words of its
    // own.
    static std::string NewLines(const std::string& like, const std::string& values) {
        return "Insert Into tb_Ledger2001 (LedgerTrnNo, LedgerTrnType, LedgerCode, LedgerName, "
               "LedgerTxnDate, "
               "LedgerDrAmt, LedgerCrAmt, LedgerNarration) Select 900, 'Journal', LedgerCode, LedgerName, " +
               values + " From tb_Ledger2001 Where " + like;
    }
    // The one that is shown, of several.
    desk::SheetView& Sheet() {
        for (auto* const view : desk->Shown()->findChildren<desk::SheetView*>("sheet"))
            if (view->isVisible()) return *view;
        throw std::runtime_error("no table is shown");
    }
    // The texts of a shown row, "|" between them.
    std::string Line(int row) {
        const QAbstractItemModel& model = *Sheet().View().model();
        QStringList cells;
        for (int column = 0; column < model.columnCount(); ++column)
            cells << model.index(row, column).data().toString();
        return cells.join('|').toStdString();
    }
    std::string CurrentLine() {
        const QModelIndex at = Sheet().View().currentIndex();
        QStringList cells;
        for (int column = 0; column < Sheet().View().model()->columnCount(); ++column)
            cells << at.siblingAtColumn(column).data().toString();
        return cells.join('|').toStdString();
    }
    // What the worker answers comes through the event loop.
    void WaitForTotals(const char* part) {
        ASSERT_TRUE(QTest::qWaitFor([&] { return Sheet().TotalsText().contains(part); }))
            << Sheet().TotalsText().toStdString();
    }
    void Key(int key, Qt::KeyboardModifiers modifiers = {}) {
        ASSERT_TRUE(Activate(*desk) || QTest::qWaitForWindowActive(desk.get()));
        QWidget* const focus = desk->focusWidget() ? desk->focusWidget() : desk.get();
        QTest::keyClick(focus, static_cast<Qt::Key>(key), modifiers);
    }
    void Type(const char* text) { QTest::keyClicks(desk->focusWidget(), text); }
    // Presses keys as a user does who does not wait: each as soon as the one before it was taken, also where
    // that has opened a menu or a dialog, or the search what it found; none may be open at the end. What
    // begins with ' is typed. Gives the count of keys beside what was typed.
    static constexpr int Pace = 5;  // milliseconds from key to key: the loop of what was closed has ended
    std::size_t Press(const std::vector<std::string>& keys) {
        std::size_t next = 0, counted = 0;
        bool done = false;
        const std::function<void()> press = [&] {
            QWidget& taker = Taker();
            done = next == keys.size() && taker.window() == desk.get();
            if (done) return;
            QTimer::singleShot(Pace, qApp, press);  // before the key, which may run a loop of its own
            if (desk->findChild<desk::SearchField*>("search")->IsAwaited()) return;
            if (next == keys.size()) {
                ADD_FAILURE() << "left open: " << taker.window()->windowTitle().toStdString();
                taker.window()->close();
                return;
            }
            const std::string& key = keys[next++];
            if (key[0] == '\'') return QTest::keyClicks(&taker, QString::fromStdString(key.substr(1)));
            ++counted;
            const QKeyCombination keyed = QKeySequence(QString::fromStdString(key))[0];
            QTest::keyClick(&taker, keyed.key(), keyed.keyboardModifiers());
        };
        QTimer::singleShot(Pace, qApp, press);
        EXPECT_TRUE(QTest::qWaitFor([&] { return done; }, 20'000));
        return counted;
    }
    // A screen or a menu that closed may still be going, or be taken for the active window afterwards.
    static bool Activate(QWidget& window) {
        return QTest::qWaitFor(
            [&window] {
                if (QApplication::activeWindow() != &window) window.activateWindow();
                return QApplication::activeWindow() == &window;
            },
            1000);
    }
    // What a key goes to: an open menu, a dialog, or the desk, which some platforms do not make active again
    // by themselves.
    QWidget& Taker() {
        QWidget* window = QApplication::activePopupWidget();
        if (!window) {
            window = QApplication::activeModalWidget() ? QApplication::activeModalWidget() : desk.get();
            Activate(*window);
        }
        return window->focusWidget() ? *window->focusWidget() : *window;
    }
    std::string Title() const { return desk->Shown() ? desk->Shown()->Title().toStdString() : "none"; }
    std::string Told() const {
        return desk->Notice().isVisible() ? desk->Notice().Text().toStdString() : "nothing";
    }
    // The title of the toolkit's own dialog that the key brings; it is dismissed at once.
    std::string DialogOf(int key, Qt::KeyboardModifiers modifiers) {
        std::string title = "none";
        QTimer user;
        QObject::connect(&user, &QTimer::timeout, [&] {
            if (auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
                if (title == "none") title = dialog->windowTitle().toStdString();
                dialog->reject();
            }
        });
        user.start(50);
        Key(key, modifiers);
        return title;
    }
    // The lines of a chip's menu. Without showing it: the memory platform would take it for the active window
    // afterwards.
    QList<QAction*> Choices(const char* chip) {
        auto& menu = Child<QMenu>(chip);
        Q_EMIT menu.aboutToShow();
        return menu.actions();
    }
    template <class W>
    W& Child(const char* name) {
        W* const found = desk->Shown()->findChild<W*>(name);
        if (!found) throw std::runtime_error(std::string("the page has no ") + name);
        return *found;
    }

    TempFolder settings;
    FreshBooks books;
    forms::Script script{[](const std::string& fault) { ADD_FAILURE() << fault; }};
    std::unique_ptr<desk::DeskWindow> desk;
};

}  // namespace test
