#include "desk/ItemPage.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QVBoxLayout>

#include "desk/SheetView.h"

namespace desk {
namespace {

const queries::MovementRow& RowOf(const queries::Sheet& sheet, std::size_t row) {
    return static_cast<const queries::SheetOf<queries::MovementRow>&>(sheet).Typed()[row];
}

}  // namespace

void ShowMovements(Desk& desk, SheetView& view) {
    view.KeyOf = [](const queries::Sheet& sheet, std::size_t row) {
        const queries::MovementRow& line = RowOf(sheet, row);
        return QVariant(
            QString("%1 %2 %3").arg(QString::fromStdString(line.type)).arg(line.number).arg(line.item));
    };
    view.Activated = [&desk, &view](std::size_t row) {
        const queries::MovementRow line = RowOf(*view.Sheet(), row);
        desk.OpenScreen(line.type == "Issue" ? "frmIssues" : "frmReceipt", std::to_string(line.number));
    };
}

ItemPage::ItemPage(Desk& desk, std::int32_t item, const QString& name)
    : Page(desk, name), view_(new SheetView(desk, "item")) {
    SetSubtitle(tr("Receipts and issues, with the stock behind each"));
    ShowMovements(desk, *view_);
    view_->SetEmpty(tr("This item has not moved in this year"),
                    tr("F6 enters a receipt of goods, F7 an issue."));
    AddToHead(view_->Buttons());
    Body().addWidget(view_);
    view_->View().setAccessibleName(Title());
    SetFirstFocus(view_);
    view_->AskSlowly(
        [item](queries::Reading& books) { return queries::MovementsSheet(books, {.item = item}); });
}

void ItemPage::Refresh() {
    view_->Refresh();
}

}  // namespace desk
