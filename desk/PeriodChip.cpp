#include "desk/PeriodChip.h"

#include <QCoreApplication>
#include <QDateEdit>
#include <QPushButton>
#include <utility>

#include "desk/Dates.h"

namespace desk {
namespace {

QDateEdit& AddDay(QFormLayout& form, const QString& caption, basic::Date day) {
    auto* const box = new QDateEdit(ToQt(day), form.parentWidget());
    box->setDisplayFormat("dd-MMM-yyyy");
    box->setCalendarPopup(true);
    form.addRow(caption, box);
    return *box;
}

}  // namespace

PeriodChip::PeriodChip(const queries::Range& year, std::function<void()> changed)
    : Chip("period", tr("&Period"), [this](QMenu& menu) { Fill(menu); }),
      year_(year),
      changed_(std::move(changed)) {}

void PeriodChip::Fill(QMenu& menu) {
    const auto add = [&](const QString& caption, const queries::Range& days) {
        menu.addAction(caption, this, [this, days] { Take(days); });
    };
    add(tr("Whole year"), {});
    menu.addSeparator();
    for (const queries::Range& month : MonthsOf(year_)) add(MonthText(*month.from), month);
    menu.addSeparator();
    AddForm(menu, [&](QWidget& panel, QFormLayout& form) {
        QDateEdit& from = AddDay(form, tr("From"), days_.from.value_or(*year_.from));
        QDateEdit& upto = AddDay(form, tr("Up to"), days_.upto.value_or(*year_.upto));
        auto* const take = new QPushButton(tr("Show these days"), &panel);
        form.addRow(take);
        connect(take, &QPushButton::clicked, this, [this, &from, &upto, &menu] {
            const queries::Range days{FromQt(from.date()), FromQt(upto.date())};
            menu.close();
            Take(days);
        });
    });
}

void PeriodChip::Take(const queries::Range& days) {
    Set(days);
    changed_();
}

void PeriodChip::Set(const queries::Range& days) {
    days_ = days;
    SetValue(Text());
}

QString PeriodChip::Text() const {
    if (!days_.from && !days_.upto) return {};
    return RangeText(days_, year_);
}

DayChip::DayChip(const queries::Range& year, std::function<void()> changed)
    : Chip("day", tr("As o&f"), [this](QMenu& menu) { Fill(menu); }),
      year_(year),
      changed_(std::move(changed)) {}

void DayChip::Fill(QMenu& menu) {
    menu.addAction(tr("&Today, or the year's last day"), this, [this] { Take({}); });
    menu.addSeparator();
    for (const queries::Range& month : MonthsOf(year_))
        menu.addAction(DayText(*month.upto), this, [this, day = *month.upto] { Take(day); });
    menu.addSeparator();
    AddForm(menu, [&](QWidget& panel, QFormLayout& form) {
        QDateEdit& day = AddDay(form, tr("Day"), day_.value_or(*year_.upto));
        auto* const take = new QPushButton(tr("Show this day"), &panel);
        form.addRow(take);
        connect(take, &QPushButton::clicked, this, [this, &day, &menu] {
            const basic::Date chosen = FromQt(day.date());
            menu.close();
            Take(chosen);
        });
    });
}

void DayChip::Take(const std::optional<basic::Date>& day) {
    day_ = day;
    SetValue(day ? DayText(*day) : QString());
    changed_();
}

}  // namespace desk
