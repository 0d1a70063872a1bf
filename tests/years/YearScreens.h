#pragma once

#include "tests/screens/ScreenFixture.h"

// What the tests of the year screens share: the register of years.
class YearScreensTest : public test::ScreenTest {
  protected:
    static Lines Years() { return Rows("Select Fnncl_Yr, Crrnt_Yr_Flg From Fnncl_Yr_Mstr"); }
    static void AddYear(const std::string& longForm) {
        Run("Insert Into Fnncl_Yr_Mstr (Fnncl_Yr) Values ('" + longForm + "')");
    }
};
