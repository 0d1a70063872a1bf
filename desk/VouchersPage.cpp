#include "desk/VouchersPage.h"

#include <QCoreApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "desk/Books.h"
#include "desk/Dates.h"
#include "desk/Figures.h"
#include "desk/VoucherChips.h"
#include "queries/Ledgers.h"

namespace desk {
namespace {

const queries::VoucherLine& LineOf(const queries::Sheet& sheet, std::size_t row) {
    return static_cast<const queries::VouchersSheet&>(sheet).Typed(row);
}

// The columns of the sheet, in its order.
constexpr queries::VoucherOrder Orders[] = {queries::VoucherOrder::Date,     queries::VoucherOrder::Number,
                                            queries::VoucherOrder::Type,     queries::VoucherOrder::Ledger,
                                            queries::VoucherOrder::Debit,    queries::VoucherOrder::Credit,
                                            queries::VoucherOrder::Narration};

// The columns that differ from line to line of one voucher.
const std::vector<std::size_t> Lines{3, 4, 5, 6};

std::vector<VoucherChips::Ledger> LedgersOf(queries::Reading& books) {
    std::vector<VoucherChips::Ledger> ledgers;
    for (queries::LedgerRow& row : queries::Ledgers(books)) ledgers.emplace_back(row.id, std::move(row.name));
    return ledgers;
}

}  // namespace

VouchersPage::VouchersPage(Desk& desk) : SheetPage(desk, tr("Vouchers"), "vouchers") {
    queries::Reading& books = desk.Books().Reading();
    chips_ = new VoucherChips(
        {books.FirstDay(), books.LastDay()},
        [this] {
            std::vector<VoucherChips::Ledger> ledgers;
            this->desk().Try([&] { ledgers = LedgersOf(this->desk().Books().Reading()); });
            return ledgers;
        },
        [this] { Ask(); });
    View().Keeper().KeyOf = [](const queries::Sheet& sheet, std::size_t row) {
        return QVariant(qlonglong(LineOf(sheet, row).key));
    };
    View().Keeper().PlaceOf = [](const queries::Sheet& sheet, const QVariant& key) {
        return static_cast<const queries::VouchersSheet&>(sheet).Source().PlaceOf(key.toLongLong());
    };
    View().Activated = [this](std::size_t) {
        this->desk().OpenScreen("frmVoucher", std::to_string(Number()));
    };
    View().SortBy = [this](std::size_t column, bool descending) {
        order_ = Orders[column];
        descending_ = descending;
        Ask();
    };
    View().Filled = [this] { Sum(); };
    AddActions();
    Body().addWidget(chips_);
    AddView();
    Ask();
}

void VouchersPage::AddActions() {
    AddAction(tr("New"), QKeySequence(Qt::Key_Insert), [this] { desk().OpenScreen("frmVoucher"); });
    AddAction(tr("Copy as new"), QKeySequence(Qt::CTRL | Qt::Key_D), [this] {
        if (const std::int32_t number = Number(); number > 0) desk().CopyVoucher(number);
    });
    AddAction(tr("Print voucher"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_P),
              [this] { PrintVoucher(); });
    AddKey(QKeySequence::Find, [this] { chips_->findChild<QLineEdit*>("words")->setFocus(); });
}

void VouchersPage::Narrow(const queries::VoucherFilter& filter, const QString& ledger) {
    chips_->Set(filter, ledger);
}

std::int32_t VouchersPage::Number() const {
    const auto row = View().Current();
    return row ? LineOf(*View().Sheet(), *row).number : 0;
}

void VouchersPage::Ask() {
    isNew_ = true;
    if (chips_->Any())
        View().SetEmpty(
            tr("No line fits"),
            tr("Nothing of this year is %1. Show all takes the filters away.").arg(chips_->Text()));
    else
        View().SetEmpty(tr("No vouchers yet"), tr("F2 enters the first."));
    const queries::VoucherFilter filter = chips_->Filter();
    const auto list = [filter, order = order_, down = descending_](queries::Reading& books) {
        return queries::ListVouchers(books, filter, order, down);
    };
    if (queries::IsQuick(filter, order_)) return View().Ask(list);
    View().AskSlowly([list](queries::Reading& books) {
        auto lines = list(books);
        lines->Source().Settle();
        return lines;
    });
}

void VouchersPage::PrintVoucher() {
    const std::int32_t number = Number();
    if (number < 1) return;
    queries::Reading& books = desk().Books().Reading();
    const std::shared_ptr<const queries::VouchersSheet> lines =
        queries::ListVouchers(books, {.number = number});
    const queries::VoucherLine first = lines->Typed(0);
    ShownSheet paper(lines, {}, Lines);
    paper.SetTitle(tr("%1 voucher %2, %3")
                       .arg(QString::fromStdString(first.type))
                       .arg(number)
                       .arg(first.date ? RangeText({first.date, first.date}, {}) : QString())
                       .toStdString());
    View().Print(paper);
}

// A million lines are counted and summed while the first of them are read.
void VouchersPage::Sum() {
    const auto sums = std::make_shared<queries::VoucherSums>();
    if (std::exchange(isNew_, false))
        View().SetTotals(tr("Adding up\u2026"), {});
    else
        View().KeepTotals();  // those from before stand until the new ones come
    View().InBackground(
        tr("Adding up\u2026"),
        [sums, filter = chips_->Filter()](queries::Reading& books, Worker::Job&) {
            *sums = queries::SumVouchers(books, filter);
        },
        [this, sums] {
            View().SetTotals(tr("%Ln line(s)", nullptr, static_cast<int>(sums->lines)),
                             {{}, {}, {}, {}, AmountText(sums->debit), AmountText(sums->credit), {}});
        },
        [this] { View().SetTotals(tr("Not added up: F5 tries again"), {}); });
}

}  // namespace desk
