#include "desk/StatementPage.h"

#include <QCoreApplication>
#include <utility>

#include "desk/Books.h"
#include "desk/Figures.h"
#include "desk/SheetQuestion.h"
#include "queries/LedgerLines.h"

namespace desk {
namespace {

const queries::LedgerLine& LineOf(const queries::Sheet& sheet, std::size_t row) {
    return static_cast<const queries::LedgerSheet&>(sheet).Typed(row);
}

// The sheet reads by window, and its pages remember what they have read.
queries::LedgerLines& SourceOf(const queries::Sheet& sheet) {
    return static_cast<const queries::LedgerSheet&>(sheet).Source();
}

}  // namespace

StatementPage::StatementPage(Desk& desk, std::int32_t ledger, const QString& name,
                             const queries::Range& range)
    : SheetPage(desk, name, "statement") {
    View().Keeper().KeyOf = [](const queries::Sheet& sheet, std::size_t row) {
        return QVariant(qlonglong(LineOf(sheet, row).key));
    };
    View().Keeper().PlaceOf = [](const queries::Sheet& sheet, const QVariant& key) {
        return SourceOf(sheet).PlaceOf(key.toLongLong());
    };
    View().Activated = [this](std::size_t row) { Activate(row); };
    View().Filled = [this] { ShowTotals(); };
    AddView();
    const auto make = [ledger, range](queries::Reading& books) {
        return queries::ListLedger(books, ledger, range);
    };
    // So many that the order of their sums could show in the paise are added up line by line.
    bool isLong = false;
    desk.Try([&] { isLong = queries::RowsOfLedger(desk.Books().Reading(), ledger) > FewRows; });
    if (isLong)
        View().AskSlowly(make);
    else
        View().Ask(make);
}

void StatementPage::Activate(std::size_t row) {
    if (const std::int32_t number = LineOf(*View().Sheet(), row).number; number > 0)
        desk().OpenScreen("frmVoucher", std::to_string(number));
}

void StatementPage::ShowTotals() {
    const queries::LedgerLines& lines = SourceOf(*View().Sheet());
    SetSubtitle(tr("%1; closing balance %2")
                    .arg(QString::fromStdString(View().Sheet()->Title()).section(", ", -1),
                         AmountText(lines.Closing())));
    const auto count = SourceOf(*View().Sheet()).Count() - 1;
    View().SetTotals(tr("%Ln line(s)", nullptr, static_cast<int>(count)), {{},
                                                                           {},
                                                                           {},
                                                                           {},
                                                                           AmountText(lines.Sums().debit),
                                                                           AmountText(lines.Sums().credit),
                                                                           AmountText(lines.Closing())});
}

}  // namespace desk
