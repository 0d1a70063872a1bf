#include "desk/FindingsPage.h"

#include <QAbstractItemView>
#include <QItemSelectionModel>
#include <QPushButton>
#include <QVBoxLayout>
#include <exception>
#include <utility>
#include <vector>

#include "desk/Books.h"
#include "desk/Cures.h"
#include "desk/Dates.h"
#include "desk/FindingPlace.h"
#include "desk/StatusCard.h"

namespace desk {
namespace {

struct FoundLine {
    host::Finding Finding;
    std::string LeadsTo;
};
using FoundSheet = queries::SheetOf<FoundLine>;

std::shared_ptr<FoundSheet> SheetOf(const BooksCheck::Result& result, const FindingPlaces& places) {
    using queries::Kind;
    static const std::vector<queries::Filled<FoundLine>> columns{
        {{"severity", "Severity", Kind::Text},
         [](const FoundLine& line) -> basic::Value {
             return line.Finding.severity == host::Severity::Error ? "Error" : "Note";
         }},
        {{"finding", "What was found", Kind::Text},
         [](const FoundLine& line) -> basic::Value { return line.Finding.text; }},
        {{"leads_to", "Leads to", Kind::Text},
         [](const FoundLine& line) -> basic::Value { return line.LeadsTo; }},
    };
    std::vector<FoundLine> lines;
    for (const host::Finding& finding : result.Findings)
        lines.push_back({finding, places.Of(finding.subject).Text.toStdString()});
    return std::make_shared<FoundSheet>("Check of the books, " + MomentText(result.At).toStdString(), columns,
                                        std::move(lines));
}

}  // namespace

void FindingsPage::Open(Desk& desk, std::size_t row) {
    if (!desk.Books().Check().Last()) return;
    auto* const page = new FindingsPage(desk);
    page->View().SetCurrent(row);
    desk.Push(page);
}

FindingsPage::FindingsPage(Desk& desk)
    : SheetPage(desk, tr("Check of the books"), "findings"),
      cure_(new StatusCard(tr("Why, and what to do"))) {
    View().SetEmpty(tr("Nothing was found"),
                    tr("Pages, ledgers, vouchers, stock and bills agree with each other."));
    View().Activated = [this](std::size_t row) { GoTo(row); };
    View().Filled = [this] { TellCure(); };
    connect(View().View().selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this] { TellCure(); });
    AddAction(tr("Check again"), QKeySequence(Qt::CTRL | Qt::Key_R), [this] {
        CheckAgain();
    }).setObjectName("checkAgain");
    AddView();
    Body().addWidget(cure_);
    Ask(false);
}

void FindingsPage::Refresh() {
    Ask(true);
}

void FindingsPage::Ask(bool again) {
    const BooksCheck::ResultPtr result = desk().Books().Check().Last();
    if (!result) return;
    SetSubtitle(tr("%1; checked %2").arg(BooksCheck::CountsOf(*result), MomentText(result->At)));
    const auto sheet = [sheet = SheetOf(*result, FindingPlaces(desk()))](queries::Reading&) { return sheet; };
    again ? View().AskAgain(sheet) : View().Ask(sheet);
}

const host::Finding* FindingsPage::Current() const {
    const auto row = View().Current();
    return row ? &static_cast<const FoundSheet&>(*View().Sheet()).Typed()[*row].Finding : nullptr;
}

void FindingsPage::TellCure() {
    const host::Finding* const finding = Current();
    const auto cure = finding ? CureOfFinding(finding->text) : std::nullopt;
    cure_->Say(cure ? cure->Text() : QString());
    cure_->setVisible(cure.has_value());
}

// Of what stands in another year the pages are made anew, this one too, once the user has agreed.
void FindingsPage::GoTo(std::size_t row) {
    const auto& finding = static_cast<const FoundSheet&>(*View().Sheet()).Typed()[row].Finding;
    const FindingPlace place = FindingPlaces(desk()).Of(finding.subject);
    if (!place.Open) return desk().Note(tr("No page and no screen shows this. What to do stands below."));
    if (place.OtherYear.empty()) return place.Open();
    desk().InYear(place.OtherYear, [&desk = desk(), row, open = place.Open] {
        Open(desk, row);
        open();
    });
}

void FindingsPage::CheckAgain() {
    auto& again = *findChild<QPushButton*>("checkAgain");
    again.setEnabled(false);
    desk().Books().Check().Run(*this, [this, &again](std::exception_ptr failure) {
        again.setEnabled(true);
        desk().Try([&] {
            if (failure) std::rethrow_exception(failure);
            Refresh();
        });
    });
}

}  // namespace desk
