// Files of vouchers, as bytes: what is read of them is what the books can keep, and what is said of them can
// be shown on a terminal.
#include <cmath>
#include <string>

#include "host/doors/VoucherCells.h"
#include "host/make/CsvFile.h"
#include "platform/basic/Dates.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "tests/fuzz/Check.h"

namespace {

using fuzz::Check;

void CheckAmount(const std::string& cell) {
    std::string reason;
    const auto amount = host::ReadAmount(cell, reason);
    Check(amount.has_value() == reason.empty(), "an amount has a value or a reason");
    if (!amount) return;
    const std::string text = basic::NumberText(amount->rupees);
    const std::size_t point = text.find('.');
    Check(text.find('E') == std::string::npos && (point == std::string::npos || text.size() - point <= 3),
          "an amount goes into a statement with two decimals at most");
    Check(std::llround(basic::PrefixValue(text) * 100.0L) == amount->paise, "no paisa is lost on the way");
}

void CheckDay(const std::string& cell) {
    std::string dayReason, monthReason;
    const auto dayFirst = host::ReadDay(cell, host::DateOrder::DayFirst, dayReason);
    const auto monthFirst = host::ReadDay(cell, host::DateOrder::MonthFirst, monthReason);
    Check(dayFirst.has_value() == dayReason.empty(), "a date has a value or a reason");
    if (dayFirst && monthFirst && basic::DatePart(*dayFirst) != basic::DatePart(*monthFirst))
        Check(basic::Parts(*dayFirst).Day <= 12, "only a day up to 12 reads in both orders");
}

void CheckShown(const std::string& cell) {
    const std::string shown = host::Shown(cell);
    Check(host::TextFault(shown, false).empty(), "what is shown is UTF-8 without control characters");
    Check(basic::Len(shown) <= 45, "what is shown is short");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = fuzz::Input(data, size).Rest();
    CheckShown(std::string(text));
    CheckAmount(std::string(text));
    CheckDay(std::string(text));
    try {
        int line = 0;
        for (const host::CsvRow& row : host::ParseCsv(text)) {
            Check(row.line > line && !row.fields.empty(), "each row begins on a line of its own");
            line = row.line;
            for (const std::string& cell : row.fields) CheckShown(cell), CheckAmount(cell), CheckDay(cell);
        }
    } catch (const host::CsvError& error) {
        Check(error.line > 0, "a text that does not read is told by its line");
    }
    return 0;
}
