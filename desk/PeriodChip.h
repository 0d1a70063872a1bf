#pragma once

#include <QCoreApplication>
#include <functional>
#include <optional>

#include "desk/Chip.h"
#include "queries/LedgerSums.h"

namespace desk {

// A chip that narrows to days of the year: the whole of it, a month, or any from and up to.
class PeriodChip : public Chip {
    Q_DECLARE_TR_FUNCTIONS(desk::PeriodChip)

  public:
    // `changed` hears of each choice of the user.
    PeriodChip(const queries::Range& year, std::function<void()> changed);
    const queries::Range& Days() const { return days_; }
    void Set(const queries::Range& days);  // nobody hears of it
    QString Text() const;                  // "April 2001"; "" for the whole year

  private:
    void Fill(QMenu& menu);
    void Take(const queries::Range& days);

    queries::Range year_, days_;
    std::function<void()> changed_;
};

// A chip that names one day of the year: the last of a month, or any. Without one it is what the query takes
// for today.
class DayChip : public Chip {
    Q_DECLARE_TR_FUNCTIONS(desk::DayChip)

  public:
    DayChip(const queries::Range& year, std::function<void()> changed);
    const std::optional<basic::Date>& Day() const { return day_; }

  private:
    void Fill(QMenu& menu);
    void Take(const std::optional<basic::Date>& day);

    queries::Range year_;
    std::optional<basic::Date> day_;
    std::function<void()> changed_;
};

}  // namespace desk
