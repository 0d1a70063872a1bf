#pragma once

#include "platform/basic/Clock.h"
#include "platform/basic/Dates.h"
#include "platform/basic/Number.h"
#include "reports/frmLedger.h"
#include "tests/screens/ScreenFixture.h"

inline constexpr const char* EmptyPage =
    "<html><head><title></title></head><body><table border = '0' width='100%' style = 'font size = 12' "
    "cellspacing = '0' cellpadding =0 ></table></body></html>";

// What the tests of the report screens share: 30 April 2001 as today, and the page that comes.
class ReportScreensTest : public test::ScreenTest {
  protected:
    ReportScreensTest() { basic::Clock::Set(basic::MakeDate(2001, 4, 30)); }
    ~ReportScreensTest() override { basic::Clock::Set({}); }

    // The day number of a day of April 2001; 31 is 1 May, and so on.
    static std::string Day(int ofApril) { return std::to_string(36979 + ofApril); }
    static basic::Date Date(int ofApril) { return basic::AddDays(basic::MakeDate(2001, 3, 31), ofApril); }

    // "abc..." to that length: what a cut leaves is known by its letters.
    static std::string Letters(std::size_t length) {
        std::string letters;
        while (letters.size() < length) letters += static_cast<char>('a' + letters.size() % 26);
        return letters;
    }

    // Runs what shows a report and gives the text of the page that came.
    std::string Printed(const std::function<void()>& print) {
        std::string text = "no page";
        script.Modal("frmLedger", [&](forms::Form& form) {
            auto& page = static_cast<qm::frmLedger&>(form);
            text = page.ReportText();
            EXPECT_EQ(page.ui().ucHTMLBox->ui().dhtEdit->DocumentHTML(), text);
        });
        print();
        return text;
    }
};
