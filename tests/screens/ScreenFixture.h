#pragma once

#include <QApplication>
#include <QTest>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/modGeneral.h"
#include "platform/forms/Controls.h"
#include "platform/forms/FlexGrid.h"
#include "platform/forms/TestSeams.h"
#include "tests/support/FreshBooks.h"

extern "C" void qmAttachScreens();

namespace test {

using Lines = std::vector<std::string>;

// The screens as a host meets them: fresh books with the current year 2001, opened by the class; the screens'
// own library shows the boxes and windows, which the script answers.
class ScreenTest : public testing::Test {
  protected:
    ScreenTest() { qmAttachScreens(); }  // as the class server does at the first box or menu

    static void Key(forms::Form& form, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(form.Window()->focusWidget(), key, modifiers);
    }
    static void Type(forms::Form& form, const char* text) {
        QTest::keyClicks(form.Window()->focusWidget(), text);
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

    FreshBooks books;
    forms::Script script{[](const std::string& fault) { ADD_FAILURE() << fault; }};
};

}  // namespace test
