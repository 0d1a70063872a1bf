#pragma once

#include <QAbstractItemView>
#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QSettings>
#include <QTest>
#include <QTimer>
#include <functional>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "desk/DeskWindow.h"
#include "desk/NoticeBar.h"
#include "desk/Page.h"
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
        ASSERT_TRUE(QTest::qWaitForWindowActive(desk.get()));  // a screen that closed may still be going
        QWidget* const focus = desk->focusWidget() ? desk->focusWidget() : desk.get();
        QTest::keyClick(focus, static_cast<Qt::Key>(key), modifiers);
    }
    void Type(const char* text) { QTest::keyClicks(desk->focusWidget(), text); }
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
