#include "desk/PartiesPage.h"

#include <QCoreApplication>
#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

#include "desk/Books.h"
#include "desk/PeriodChip.h"
#include "desk/StatementPage.h"

namespace desk {
namespace {

const queries::PartyRow& RowOf(const queries::Sheet& sheet, std::size_t row) {
    return static_cast<const queries::SheetOf<queries::PartyRow>&>(sheet).Typed()[row];
}

// Older than so many days, not older than so many, in the order of the chip's choices.
constexpr std::pair<int, int> Ages[] = {{0, 0}, {30, 0}, {60, 0}, {90, 0}, {0, 30}, {30, 60}, {60, 90}};

}  // namespace

PartiesPage::PartiesPage(Desk& desk) : TabPage(desk, tr("Parties")) {
    queries::Reading& books = desk.Books().Reading();
    AddAction(tr("Change"), QKeySequence(Qt::CTRL | Qt::Key_M), [this] {
        if (const auto row = View().Current())
            this->desk().OpenScreen("Ledger_Master", std::to_string(RowOf(*View().Sheet(), *row).id));
    });
    day_ = new DayChip({books.FirstDay(), books.LastDay()}, [this] { Narrowed(); });
    age_ = new ChoiceChip(
        "age", tr("H&ow old"),
        {tr("&Any age"), tr("Older than &30 days"), tr("Older than &60 days"), tr("Older than &90 days"),
         tr("&Up to 30 days"), tr("31 &to 60 days"), tr("61 to 90 &days")},
        [this] { Narrowed(); });
    AddFilter(age_);
    AddFilter(day_);
    AddSide(tr("The&y owe us"), "debtors", queries::Owing::ToUs);
    AddSide(tr("&We owe them"), "creditors", queries::Owing::ByUs);
    AddSide(tr("&Both"), "parties", queries::Owing::Both);
    Turn(0);
}

void PartiesPage::AddSide(const QString& caption, const QString& name, queries::Owing owing) {
    SheetView& view = AddTab(caption, name, SheetView::Shape::Table, [this, owing](SheetView& of) {
        of.AskSlowly([day = day_->Day(), filter = Filter(owing)](queries::Reading& books) {
            return queries::PartiesSheet(books, day, filter);
        });
    });
    view.Keeper().KeyOf = [](const queries::Sheet& sheet, std::size_t row) {
        return QVariant(RowOf(sheet, row).id);
    };
    view.Activated = [this](std::size_t row) { Activate(row); };
    view.Filled = [this, &view, owing] {
        if (&view != &View()) return;
        const QString day = QString::fromStdString(view.Sheet()->Title()).section(", ", -1);
        SetSubtitle(owing == queries::Owing::ToUs ? tr("As of %1").arg(day)
                                                  : tr("As of %1; a minus is what we owe").arg(day));
    };
    if (owing != queries::Owing::Both) view.Columns().HideAtFirst({"group"});
}

queries::PartyFilter PartiesPage::Filter(queries::Owing owing) const {
    const auto [olderThan, upto] = Ages[age_->Choice()];
    return {owing, olderThan, upto};
}

void PartiesPage::Narrow(const queries::PartyFilter& filter) {
    const auto found = std::ranges::find(Ages, std::pair(filter.olderThan, filter.upto));
    age_->Choose(found == std::end(Ages) ? 0 : static_cast<int>(found - std::begin(Ages)));
    Turn(filter.owing == queries::Owing::ToUs ? 0 : filter.owing == queries::Owing::ByUs ? 1 : 2);
    Narrowed();
}

void PartiesPage::Turned() {
    if (age_->Choice() > 0)
        View().SetEmpty(tr("Nothing is of that age"),
                        tr("No balance has a part of the age that is asked for. Alt+O chooses another."));
    else
        View().SetEmpty(tr("Nobody has a balance here"),
                        tr("Parties are ledgers of Debtors and Suppliers: F4 adds them."));
}

void PartiesPage::Activate(std::size_t row) {
    const queries::PartyRow party = RowOf(*View().Sheet(), row);
    desk().Push(new StatementPage(desk(), party.id, QString::fromStdString(party.name),
                                  {.from = {}, .upto = day_->Day()}));
}

}  // namespace desk
