#pragma once

#include <QApplication>
#include <QTest>
#include <QVBoxLayout>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/forms/controls/Controls.h"
#include "platform/forms/controls/Text.h"
#include "platform/forms/controls/TreeView.h"
#include "platform/forms/grid/ListView.h"
#include "platform/forms/grid/MSFlexGrid.h"
#include "platform/forms/grid/VSFlexGrid.h"
#include "platform/forms/window/TestSeams.h"

using namespace forms;
using testing::ElementsAre;
using testing::IsEmpty;

// The kind of control under test between two text boxes, laid out as the designer's files do.
template <class Tested>
struct UiOf {
    TextBox* txtBefore;
    Tested* tested;
    TextBox* txtAfter;

    void setupUi(QWidget* window) {
        window->setObjectName("frmTest");
        window->resize(700, 400);
        auto* layout = new QVBoxLayout(window);
        txtBefore = new TextBox(window);
        tested = new Tested(window);
        txtAfter = new TextBox(window);
        txtBefore->setObjectName("txtBefore");
        tested->setObjectName("tested");
        txtAfter->setObjectName("txtAfter");
        for (QWidget* widget : {static_cast<QWidget*>(txtBefore), static_cast<QWidget*>(tested),
                                static_cast<QWidget*>(txtAfter)})
            layout->addWidget(widget);
    }
};

using EventLog = std::vector<std::string>;

template <class Tested>
class TestForm : public FormOf<UiOf<Tested>> {
  public:
    explicit TestForm(EventLog& log) : log_(log) {}

  protected:
    std::vector<Form::Command> CtrlCommands() override { return {{'D', {}}, {'S', {}}}; }
    void Form_KeyDown(int keyCode, int) override {
        log_.push_back(std::string("Form ") + static_cast<char>(keyCode));
    }

  private:
    EventLog& log_;
};

// A shown form with one control of a kind; a test's handlers log to `log`.
template <class Tested>
class ControlTest : public testing::Test {
  protected:
    EventLog log;
    TestForm<Tested> form{log};
    Script script{[](const std::string& fault) { ADD_FAILURE() << fault; }};

    Tested& control() { return *form.ui().tested; }
    void Show() {
        form.Show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(form.Window()));
        QApplication::processEvents();
    }
    EventLog Logged() { return std::exchange(log, {}); }
    std::string Active() { return form.ActiveControl() ? form.ActiveControl()->Name() : ""; }
    // Keys to whatever has the focus, as a user's go.
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(Focused(), key, modifiers);
    }
    void Type(const std::string& text) {
        for (const char c : text) QTest::keyClick(Focused(), c);
    }
    QWidget* Focused() { return form.Window()->focusWidget() ? form.Window()->focusWidget() : form.Window(); }
    void ClickCell(int row, int col, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(control().viewport(), button, {}, Place(row, col));
    }
    void DoubleClickCell(int row, int col) {
        ClickCell(row, col);
        QTest::mouseDClick(control().viewport(), Qt::LeftButton, {}, Place(row, col));
        QTest::mouseRelease(control().viewport(), Qt::LeftButton, {}, Place(row, col));
    }
    QPoint Place(int row, int col) { return control().CellRect(row, col).center(); }
};

inline std::string At(const std::string& name, int row, int col) {
    return name + ' ' + std::to_string(row) + ',' + std::to_string(col);
}
