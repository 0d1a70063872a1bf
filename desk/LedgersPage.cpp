#include "desk/LedgersPage.h"

#include <QCoreApplication>
#include <string>

#include "desk/Books.h"
#include "desk/StatementPage.h"
#include "queries/GroupTree.h"

namespace desk {
namespace {

using TreeSheet = queries::SheetOf<queries::TreeRow>;

const queries::TreeRow& RowOf(const queries::Sheet& sheet, std::size_t row) {
    return static_cast<const TreeSheet&>(sheet).Typed()[row];
}

}  // namespace

LedgersPage::LedgersPage(Desk& desk) : SheetPage(desk, tr("Ledgers"), "ledgers", SheetView::Shape::Tree) {
    SetSubtitle(tr("%1; balances are in debit, with a minus in credit")
                    .arg(QString::fromStdString(desk.Books().Reading().LongYear())));
    View().Keeper().KeyOf = [](const queries::Sheet& sheet, std::size_t row) {
        const queries::TreeRow& line = RowOf(sheet, row);
        return QVariant(line.ledger > 0 ? QString::number(line.ledger) : QString::fromStdString(line.name));
    };
    View().Activated = [this](std::size_t row) { Activate(row); };
    View().SetEmpty(tr("There are no ledgers yet"), tr("The Ledger Master adds them: F4."));
    AddAction(tr("New"), QKeySequence(Qt::Key_Insert), [this] { this->desk().OpenScreen("Ledger_Master"); });
    AddAction(tr("Change"), QKeySequence(Qt::CTRL | Qt::Key_M), [this] {
        const auto row = View().Current();
        if (!row) return;
        const queries::TreeRow line = RowOf(*View().Sheet(), *row);
        if (line.ledger > 0) this->desk().OpenScreen("Ledger_Master", std::to_string(line.ledger));
    });
    AddView();
    View().AskSlowly([](queries::Reading& books) { return queries::GroupTreeSheet(books); });
}

void LedgersPage::Activate(std::size_t row) {
    const queries::TreeRow line = RowOf(*View().Sheet(), row);
    if (line.ledger > 0)
        return desk().Push(new StatementPage(desk(), line.ledger, QString::fromStdString(line.name)));
    View().Toggle();
}

}  // namespace desk
