#include "desk/OverviewPage.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>
#include <utility>

#include "desk/Books.h"
#include "desk/CheckCard.h"
#include "desk/Dates.h"
#include "desk/ItemPage.h"
#include "desk/JobBar.h"
#include "desk/LastBackup.h"
#include "desk/ListCard.h"
#include "desk/PartiesPage.h"
#include "desk/StatementPage.h"
#include "desk/StatusCard.h"
#include "desk/StockPage.h"
#include "desk/VouchersPage.h"
#include "queries/GroupLedgers.h"

namespace desk {
namespace {

constexpr int Narrow = 820;  // pixels, for one column
constexpr std::size_t LargestParties = 10;
constexpr qint64 Quick = 2000;  // milliseconds that a check may take to be run again by itself
constexpr int StaleDays = 7;    // after which a backup is old

// The sheet that a card shows stands in an order of its own over the whole.
template <class Row>
const Row& RowBehind(const queries::Sheet& sheet, std::size_t row) {
    const auto& shown = static_cast<const ShownSheet&>(sheet);
    return static_cast<const queries::SheetOf<Row>&>(shown.Of()).Typed()[shown.RowOf(row)];
}

}  // namespace

OverviewPage::OverviewPage(Desk& desk)
    : Page(desk, tr("Overview")), scroll_(new QScrollArea(this)), jobs_(new JobBar(this)) {
    SetSubtitle(QString::fromStdString(desk.Books().Reading().LongYear()));
    scroll_->setObjectName("overview");
    scroll_->setWidgetResizable(true);
    scroll_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll_->setFocusPolicy(Qt::NoFocus);
    auto* const body = new QWidget(scroll_);
    body->setObjectName("overviewBody");
    grid_ = new QGridLayout(body);
    grid_->setContentsMargins(0, 0, 8, 0);
    grid_->setSpacing(12);
    MakeCards();
    LayCards(false);
    scroll_->setWidget(body);
    Body().addWidget(scroll_, 1);
    Body().addWidget(jobs_);
    SetFirstFocus(money_);
    TellBackup();
    Ask();
}

void OverviewPage::MakeCards() {
    using queries::VoucherFilter;
    check_ = new CheckCard(desk(), tr("Check &now"));
    backup_ = new StatusCard(tr("Last backup"));
    backup_->AddButton(tr("&Back up\u2026"), [this] { desk().Go("books"); });
    const auto monthly = [this](VoucherFilter (*filter)(ChartView::Place)) {
        return [this, filter](ChartView::Place place) {
            VoucherFilter wanted = filter(place);
            wanted.days = figures_->Months->Typed()[place.Point].days;
            OpenVouchers(wanted);
        };
    };
    money_ = new ChartCard(desk(), "overviewMoney", tr("Cash and bank"), monthly([](ChartView::Place place) {
                               VoucherFilter filter;
                               filter.group = place.Line == 0 ? queries::CashGroup : queries::BankGroup;
                               return filter;
                           }));
    trade_ =
        new ChartCard(desk(), "overviewTrade", tr("Sales and purchases"), monthly([](ChartView::Place place) {
                          VoucherFilter filter;
                          filter.group = place.Line == 0 ? queries::SalesGroup : queries::PurchaseGroup;
                          return filter;
                      }));
    paid_ = new ChartCard(
        desk(), "overviewPaid", tr("Receipts and payments"), monthly([](ChartView::Place place) {
            VoucherFilter filter;
            filter.type = place.Line == 0 ? qm::VoucherType::Receipt : qm::VoucherType::Payment;
            return filter;
        }));
    ages_ = new ChartCard(desk(), "overviewAges", tr("Owed and owing by age"),
                          [this](ChartView::Place place) { OpenAge(place); });
    for (const ChartCard* const card : {money_, trade_, paid_}) card->Table().Columns().HideAtFirst({"upto"});
    const auto openParty = [this](const queries::Sheet& sheet, std::size_t row) { OpenParty(sheet, row); };
    parties_ = new ListCard(desk(), {.Name = "overviewParties",
                                     .Title = tr("The largest parties"),
                                     .Caption = tr("&Parties"),
                                     .Empty = tr("Nobody owes, and nothing is owed"),
                                     .EmptyText = {},
                                     .Activated = openParty,
                                     .All = [this] { OpenParties({}); }});
    short_ = new ListCard(
        desk(), {.Name = "overviewShort",
                 .Title = tr("Items to reorder"),
                 .Caption = tr("&Items"),
                 .Empty = tr("Nothing is short"),
                 .EmptyText = tr("Every item stands above its reorder level."),
                 .Activated = [this](const queries::Sheet& sheet, std::size_t row) { OpenItem(sheet, row); },
                 .All = [this] { OpenShort(); }});
}

void OverviewPage::LayCards(bool narrow) {
    const int columns = narrow ? 1 : 2;
    if (columns == columns_) return;
    columns_ = columns;
    QWidget* const cards[] = {check_, backup_, money_, trade_, paid_, ages_, parties_, short_};
    int place = 0;
    for (QWidget* const card : cards) {
        grid_->removeWidget(card);
        grid_->addWidget(card, place / columns, place % columns);
        grid_->setRowStretch(place / columns, place < 2 ? 0 : 1);
        ++place;
    }
    grid_->setColumnStretch(0, 1);
    grid_->setColumnStretch(1, narrow ? 0 : 1);
}

void OverviewPage::resizeEvent(QResizeEvent* event) {
    Page::resizeEvent(event);
    LayCards(width() < Narrow);
}

void OverviewPage::showEvent(QShowEvent* event) {
    Page::showEvent(event);
    TellBackup();
    check_->Tell();
}

void OverviewPage::Ask() {
    const auto figures = std::make_shared<std::shared_ptr<const OverviewFigures>>();
    jobs_->RunNext(
        desk(), tr("Adding up the year\u2026"),
        [figures](queries::Reading& books, Worker::Job&) { *figures = OverviewFigures::Read(books); },
        [this, figures] { Take(*figures); });
}

void OverviewPage::Take(std::shared_ptr<const OverviewFigures> figures) {
    figures_ = std::move(figures);
    money_->Set(figures_->MoneyChart(), figures_->Money);
    trade_->Set(figures_->TradeChart(), figures_->Trade());
    paid_->Set(figures_->PaidChart(), figures_->Paid());
    ages_->Set(figures_->AgesChart(), figures_->Ages);
    parties_->Set(figures_->Largest(LargestParties));
    short_->Set(figures_->Short());
    BooksCheck& check = desk().Books().Check();
    if (!check.Running() && (!check.Last() || check.Last()->Took <= Quick)) check_->Run();
}

void OverviewPage::Refresh() {
    Ask();
}

void OverviewPage::TellBackup() {
    const auto last = LastBackup::Of(desk().Books().Address());
    if (!last) return backup_->Say(tr("None was made at this desk yet"), false);
    const bool old = last->At.daysTo(QDateTime::currentDateTime()) > StaleDays;
    backup_->Say(tr("%1, %2").arg(MomentText(last->At), last->File), old);
}

void OverviewPage::OpenVouchers(const queries::VoucherFilter& filter) {
    auto* const page = new VouchersPage(desk());
    page->Narrow(filter);
    desk().Push(page);
}

void OverviewPage::OpenParties(const queries::PartyFilter& filter) {
    auto* const page = new PartiesPage(desk());
    page->Narrow(filter);
    desk().Push(page);
}

void OverviewPage::OpenAge(ChartView::Place place) {
    OpenParties(
        OverviewFigures::OfAge(place.Point, place.Line == 0 ? queries::Owing::ToUs : queries::Owing::ByUs));
}

void OverviewPage::OpenParty(const queries::Sheet& sheet, std::size_t row) {
    const auto& party = RowBehind<queries::PartyRow>(sheet, row);
    desk().Push(new StatementPage(desk(), party.id, QString::fromStdString(party.name)));
}

void OverviewPage::OpenShort() {
    auto* const page = new StockPage(desk());
    page->ShowItems(StockPage::ToReorder);
    desk().Push(page);
}

void OverviewPage::OpenItem(const queries::Sheet& sheet, std::size_t row) {
    const auto& item = RowBehind<queries::ItemRow>(sheet, row);
    desk().Push(new ItemPage(desk(), item.id, QString::fromStdString(item.name)));
}

}  // namespace desk
