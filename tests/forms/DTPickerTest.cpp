#include <QCalendarWidget>

#include "Fixture.h"
#include "platform/basic/Clock.h"
#include "platform/basic/Dates.h"

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

}  // namespace
