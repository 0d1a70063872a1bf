#pragma once

#include <cstdint>
#include <functional>

#include "platform/forms/Controls.h"

namespace qm {

// The two dates of a report's screen, each tested when it is left: within the current year, and in order. A
// date outside the year is told and reset, one out of order only told; the focus stays either way.
class DateRange {
  public:
    // `uptoReset` gives what a To date outside the year is set to.
    DateRange(forms::DTPicker& from, forms::DTPicker& upto, std::function<basic::Date()> uptoReset);

    std::int32_t From() const;  // day numbers
    std::int32_t Upto() const;

    static basic::Date FirstOfYear();  // 1 April of the current year
    static basic::Date LastOfYear();   // 31 March of the next

  private:
    void Refuse(forms::DTPicker& picker, basic::Date reset, const char* disorder, bool& cancel) const;

    forms::DTPicker &from_, &upto_;
};

}  // namespace qm
