#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>
#include <vector>

#include "platform/basic/Dates.h"
#include "queries/LedgerSums.h"

namespace desk {

// The same day in the toolkit's type, and back.
QDate ToQt(basic::Date date);
basic::Date FromQt(const QDate& date);

std::vector<queries::Range> MonthsOf(const queries::Range& year);  // each with both its days
QString MonthText(basic::Date day);                                // "April 2001"
QString DayText(basic::Date day);                                  // "15-Apr-2001"
QString MomentText(const QDateTime& at);                           // "15-Apr-2001 10:15"
// "April 2001" for a whole month, "01-Apr-2001 to 15-Apr-2001" else; a missing end is that of the year.
QString RangeText(const queries::Range& days, const queries::Range& year);

}  // namespace desk
