#pragma once

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <functional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/MsgBox.h"
#include "core/modGeneral.h"
#include "platform/forms/Controls.h"
#include "platform/forms/grid/FlexGrid.h"
#include "platform/forms/window/Script.h"
#include "tests/support/FreshBooks.h"

extern "C" void qmAttachScreens();

namespace test {

using Lines = std::vector<std::string>;

// The screens as a host meets them: fresh books with the current year 2001, opened by the class; the screens'
// own library shows the boxes and windows, which the script answers.
class ScreenTest : public testing::Test {
  protected:
    using Lines = test::Lines;

    ScreenTest() { qmAttachScreens(); }  // as the class server does at the first box or menu

    static void Key(forms::Form& form, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(form.Window()->focusWidget(), key, modifiers);
    }
    // Letter by letter: the first one may open an editor that takes the rest.
    static void Type(forms::Form& form, const char* text) {
        for (const QChar letter : QString::fromUtf8(text)) {
            QWidget* const box = form.Window()->focusWidget();
            if (letter.unicode() < 128) {
                QTest::keyClicks(box, letter);
            } else {  // the toolkit's own clicks know Latin letters only
                QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, letter);
                QApplication::sendEvent(box, &press);
            }
        }
    }
    static void Click(QWidget* widget) { QTest::mouseClick(widget, Qt::LeftButton); }
    static QPoint Place(const forms::FlexGrid& grid, int row, int col) {
        return grid.CellRect(row, col).center();
    }
    // The mouse comes to the cell; the event is sent as such, since the pointer of a real desktop is
    // elsewhere.
    static void Hover(forms::FlexGrid& grid, int row, int col = 0) {
        Hover(grid.viewport(), Place(grid, row, col));
    }
    static void Hover(QWidget* widget, const QPoint& place, Qt::MouseButtons held = {}) {
        QMouseEvent move(QEvent::MouseMove, place, widget->mapToGlobal(place), Qt::NoButton, held, {});
        QApplication::sendEvent(widget, &move);
    }
    static void ClickCell(forms::FlexGrid& grid, int row, int col) {
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, Place(grid, row, col));
    }
    static void DoubleClickCell(forms::FlexGrid& grid, int row, int col) {
        ClickCell(grid, row, col);
        QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, Place(grid, row, col));
        QTest::mouseRelease(grid.viewport(), Qt::LeftButton, {}, Place(grid, row, col));
    }

    // Waits for the window itself: for the toolkit one is active too while the window below it is.
    static void BringToFront(const forms::Form& form) {
        ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == form.Window(); }));
    }
    static void Show(forms::Form& form) {
        form.Show();
        BringToFront(form);
    }
    static std::string Active(const forms::Form& form) {
        return form.ActiveControl() ? form.ActiveControl()->Name() : "";
    }
    static void Retype(forms::Form& form, const char* text) {
        static_cast<QLineEdit*>(form.Window()->focusWidget())->selectAll();
        Key(form, Qt::Key_Delete);
        Type(form, text);
    }

    // The title of the toolkit's own dialog that the action brings; it is dismissed at once.
    static std::string DialogOf(const std::function<void()>& action) {
        std::string title = "none";
        QTimer user;
        user.setSingleShot(true);
        QObject::connect(&user, &QTimer::timeout, [&] {
            if (auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
                title = dialog->windowTitle().toStdString();
                dialog->reject();
            }
        });
        user.start(0);
        action();
        return title;
    }

    static Lines Rows(const std::string& sql) { return FreshBooks::Rows(sql); }
    static void Run(const std::string& sql) { FreshBooks::Run(sql); }
    void ExpectBox(const std::string& text, int flags = qm::vbInformation, int answer = qm::vbOK) {
        script.Box(forms::Script::ExpectedBox{.text = text, .answer = answer, .flags = flags});
    }
    // The box of the error log, the only one without a title.
    void ExpectLogged(const std::string& form, const std::string& description = "",
                      const std::string& source = "") {
        script.Box(forms::Script::ExpectedBox{
            .text = "Formname: " + form + "\r\r Description : " + description + "\r Source : " + source,
            .flags = 0,
            .title = ""});
    }

    void ExpectQuestion(const std::string& text, int answer) {
        ExpectBox(text + "\r\n\r\nAre you sure ?", qm::vbYesNo + qm::vbInformation, answer);
    }
    // The form comes next, modally; `visit` works on it once it is in front.
    void ExpectForm(const std::string& name, const std::function<void()>& visit) {
        script.Modal(name, [visit](forms::Form& form) {
            BringToFront(form);
            visit();
        });
    }
    // The texts of a row from one column to another, "|" between them; of all rows below the heading.
    static std::string RowText(const forms::FlexGrid& grid, int row, int from, int to) {
        std::string text;
        for (int col = from; col <= to; ++col) text += (col > from ? "|" : "") + grid.TextMatrix(row, col);
        return text;
    }
    static Lines RowTexts(const forms::FlexGrid& grid, int from, int to) {
        Lines rows;
        for (int row = 1; row < grid.Rows(); ++row) rows.push_back(RowText(grid, row, from, to));
        return rows;
    }
    static Lines ListOf(const forms::ComboBox& box) {
        Lines lines;
        for (int i = 0; i < box.ListCount(); ++i) lines.push_back(box.List(i));
        return lines;
    }

    FreshBooks books;
    forms::Script script{[](const std::string& fault) { ADD_FAILURE() << fault; }};
};

}  // namespace test
