#include "desk/StockPage.h"

#include <QCoreApplication>
#include <QLineEdit>
#include <atomic>
#include <memory>

#include "desk/Books.h"
#include "desk/ItemPage.h"
#include "desk/PeriodChip.h"
#include "queries/Bills.h"
#include "queries/Items.h"
#include "queries/Movements.h"
#include "queries/Orders.h"

namespace desk {
namespace {

constexpr int TypingPause = 200;  // milliseconds, until the lists follow

template <class Row>
Row RowOf(const SheetView& view, std::size_t row) {
    return static_cast<const queries::SheetOf<Row>&>(*view.Sheet()).Typed()[row];
}

// Rows found again by a number of theirs.
template <class Row, class Key>
void FindBy(SheetView& view, Key key) {
    view.Keeper().KeyOf = [key](const queries::Sheet& sheet, std::size_t row) {
        return QVariant(
            QString::fromStdString(key(static_cast<const queries::SheetOf<Row>&>(sheet).Typed()[row])));
    };
}

}  // namespace

StockPage::StockPage(Desk& desk) : TabPage(desk, tr("Stock")), words_(new QLineEdit(this)) {
    AddAction(tr("Change"), QKeySequence(Qt::CTRL | Qt::Key_M), [this] { Change(); });
    AddFilters();
    AddItems();
    AddMovements();
    AddOrders();
    AddBills();
    Turn(Items);
}

void StockPage::AddFilters() {
    queries::Reading& books = desk().Books().Reading();
    const auto again = [this] { Narrowed(); };
    words_->setObjectName("words");
    words_->setPlaceholderText(tr("Words in names and notes   Ctrl+F"));
    words_->setAccessibleName(tr("Words in names and notes"));
    words_->setClearButtonEnabled(true);
    words_->setFixedWidth(260);
    typed_.setSingleShot(true);
    typed_.setInterval(TypingPause);
    connect(words_, &QLineEdit::textChanged, this, [this] { typed_.start(); });
    connect(&typed_, &QTimer::timeout, this, again);
    AddKey(QKeySequence::Find, [this] { words_->setFocus(); });
    stock_ = new ChoiceChip("stock", tr("&Short or over"),
                            {tr("&All items"), tr("&Below reorder"), tr("&Over-stocked")}, again);
    period_ = new PeriodChip({books.FirstDay(), books.LastDay()}, again);
    type_ = new ChoiceChip("type", tr("&Type"), {tr("&All types"), tr("&Receipt"), tr("&Issue")}, again);
    open_ = new ChoiceChip("open", tr("&Outstanding"), {tr("&All orders"), tr("Only &outstanding")}, again);
    AddFilter(words_);
    AddFilter(stock_, {Items});
    AddFilter(period_, {Movements, Orders, Bills});
    AddFilter(type_, {Movements});
    AddFilter(open_, {Orders});
}

void StockPage::AddItems() {
    const auto moved = std::make_shared<std::atomic<queries::ByMovements>>(queries::ByMovements::LeftOut);
    SheetView& view = AddTab(tr("&Items"), "items", SheetView::Shape::Table, [this, moved](SheetView& of) {
        const auto stock = static_cast<queries::ItemStock>(stock_->Choice());
        of.AskSlowly([words = Words(), stock, moved](queries::Reading& books) {
            return queries::ItemsSheet(books, words, stock, *moved);
        });
    });
    view.Columns().HideAtFirst({"item", "type", "by_movements"});
    // The walk over all movements is for who looks at what they add up to.
    view.Columns().Showed = view.Filled = [moved, &view] {
        if (*moved == queries::ByMovements::AddedUp || !view.Columns().Shows("by_movements")) return;
        *moved = queries::ByMovements::AddedUp;
        view.Refresh();
    };
    FindBy<queries::ItemRow>(view, [](const queries::ItemRow& row) { return std::to_string(row.id); });
    view.Activated = [this, &view](std::size_t row) {
        const auto item = RowOf<queries::ItemRow>(view, row);
        desk().Push(new ItemPage(desk(), item.id, QString::fromStdString(item.name)));
    };
}

// The record of the line on the module's screen.
void StockPage::Change() {
    const auto row = View().Current();
    if (!row) return;
    if (Tab() != Items) return View().Activated(*row);
    desk().OpenScreen("ItemMaster", std::to_string(RowOf<queries::ItemRow>(View(), *row).id));
}

void StockPage::AddMovements() {
    SheetView& view = AddTab(tr("Mo&vements"), "movements", SheetView::Shape::Table, [this](SheetView& of) {
        const char* const types[] = {"", "Receipt", "Issue"};
        AskForMovements(
            of, {.days = period_->Days(), .type = types[type_->Choice()], .item = {}, .words = Words()});
    });
    view.Columns().HideAtFirst({"item"});
    ShowMovements(desk(), view);
}

void StockPage::AddOrders() {
    SheetView& view = AddTab(tr("O&rders"), "orders", SheetView::Shape::Table, [this](SheetView& of) {
        const queries::OrderFilter filter{
            .days = period_->Days(), .outstanding = open_->Choice() > 0, .words = Words()};
        of.AskSlowly([filter](queries::Reading& books) { return queries::OrdersSheet(books, filter); });
    });
    view.Columns().HideAtFirst({"item"});
    FindBy<queries::OrderRow>(view, [](const queries::OrderRow& row) {
        return std::to_string(row.number) + ' ' + std::to_string(row.item.value_or(0));
    });
    view.Activated = [this, &view](std::size_t row) {
        desk().OpenScreen("frmPO", std::to_string(RowOf<queries::OrderRow>(view, row).number));
    };
}

void StockPage::AddBills() {
    SheetView& view = AddTab(tr("Bi&lls"), "bills", SheetView::Shape::Table, [this](SheetView& of) {
        const queries::BillFilter filter{.days = period_->Days(), .words = Words()};
        of.AskSlowly([filter](queries::Reading& books) { return queries::BillsSheet(books, filter); });
    });
    view.Columns().HideAtFirst({"order", "narration"});
    FindBy<queries::BillRow>(
        view, [](const queries::BillRow& row) { return std::to_string(row.receipt) + ' ' + row.bill; });
    view.Activated = [this, &view](std::size_t row) {
        const auto bill = RowOf<queries::BillRow>(view, row);
        OpenReceipt(desk(), bill.receipt, bill.order);
    };
}

std::string StockPage::Words() const {
    return words_->text().simplified().toStdString();
}

bool StockPage::IsNarrowed() const {
    return !Words().empty() || (Tab() == Items ? stock_->Choice() > 0 : !period_->Text().isEmpty()) ||
           (Tab() == Movements && type_->Choice() > 0) || (Tab() == Orders && open_->Choice() > 0);
}

void StockPage::ShowItems(Stock stock) {
    stock_->Choose(stock);
    Turn(Items);
    Narrowed();
}

void StockPage::Turned() {
    const QString subtitles[] = {tr("Net stock by the items' counters, worth at their prices"),
                                 tr("Receipts and issues, with the item's stock behind each"),
                                 tr("Lines of purchase orders, with what is still to come"),
                                 tr("Bills that goods came with, and what they posted")};
    SetSubtitle(subtitles[Tab()]);
    if (IsNarrowed())
        return View().SetEmpty(tr("No line fits"), tr("Take a word or a filter away to see more."));
    const std::pair<QString, QString> empties[] = {
        {tr("There are no items yet"), tr("The Item Master adds them: F9.")},
        {tr("Nothing has moved in this year"), tr("F6 enters a receipt of goods, F7 an issue.")},
        {tr("There are no orders yet"), tr("F8 writes one.")},
        {tr("There are no bills yet"), tr("A receipt of goods brings its bill: F6.")}};
    View().SetEmpty(empties[Tab()].first, empties[Tab()].second);
}

}  // namespace desk
