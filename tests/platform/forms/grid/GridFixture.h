#pragma once

#include <QKeySequence>
#include <sstream>

#include "platform/basic/Error.h"
#include "platform/forms/controls/Text.h"
#include "platform/forms/controls/TreeView.h"
#include "platform/forms/grid/ListView.h"
#include "platform/forms/grid/MSFlexGrid.h"
#include "platform/forms/grid/VSFlexGrid.h"
#include "tests/platform/forms/window/Fixture.h"
#include "tests/support/Cases.h"

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

// A grid driven by the words of a file of sessions; what is said are the events that it logs and what is
// asked for.
template <class Fixture>
class GridSessions : public Fixture, public testing::WithParamInterface<test::Session> {
  public:
    static std::string NameOf(const testing::TestParamInfo<test::Session>& session) {
        return session.param.name;
    }

  protected:
    void RunSession() {
        this->Logged();
        for (const test::Block& step : GetParam().steps) {
            for (const std::string& line : step.given) Do(line);
            test::ExpectSaid(this->Logged(), step);
        }
    }

  private:
    void Do(const std::string& line) {
        const std::string word = line.substr(0, line.find(' '));
        const std::string rest = word.size() < line.size() ? line.substr(word.size() + 1) : "";
        int row = 0, col = 0;
        char between = 0;
        std::istringstream(rest) >> row >> between >> col;
        const auto say = [this](const std::string& text) { this->log.push_back(text); };
        auto& grid = this->control();
        try {
            if (word == "type") this->Type(rest);
            if (word == "key") Press(rest);
            if (word == "click") this->ClickCell(row, col);
            if (word == "press") this->Click(Named(rest));
            if (word == "focus") dynamic_cast<Control&>(*Named(rest)).SetFocus();
            if (word == "select") grid.Select(row, col);
            if (word == "row") grid.SetRow(row);
            if (word == "col") grid.SetCol(row);
            if (word == "rows") grid.SetRows(row);
            if (word == "add") grid.AddItem(rest);
            if (word == "remove") grid.RemoveItem(row);
            if (word == "locked") grid.SetEditable(false);
            if (rest.starts_with("row ")) grid.SetRowHidden(std::stoi(rest.substr(4)), true);
            if (rest.starts_with("col ")) grid.SetColHidden(std::stoi(rest.substr(4)), true);
            if (word == "refuse") this->refusedRow = row;
            if (word == "text") say(grid.TextMatrix(row, col));
            if (word == "checked") say(grid.CellChecked(row, col) ? "yes" : "no");
            if (word == "editing") say(grid.Editing() ? "yes" : "no");
            if (word == "active") say(this->Active());
            if (word == "at") say(At("", grid.Row(), grid.Col()).substr(1));
            if (word == "state")
                say(this->Active() + ' ' + this->Focused()->objectName().toStdString() +
                    At("", grid.Row(), grid.Col()) + (grid.Editing() ? " editing " : " ") +
                    grid.TextMatrix(grid.Row(), grid.Col()));
        } catch (const basic::Error&) {
            say("error");
        }
    }
    void Press(const std::string& keys) {
        const QKeyCombination key = QKeySequence(QString::fromStdString(keys))[0];
        this->Key(key.key(), key.keyboardModifiers());
    }
    QWidget* Named(const std::string& name) {
        return this->form.Window()->template findChild<QWidget*>(QString::fromStdString(name));
    }
};
