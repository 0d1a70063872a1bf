#include "desk/YearSwitch.h"

#include <utility>

#include "desk/Books.h"
#include "desk/NoticeBar.h"

namespace desk {
namespace {

QString LongForm(const std::string& shortForm) {
    const int year = QString::fromStdString(shortForm).toInt();
    return QString("%1-%2").arg(year).arg(year + 1);
}

}  // namespace

YearSwitch::YearSwitch(Books& books, NoticeBar& notice, std::function<void(const std::string&)> take)
    : books_(books), notice_(notice), take_(std::move(take)) {}

void YearSwitch::Ask(const std::string& shortForm) {
    if (shortForm == books_.YearInForce()) return;
    const QString wanted = LongForm(shortForm), now = LongForm(books_.YearInForce());
    notice_.Show(
        NoticeBar::Kind::Note, tr("Make %1 the current year?").arg(wanted),
        tr("All pages and screens then show %1, and new vouchers go there. Other programs that open these "
           "books follow. Nothing of %2 changes.")
            .arg(wanted, now),
        {{tr("Switch to %1").arg(wanted), [this, shortForm] { take_(shortForm); }},
         {tr("Stay in %1").arg(now), {}}});
    notice_.TakeFocus();
}

// This program goes on in its own until the user follows.
void YearSwitch::TellOther() {
    const auto other = books_.OtherYear();
    if (!other || *other == told_) return;
    told_ = *other;
    notice_.Show(
        NoticeBar::Kind::Note, tr("The current year of these books is %1 now.").arg(LongForm(*other)),
        tr("This window and its screens still work in %1.").arg(LongForm(books_.YearInForce())),
        {{tr("Work in %1").arg(LongForm(*other)), [this, year = *other] { take_(year); }}, {tr("Stay"), {}}});
}

void YearSwitch::Forget() {
    told_.clear();
}

}  // namespace desk
