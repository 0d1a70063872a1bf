#include <QCalendarWidget>

#include "platform/basic/Clock.h"
#include "platform/basic/Dates.h"
#include "tests/platform/forms/window/Fixture.h"

namespace {

class DTPickerTest : public FormsTest {
  protected:
    void SetUp() override {
        basic::Clock::Set(basic::Date{basic::MakeDate(2001, 4, 1).Serial + 0.75});
        Show();
        picker = new DTPicker(form.Window());
        form.Window()->layout()->addWidget(picker);
        picker->show();
        picker->SetFocus();
    }
    void TearDown() override { basic::Clock::Set(std::nullopt); }
    DTPicker* picker = nullptr;
};

TEST_F(DTPickerTest, StartsAtTodayAndShowsEnglishMonths) {
    EXPECT_EQ(picker->Value(), basic::MakeDate(2001, 4, 1));
    picker->SetValue(basic::Date{basic::MakeDate(2002, 3, 31).Serial + 0.5});
    EXPECT_EQ(picker->text(), "31-Mar-2002");
    EXPECT_EQ(picker->Value(), basic::MakeDate(2002, 3, 31)) << "without the time of day";
    picker->SetValue(basic::Date{0});
    EXPECT_EQ(picker->text(), "30-Dec-1899");
}

TEST_F(DTPickerTest, TheCalendarOpensByKeyAndByCode) {
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"F4", [this] { Key(Qt::Key_F4); }},
        {"Alt+Down", [this] { Key(Qt::Key_Down, Qt::AltModifier); }},
        {"code", [this] { picker->OpenList(); }},
    };
    for (const auto& [what, open] : ways) {
        SCOPED_TRACE(what);
        Logged();
        open();
        ASSERT_TRUE(picker->calendarWidget()->isVisible());
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
        EXPECT_FALSE(picker->calendarWidget()->isVisible());
        EXPECT_THAT(Logged(), IsEmpty());
    }
    form.ui().cmdSave->setDefault(true);
    for (const auto key : {Qt::Key_Escape, Qt::Key_Return}) {
        picker->OpenList();
        SystemKey(key);
        EXPECT_FALSE(picker->calendarWidget()->isVisible());
        EXPECT_THAT(Logged(), IsEmpty()) << "the key that closes it does nothing else";
        EXPECT_TRUE(picker->hasFocus());
    }
}

TEST_F(DTPickerTest, TabLeavesItAtOnce) {
    Key(Qt::Key_Tab);
    EXPECT_NE(form.ActiveControl(), picker);
}

TEST_F(DTPickerTest, AHalfTypedDateReadsAsTheLastWholeOne) {
    picker->setSelectedSection(QDateTimeEdit::DaySection);
    QTest::keyClicks(picker, "1");
    EXPECT_EQ(picker->Value(), basic::MakeDate(2001, 4, 1));
    picker->setSelectedSection(QDateTimeEdit::DaySection);
    QTest::keyClicks(picker, "15");
    EXPECT_EQ(picker->Value(), basic::MakeDate(2001, 4, 15));
}

TEST_F(DTPickerTest, ADateIsTypedStraightThrough) {
    const std::pair<const char*, basic::Date> cases[] = {
        {"31-3-2002", basic::MakeDate(2002, 3, 31)}, {"31032002", basic::MakeDate(2002, 3, 31)},
        {"31mar2002", basic::MakeDate(2002, 3, 31)}, {"31/Mar/02", basic::MakeDate(2002, 3, 31)},
        {"5.1.99", basic::MakeDate(1999, 1, 5)},     {"29-feb-2004", basic::MakeDate(2004, 2, 29)},
        {"29-2-2003", basic::MakeDate(2003, 2, 28)}, {"3-Ju", basic::MakeDate(2026, 6, 3)},
        {"7--20", basic::MakeDate(2020, 11, 7)},     {"40", basic::MakeDate(2026, 11, 4)},
        {"1-13-2002", basic::MakeDate(2002, 1, 1)},  {"12-x5-2001x", basic::MakeDate(2001, 5, 12)},
        {"1-2-20013", basic::MakeDate(2001, 2, 1)},  {"1-2-200", basic::MakeDate(2026, 2, 1)},
        {"4-0-2001", basic::MakeDate(2001, 11, 4)},
    };
    for (const auto& [typed, date] : cases) {
        picker->SetValue(basic::MakeDate(2026, 11, 23));
        picker->setSelectedSection(QDateTimeEdit::DaySection);
        QTest::keyClicks(picker, typed);
        EXPECT_EQ(picker->Value(), date) << typed << " became " << picker->text().toStdString();
    }
    picker->SetValue(basic::MakeDate(2026, 11, 23));
    picker->setSelectedSection(QDateTimeEdit::YearSection);
    QTest::keyClicks(picker, "20");
    EXPECT_EQ(picker->text(), "23-Nov-20") << "what is typed shows";
    Key(Qt::Key_Tab);
    EXPECT_EQ(picker->text(), "23-Nov-2020") << "leaving it ends the typing";
}

TEST_F(DTPickerTest, ARefusedOrResetDateIsTypedFromItsDay) {
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"refused", [this] { Key(Qt::Key_Tab); }},
        {"reset and refused",
         [this] {
             picker->Validate = [this](bool& cancel) {
                 picker->SetValue(basic::MakeDate(2001, 4, 1));
                 cancel = true;
             };
             Key(Qt::Key_Tab);
         }},
        {"reset", [this] { picker->SetValue(basic::MakeDate(2001, 4, 1)); }},
        {"asked for again", [this] { picker->SetFocus(); }},
    };
    picker->Validate = [](bool& cancel) { cancel = true; };
    for (const auto& [what, happens] : ways) {
        QTest::keyClicks(picker, "03052003");
        happens();
        ASSERT_EQ(form.ActiveControl(), picker);
        QTest::keyClicks(picker, "15042001");
        EXPECT_EQ(picker->Value(), basic::MakeDate(2001, 4, 15)) << what;
        picker->setSelectedSection(QDateTimeEdit::DaySection);
    }
}

}  // namespace
