#pragma once

#include "platform/forms/controls/Text.h"
#include "platform/forms/controls/TreeView.h"
#include "platform/forms/grid/ListView.h"
#include "platform/forms/grid/MSFlexGrid.h"
#include "platform/forms/grid/VSFlexGrid.h"
#include "tests/platform/forms/window/Fixture.h"

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
class ControlTest : public WindowTest<TestForm<Tested>> {
  protected:
    Tested& control() { return *this->form.ui().tested; }
    std::string Active() { return WindowTest<TestForm<Tested>>::Active(this->form); }
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
