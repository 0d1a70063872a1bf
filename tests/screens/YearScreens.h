#pragma once

#include "core/MsgBox.h"
#include "tests/screens/ScreenFixture.h"

// What the tests of the year screens share: the rows, and a box of text that is worked with by keys.
class YearScreensTest : public test::ScreenTest {
  protected:
    using Lines = test::Lines;

    static Lines Rows(const std::string& sql) { return test::FreshBooks::Rows(sql); }
    static void Run(const std::string& sql) { test::FreshBooks::Run(sql); }
    static Lines Years() { return Rows("Select Fnncl_Yr, Crrnt_Yr_Flg From Fnncl_Yr_Mstr"); }
    static void AddYear(const std::string& longForm) {
        Run("Insert Into Fnncl_Yr_Mstr (Fnncl_Yr) Values ('" + longForm + "')");
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
    void ExpectBox(const std::string& text) { script.Box({.text = text, .flags = qm::vbInformation}); }
};
