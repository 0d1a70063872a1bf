#include "desk/StatementPage.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QVBoxLayout>
#include <utility>

#include "desk/Books.h"
#include "desk/Figures.h"
#include "desk/SheetView.h"
#include "queries/LedgerLines.h"

namespace desk {
namespace {

const queries::LedgerLine& LineOf(const queries::Sheet& sheet, std::size_t row) {
    return static_cast<const queries::LedgerSheet&>(sheet).Typed(row);
}

// The sheet reads by window, and its pages remember what they have read.
queries::LedgerLines& SourceOf(const queries::Sheet& sheet) {
    return const_cast<queries::LedgerSheet&>(static_cast<const queries::LedgerSheet&>(sheet)).Source();
}

constexpr std::size_t Short = 1000;  // lines whose balances are added up in a moment

}  // namespace

StatementPage::StatementPage(Desk& desk, std::int32_t ledger, const QString& name,
                             const queries::Range& range)
    : Page(desk, name), ledger_(ledger), range_(range), view_(new SheetView(desk, "statement")) {
    view_->KeyOf = [](const queries::Sheet& sheet, std::size_t row) {
        return QVariant(qlonglong(LineOf(sheet, row).key));
    };
    view_->PlaceOf = [](const queries::Sheet& sheet, const QVariant& key) {
        return SourceOf(sheet).PlaceOf(key.toLongLong());
    };
    view_->Activated = [this](std::size_t row) { Activate(row); };
    view_->Filled = [this] { ShowTotals(); };
    AddToHead(view_->Buttons());
    Body().addWidget(view_);
    view_->View().setAccessibleName(Title());
    SetFirstFocus(view_);
    Ask(nullptr);
}

void StatementPage::Ask(std::shared_ptr<queries::LedgerLines::Balances> balances) {
    const queries::Reading* const here = &desk().Books().Reading();
    const auto make = [=, ledger = ledger_, range = range_](queries::Reading& books) {
        std::shared_ptr<queries::LedgerSheet> sheet = queries::ListLedger(books, ledger, range);
        if (&books == here && balances)
            sheet->Source().Take(*balances);
        else if (&books == here)
            sheet->Source().Await();
        return sheet;
    };
    if (balances) return view_->AskAgain(make);
    view_->Ask(make);
    if (!view_->Sheet() || view_->Sheet()->Rows() <= Short) return;
    const auto* const asked = view_->Sheet();
    ReadBalances([this, asked](const std::shared_ptr<queries::LedgerLines::Balances>& read) {
        if (view_->Sheet() != asked) return;
        SourceOf(*asked).Take(*read);
        static_cast<const queries::LedgerSheet&>(*asked).Forget();
        view_->Reread();
    });
}

void StatementPage::ReadBalances(std::function<void(std::shared_ptr<queries::LedgerLines::Balances>)> then) {
    const auto read = std::make_shared<queries::LedgerLines::Balances>();
    view_->InBackground(
        tr("Adding up the balance\u2026"),
        [read, ledger = ledger_, range = range_](queries::Reading& books, Worker::Job&) {
            *read = queries::LedgerLines(books, ledger, range).ReadBalances();
        },
        [read, then = std::move(then)] { then(read); });
}

void StatementPage::Refresh() {
    ReadBalances([this](std::shared_ptr<queries::LedgerLines::Balances> read) { Ask(std::move(read)); });
}

void StatementPage::Activate(std::size_t row) {
    if (const std::int32_t number = LineOf(*view_->Sheet(), row).number; number > 0)
        desk().OpenScreen("frmVoucher", std::to_string(number));
}

void StatementPage::ShowTotals() {
    const queries::LedgerLines& lines = SourceOf(*view_->Sheet());
    SetSubtitle(tr("%1; closing balance %2")
                    .arg(QString::fromStdString(view_->Sheet()->Title()).section(", ", -1),
                         AmountText(lines.Closing())));
    const auto count = SourceOf(*view_->Sheet()).Count() - 1;
    view_->SetTotals(tr("%Ln line(s)", nullptr, static_cast<int>(count)), {{},
                                                                           {},
                                                                           {},
                                                                           {},
                                                                           AmountText(lines.Sums().debit),
                                                                           AmountText(lines.Sums().credit),
                                                                           AmountText(lines.Closing())});
}

}  // namespace desk
