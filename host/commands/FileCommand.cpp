#include "host/commands/FileCommand.h"

#include <iostream>
#include <utility>

#include <unistd.h>

#include "core/modGeneral.h"
#include "host/commands/Exit.h"
#include "host/doors/Counted.h"
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

bool MayStandTwice(const Standing& standing) {
    if (standing.Count == 0) return true;
    std::cerr << (standing.All ? "qmhost: " : "qmhost: warning: ") << standing.Text << "\n";
    if (standing.All) std::cerr << "qmhost: nothing was posted; --again posts them a second time\n";
    return !standing.All;
}

std::int16_t YearToWriteInto(const std::string& wanted) {
    const std::string& year = qm::shared().FinYear;
    const std::int16_t first = basic::ToInteger(basic::Value(year));
    if (wanted.empty() || wanted == year || wanted == year + "-" + std::to_string(first + 1)) return first;
    Fail("the current year is " + year + ", not " + wanted + ": make that current first with qmhost year");
}

}  // namespace host
