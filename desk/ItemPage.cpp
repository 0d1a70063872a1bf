#include "desk/ItemPage.h"

#include <QCoreApplication>
#include <string>

namespace desk {
namespace {

const queries::MovementSheet& Movements(const queries::Sheet& sheet) {
    return static_cast<const queries::MovementSheet&>(sheet);
}

}  // namespace

void ShowMovements(Desk& desk, SheetView& view) {
    view.Keeper().KeyOf = [](const queries::Sheet& sheet, std::size_t row) {
        return QVariant(qlonglong(Movements(sheet).Typed(row).key));
    };
    view.Keeper().PlaceOf = [](const queries::Sheet& sheet, const QVariant& key) {
        return Movements(sheet).Source().PlaceOf(key.toLongLong());
    };
    view.Activated = [&desk, &view](std::size_t row) {
        const queries::MovementRow line = Movements(*view.Sheet()).Typed(row);
        if (line.type == "Issue") return desk.OpenScreen("frmIssues", std::to_string(line.number));
        OpenReceipt(desk, line.number, line.order);
    };
}

void OpenReceipt(Desk& desk, std::int32_t receipt, std::optional<std::int32_t> order) {
    if (order.value_or(0) > 0)
        desk.OpenScreen("frmPO", std::to_string(*order));
    else
        desk.OpenScreen("frmReceipt", std::to_string(receipt));
}

void AskForMovements(SheetView& view, const queries::MovementFilter& filter) {
    view.AskSlowly([filter](queries::Reading& books, Worker::Job& job) {
        return queries::ListMovements(books, filter, [&job](std::size_t done, std::size_t all) {
            job.Total = all;
            job.Step(done);
        });
    });
}

ItemPage::ItemPage(Desk& desk, std::int32_t item, const QString& name) : SheetPage(desk, name, "item") {
    SetSubtitle(tr("Receipts and issues, with the stock behind each"));
    View().Columns().HideAtFirst({"item", "name"});
    ShowMovements(desk, View());
    View().SetEmpty(tr("This item has not moved in this year"),
                    tr("F6 enters a receipt of goods, F7 an issue."));
    AddAction(tr("Change"), QKeySequence(Qt::CTRL | Qt::Key_M),
              [this, item] { this->desk().OpenScreen("ItemMaster", std::to_string(item)); });
    AddView();
    AskForMovements(View(), {.item = item});
}

}  // namespace desk
