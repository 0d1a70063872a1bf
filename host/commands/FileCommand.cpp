#include "host/commands/FileCommand.h"

#include <algorithm>
#include <iostream>
#include <utility>
#include <vector>

#include <unistd.h>

#include "core/modGeneral.h"
#include "host/commands/Exit.h"
#include "host/doors/Counted.h"
#include "host/doors/StandingVouchers.h"
#include "host/make/Fail.h"
#include "platform/basic/Value.h"

namespace host {

ProgressBar::ProgressBar(std::string what)
    : what_(std::move(what)), onTerminal_(isatty(STDERR_FILENO) != 0) {}

ProgressBar::~ProgressBar() {
    if (shown_ >= 0) std::cerr << "\r\x1b[K" << std::flush;
}

void ProgressBar::Done(std::size_t rows, std::size_t all) {
    const int percent = onTerminal_ ? static_cast<int>(rows * 100 / all) : -1;
    if (percent == shown_ || Clock::now() - begun_ < Patience) return;
    shown_ = percent;
    const auto part = static_cast<std::size_t>(percent / 4);
    std::cerr << "\r" << what_ << " [" << std::string(part, '#') << std::string(25 - part, ' ') << "] "
              << percent << " %" << std::flush;
}

void TellFault(const std::string& file, const Fault& fault) {
    std::cerr << file << ":" << fault.line << ": ";
    if (!fault.column.empty()) std::cerr << "column " << fault.column << ": ";
    std::cerr << fault.reason << "\n";
}

int TellFaults(const std::string& file, const Faults& faults, const std::string& nothing) {
    for (const Fault& fault : faults) TellFault(file, fault);
    std::cerr << "qmhost: " << Counted(faults.Count(), "fault");
    if (faults.Count() > faults.size()) std::cerr << ", of which the first " << faults.size() << " are named";
    std::cerr << "; nothing was " << nothing << "\n";
    return ExitFailed;
}

bool MayStandTwice(const VoucherFile& file, std::int16_t year, bool again) {
    if (again || file.vouchers.empty()) return true;
    const std::vector<std::int32_t> numbers = StandingVouchers(file, year);
    const auto standing = static_cast<std::size_t>(
        std::count_if(numbers.begin(), numbers.end(), [](std::int32_t number) { return number != 0; }));
    if (standing == 0) return true;
    const auto first = static_cast<std::size_t>(
        std::find_if(numbers.begin(), numbers.end(), [](std::int32_t number) { return number != 0; }) -
        numbers.begin());
    const bool all = standing == numbers.size();
    std::cerr << (all ? "qmhost: every voucher of the file stands"
                      : "qmhost: warning: " + std::to_string(standing) + " of " +
                            Counted(numbers.size(), "voucher") + " stand")
              << " in the books already, with the same day, type, ledgers and amounts: voucher "
              << file.vouchers[first].key << " as number " << numbers[first]
              << (standing > 1 ? " is the first" : "") << "\n";
    if (all) std::cerr << "qmhost: nothing was posted; --again posts them a second time\n";
    return !all;
}

std::int16_t YearToWriteInto(const std::string& wanted) {
    const std::string& year = qm::shared().FinYear;
    const std::int16_t first = basic::ToInteger(basic::Value(year));
    if (wanted.empty() || wanted == year || wanted == year + "-" + std::to_string(first + 1)) return first;
    Fail("the current year is " + year + ", not " + wanted + ": make that current first with qmhost year");
}

}  // namespace host
