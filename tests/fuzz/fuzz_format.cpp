#include <algorithm>
#include <cmath>
#include <string>

#include "platform/basic/Dates.h"
#include "platform/basic/Format.h"
#include "platform/basic/Number.h"
#include "tests/fuzz/Check.h"

namespace {

using namespace basic;
using fuzz::Check;
using fuzz::ErrorOf;

struct Mask {
    const char* mask;
    int places;
    bool grouped;
};
constexpr Mask Masks[] = {{"#,##,###.00", 2, true}, {"##,#00.00", 2, true}, {"######.00", 2, false},
                          {"#,##,###", 0, true},    {"0.00", 2, false},     {"standard", 2, true}};

std::string WithoutCommas(std::string text) {
    std::erase(text, ',');
    return text;
}

// Whether commas stand before each third digit left of the point, and nowhere else.
bool GroupsByThree(const std::string& text) {
    std::size_t place = 0;
    for (std::size_t at = std::min(text.find('.'), text.size()); at-- > 0; ++place) {
        if (text[at] == '-') return at == 0;
        if ((text[at] == ',') != (place % 4 == 3)) return false;
    }
    return text.empty() || text[0] != ',';
}

void CheckNumber(double number, const Mask& mask) {
    if (!(std::abs(number) < 1.797e308)) return;  // 15 digits of it may lie beyond a double
    SetNumberLocale("C");
    const std::string text = Format(number, mask.mask);
    const double shown = text.empty() ? 0 : WholeNumber(text);
    Check(shown == RoundHalfUp(number, mask.places), "a mask shows the rounded number");
    Check((text.find('-') != std::string::npos) == (shown < 0), "no sign before what rounds to zero");
    Check(Format(text, mask.mask) == text, "what a mask shows, it shows again");
    Check(mask.grouped ? GroupsByThree(text) : text == WithoutCommas(text), "groups as the mask says");
    SetNumberLocale("en_IN");
    Check(WithoutCommas(Format(number, mask.mask)) == WithoutCommas(text),
          "a locale changes only the groups");
}

void CheckDate(double serial) {
    for (const char* mask : {"dd-MMM-yyyy", "dd/MM/yyyy", "hh:mm:ss"}) {
        if (!IsDateSerial(serial)) {
            Check(ErrorOf([&] { Format(serial, mask); }) == error::Overflow, "no date overflows");
            continue;
        }
        const std::string text = Format(serial, mask);
        Check(Format(text, mask) == text, "what a date mask shows, it shows again");
        if (mask[0] == 'd') Check(ReadDate(text) == DatePart({serial}), "a shown date reads back");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const Mask& mask = Masks[input.Take<std::uint8_t>() % std::size(Masks)];
    const std::string text(input.Rest());
    Check(IsNumeric(text) || Format(text, mask.mask) == text, "a text that is no number comes back");
    Check(IsNumeric(text) || IsDate(text) || Format(text, "dd/MM/yyyy") == text,
          "nor does one that is no date");
    if (IsNumeric(text)) CheckNumber(WholeNumber(text), mask);
    const auto number = input.Take<double>();
    CheckNumber(number, mask);
    CheckDate(number);
    CheckDate(input.Take<std::int32_t>() / 86400.0);
    return 0;
}
