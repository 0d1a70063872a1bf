#include "desk/YearSwitch.h"

#include <utility>

#include "desk/Books.h"
#include "desk/NoticeBar.h"

namespace desk {

YearSwitch::YearSwitch(Books& books, NoticeBar& notice, Take take)
    : books_(books), notice_(notice), take_(std::move(take)) {}

void YearSwitch::Ask(const std::string& shortForm, const std::function<void()>& then) {
    if (shortForm == books_.YearInForce()) return;
    const QString wanted = Books::LongForm(shortForm), now = Books::LongForm(books_.YearInForce());
    notice_.Show(
        NoticeBar::Kind::Note, tr("Make %1 the current year?").arg(wanted),
        tr("All pages and screens then show %1, and new vouchers go there. Other programs that open these "
           "books follow. Nothing of %2 changes.")
            .arg(wanted, now),
        {{tr("Switch to %1").arg(wanted), [this, shortForm, then] { take_(shortForm, then); }},
         {tr("Stay in %1").arg(now), {}}});
    notice_.TakeFocus();
}

// This program goes on in its own until the user follows.
void YearSwitch::TellOther() {
    const auto other = books_.OtherYear();
    if (!other || *other == told_) return;
    told_ = *other;
    notice_.Show(
        NoticeBar::Kind::Note, tr("The current year of these books is %1 now.").arg(Books::LongForm(*other)),
        tr("This window and its screens still work in %1.").arg(Books::LongForm(books_.YearInForce())),
        {{tr("Work in %1").arg(Books::LongForm(*other)), [this, year = *other] { take_(year, {}); }},
         {tr("Stay"), {}}});
}

void YearSwitch::Forget() {
    told_.clear();
}

}  // namespace desk
