#include <gtest/gtest.h>

#include "platform/basic/Control.h"
#include "tests/support/ErrorOf.h"

namespace {

// Knows a text and nothing else.
class TextOnly : public basic::Control {
  public:
    std::string TypeName() const override { return "TextBox"; }
    std::string Name() const override { return "txtName"; }
    void SetText(const std::string& given) override { text = given; }
    std::string text;
};

TEST(Control, RefusesWhatItsKindDoesNotKnow) {
    TextOnly control;
    control.SetText("a");
    EXPECT_EQ(control.text, "a");
    EXPECT_EQ(test::ErrorOf([&] { control.SetValue(0); }), basic::error::NotSupported);
    EXPECT_EQ(test::ErrorOf([&] { control.SetListIndex(-1); }), basic::error::NotSupported);
    EXPECT_EQ(test::ErrorOf([&] { control.SetLocked(true); }), basic::error::NotSupported);
    try {
        control.SetValue(0);
    } catch (const basic::Error& error) {
        EXPECT_STREQ(error.what(), "Object doesn't support this property or method");
        EXPECT_EQ(error.Source, "basic");
    }
}

}  // namespace
