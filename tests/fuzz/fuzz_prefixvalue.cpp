#include <cmath>
#include <string>

#include "platform/basic/Dates.h"
#include "platform/basic/Number.h"
#include "tests/fuzz/Check.h"

namespace {

using namespace basic;
using fuzz::Check;
using fuzz::ErrorOf;

bool Same(std::string_view a, std::string_view b) {
    return PrefixValue(a) == PrefixValue(b);
}

void CheckReading(const std::string& text) {
    const std::int32_t error = ErrorOf([&] { PrefixValue(text); });
    Check(error == 0 || error == error::Overflow, "a prefix can only overflow");
    if (error == 0) {
        Check(std::isfinite(PrefixValue(text)), "a prefix is finite");
        Check(Same(text, text + ",9"), "a comma ends the prefix");
        Check(Same(text, " " + text), "leading blanks are skipped");
    }
    if (!IsNumeric(text)) {
        Check(ErrorOf([&] { WholeNumber(text); }) == error::TypeMismatch, "no number has no whole reading");
        return;
    }
    Check(!IsDate(text), "a number is no date");
    std::string plain = text;
    std::erase(plain, ',');
    Check(WholeNumber(text) == PrefixValue(plain), "both readings agree but for the commas");
    Check(!IsNumeric(text + "x") && !IsNumeric(text + ","), "nothing else may follow a number");
}

void CheckWriting(double number) {
    if (!std::isfinite(number)) {
        Check(ErrorOf([&] { NumberText(number); }) == error::Overflow, "what is not finite has no text");
        return;
    }
    const std::string text = NumberText(number);
    Check(text.size() <= 32, "a text is short");
    if (std::abs(number) > 1.797e308) return;  // its 15 digits may lie beyond a double
    const double back = PrefixValue(text);
    Check(IsNumeric(text) && WholeNumber(text) == back, "both readings read what was written");
    Check(NumberText(back) == text, "what was written reads back alike");
    Check(PrefixValue(StrText(number)) == back, "the old text reads back alike");
    if (std::abs(number) > 1e-300)
        Check(std::abs(back - number) <= std::abs(number) * 1e-14, "fifteen digits are kept");
    if (std::abs(number) > 2147483647) return;
    const double away = std::abs(ToLong(number) - number);
    Check(away <= 0.5 && (away < 0.5 || ToLong(number) % 2 == 0), "halves go to the even number");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    CheckReading(std::string(input.Rest()));
    CheckWriting(input.Take<double>());
    return 0;
}
