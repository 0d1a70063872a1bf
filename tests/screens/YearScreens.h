#pragma once

#include <QApplication>
#include <QTest>
#include <functional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/modGeneral.h"
#include "platform/forms/Controls.h"
#include "platform/forms/TestSeams.h"
#include "tests/support/BoxScript.h"
#include "tests/support/FreshBooks.h"

using Lines = std::vector<std::string>;

// A screen on fresh books with the current year 2001, worked with by keys and the mouse. The boxes of the
// system are expected in `boxes`; modal screens and errors that no routine traps in `script`.
class YearScreensTest : public testing::Test {
  protected:
    static Lines Rows(const std::string& sql) { return test::FreshBooks::Rows(sql); }
    static std::string One(const std::string& sql) { return test::FreshBooks::One(sql); }
    static void Run(const std::string& sql) { test::FreshBooks::Run(sql); }
    static Lines Years() { return Rows("Select Fnncl_Yr, Crrnt_Yr_Flg From Fnncl_Yr_Mstr"); }
    static void AddYear(const std::string& longForm) {
        Run("Insert Into Fnncl_Yr_Mstr (Fnncl_Yr) Values ('" + longForm + "')");
    }

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
    static void Key(forms::Form& form, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(form.Window()->focusWidget(), key, modifiers);
    }
    static void Type(forms::Form& form, const char* text) {
        QTest::keyClicks(form.Window()->focusWidget(), text);
    }
    static void Retype(forms::Form& form, const char* text) {
        static_cast<QLineEdit*>(form.Window()->focusWidget())->selectAll();
        Key(form, Qt::Key_Delete);
        Type(form, text);
    }
    static void Click(QWidget* widget) { QTest::mouseClick(widget, Qt::LeftButton); }

    test::FreshBooks books;
    test::BoxScript boxes;
    forms::Script script{[](const std::string& fault) { ADD_FAILURE() << fault; }};
};
