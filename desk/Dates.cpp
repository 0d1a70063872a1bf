#include "desk/Dates.h"

#include <QCoreApplication>
#include <QLocale>

#include "core/Masks.h"
#include "platform/basic/Format.h"

namespace desk {

QDate ToQt(basic::Date date) {
    const auto [year, month, day] = basic::Parts(date);
    return {year, month, day};
}

basic::Date FromQt(const QDate& date) {
    return basic::MakeDate(date.year(), date.month(), date.day());
}

std::vector<queries::Range> MonthsOf(const queries::Range& year) {
    std::vector<queries::Range> months;
    for (QDate day = ToQt(*year.from); day <= ToQt(*year.upto); day = day.addMonths(1))
        months.push_back({FromQt(day), FromQt(day.addMonths(1).addDays(-1))});
    return months;
}

QString MonthText(basic::Date day) {
    return QLocale(QLocale::English).toString(ToQt(day), "MMMM yyyy");
}

QString DayText(basic::Date day) {
    return QString::fromStdString(basic::Format(day, qm::DateMask));
}

QString MomentText(const QDateTime& at) {
    return at.toString("dd-MMM-yyyy HH:mm");
}

QString RangeText(const queries::Range& days, const queries::Range& year) {
    const QDate from = ToQt(days.from ? *days.from : *year.from),
                upto = ToQt(days.upto ? *days.upto : *year.upto);
    if (from.day() == 1 && upto == from.addMonths(1).addDays(-1)) return MonthText(FromQt(from));
    if (from == upto) return DayText(FromQt(from));
    return QCoreApplication::translate("desk::Dates", "%1 to %2")
        .arg(DayText(FromQt(from)), DayText(FromQt(upto)));
}

}  // namespace desk
