#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>

#include "host/doors/Faults.h"
#include "host/doors/StandingVouchers.h"

// What the commands share that take a file into the books.
namespace host {

// A bar on the terminal once the work has taken half a second, redrawn when a percent is done; nothing where
// the errors go to a file.
class ProgressBar {
  public:
    explicit ProgressBar(std::string what);
    ~ProgressBar();
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    void Done(std::size_t rows, std::size_t all);

  private:
    using Clock = std::chrono::steady_clock;
    static constexpr std::chrono::milliseconds Patience{500};
    const std::string what_;
    const bool onTerminal_;
    const Clock::time_point begun_ = Clock::now();
    int shown_ = -1;
};

void TellFault(const std::string& file, const Fault& fault);  // a line on the standard error stream

// All that are kept, and their count; gives the exit code. `nothing` says what was not done: "posted".
int TellFaults(const std::string& file, const Faults& faults, const std::string& nothing);

// Whether the file may be posted although its vouchers, or some of them, stand in the books already, which it
// tells.
bool MayStandTwice(const Standing& standing);

// The first year of the current one, which alone is written into: where `wanted`, the short or the long form,
// is another, it raises that this is to be made current first, for all to see.
std::int16_t YearToWriteInto(const std::string& wanted);

}  // namespace host
