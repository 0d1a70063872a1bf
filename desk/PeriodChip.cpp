#include "desk/PeriodChip.h"

#include <QCoreApplication>
#include <QDateEdit>
#include <QPushButton>
#include <utility>

#include "desk/Dates.h"

namespace desk {
namespace {

// "Ma&y 2001": each month of a year has a letter of its own.
QString WithLetter(const queries::Range& month) {
    constexpr const char* Letters = "JFMAYNLGSOVD";
    const char letter = Letters[basic::Parts(*month.from).Month - 1];
    QString text = MonthText(*month.from);
    return text.insert(text.indexOf(QLatin1Char(letter), 0, Qt::CaseInsensitive), '&');
}

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
    add(tr("&Whole year"), {});
    menu.addSeparator();
    for (const queries::Range& month : MonthsOf(year_)) add(WithLetter(month), month);
    menu.addSeparator();
    QDateEdit *from = nullptr, *upto = nullptr;
    QPushButton* button = nullptr;
    const QAction* const form = AddForm(menu, [&](QWidget& panel, QFormLayout& rows) {
        from = &AddDay(rows, tr("From"), days_.from.value_or(*year_.from));
        upto = &AddDay(rows, tr("Up to"), days_.upto.value_or(*year_.upto));
        button = new QPushButton(tr("Show these days"), &panel);
        rows.addRow(button);
    });
    const auto take = [this, from, upto, &menu] {
        const queries::Range days{FromQt(from->date()), FromQt(upto->date())};
        menu.close();
        Take(days);
    };
    connect(button, &QPushButton::clicked, this, take);
    connect(form, &QAction::triggered, this, take);
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
    QDateEdit* day = nullptr;
    QPushButton* button = nullptr;
    const QAction* const form = AddForm(menu, [&](QWidget& panel, QFormLayout& rows) {
        day = &AddDay(rows, tr("Day"), day_.value_or(*year_.upto));
        button = new QPushButton(tr("Show this day"), &panel);
        rows.addRow(button);
    });
    const auto take = [this, day, &menu] {
        const basic::Date chosen = FromQt(day->date());
        menu.close();
        Take(chosen);
    };
    connect(button, &QPushButton::clicked, this, take);
    connect(form, &QAction::triggered, this, take);
}

void DayChip::Take(const std::optional<basic::Date>& day) {
    day_ = day;
    SetValue(day ? DayText(*day) : QString());
    changed_();
}

}  // namespace desk
