#pragma once

#include <QTest>
#include <QTimer>
#include <QVBoxLayout>
#include <functional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/forms/Controls.h"
#include "platform/forms/window/Script.h"

using namespace forms;
using testing::ElementsAre;
using testing::IsEmpty;

// The controls of the test form, laid out as the designer's files do.
struct UiTest {
    Label *lblFirst, *lblSecond;
    TextBox *txtFirst, *txtSecond, *txtThird;
    Frame* fmeBox;
    OptionButton *optOne, *optTwo;
    ComboBox* cmbList;
    CommandButton *cmdSave, *cmdExit;

    void setupUi(QWidget* window) {
        window->setObjectName("frmTest");
        window->resize(400, 300);
        auto* layout = new QVBoxLayout(window);
        const auto add = [&]<class T>(T*& control, const char* name, QWidget* parent) {
            control = new T(parent);
            control->setObjectName(name);
            parent->layout()->addWidget(control);
        };
        add(lblFirst, "lblFirst", window);
        add(txtFirst, "txtFirst", window);
        add(lblSecond, "lblSecond", window);
        add(txtSecond, "txtSecond", window);
        add(txtThird, "txtThird", window);
        add(fmeBox, "fmeBox", window);
        fmeBox->setLayout(new QVBoxLayout);
        add(optOne, "optOne", fmeBox);
        add(optTwo, "optTwo", fmeBox);
        add(cmbList, "cmbList", window);
        add(cmdSave, "cmdSave", window);
        add(cmdExit, "cmdExit", window);
        lblFirst->setText("&First");
        lblFirst->setBuddy(txtFirst);
        lblSecond->setText("Se&cond");
        lblSecond->setBuddy(txtSecond);
        fmeBox->setTitle("&Box");
        cmdSave->setText("&Save");
        cmdExit->setText("E&xit");
        layout->addStretch();
    }
};

using EventLog = std::vector<std::string>;

// A form whose events write their names; a test sets what else they do.
class frmTest : public FormOf<UiTest> {
  public:
    explicit frmTest(EventLog& log) : log_(log) {}

    std::function<void()> OnLoad, OnActivate, OnUnload;
    std::function<void(int)> OnKey;

  protected:
    void Wire() override {
        for (TextBox* box : {ui().txtFirst, ui().txtSecond, ui().txtThird}) Watch(*box);
        Watch(*ui().cmdSave);
        ui().cmdSave->Click = [this] { Note("cmdSave_Click"); };
    }
    void Form_Load() override { Run("Load", OnLoad); }
    void Form_Activate() override { Run("Activate", OnActivate); }
    void Form_Unload() override { Run("Unload", OnUnload); }
    void Form_KeyDown(int keyCode, int shift) override {
        Note(std::string("KeyDown ") + static_cast<char>(keyCode) + std::to_string(shift));
        if (OnKey) OnKey(keyCode);
    }

  private:
    void Watch(Control& control) {
        const std::string name = control.Name();
        control.GotFocus = [this, name] { Note(name + "+"); };
        control.LostFocus = [this, name] { Note(name + "-"); };
        control.Validate = [this, name](bool&) { Note(name + "?"); };
    }
    void Note(const std::string& what) { log_.push_back(what); }
    void Run(const char* name, const std::function<void()>& more) {
        Note(name);
        if (more) more();
    }

    EventLog& log_;
};

// A form whose events log, and the keys and clicks of its user.
template <class TestedForm>
class WindowTest : public testing::Test {
  protected:
    EventLog log;
    TestedForm form{log};
    Script script{[](const std::string& fault) { ADD_FAILURE() << fault; }};

    // What was logged since the last call.
    EventLog Logged() { return std::exchange(log, {}); }
    void Show() {
        form.Show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(form.Window()));
        QApplication::processEvents();
        log.clear();
    }
    static std::string Active(const Form& of) { return of.ActiveControl() ? of.ActiveControl()->Name() : ""; }
    QWidget* Focused() { return form.Window()->focusWidget() ? form.Window()->focusWidget() : form.Window(); }
    // A key to whatever has the focus, as a user's does.
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(Focused(), key, modifiers);
    }
    void Type(const std::string& text) {
        for (const char c : text) QTest::keyClick(Focused(), c);
    }
    // A key as the system tells the toolkit of it: to the form's window, whatever has dropped over it.
    void SystemKey(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease})
            qt_handleKeyEvent(form.Window()->windowHandle(), type, key, modifiers);
    }
    static void Click(QWidget* widget) { QTest::mouseClick(widget, Qt::LeftButton); }
};

using FormsTest = WindowTest<frmTest>;
