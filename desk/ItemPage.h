#pragma once

#include <QCoreApplication>
#include <cstdint>
#include <optional>

#include "desk/SheetPage.h"
#include "queries/Movements.h"

namespace desk {

// One item's movements with its stock behind each, as the item ledger has them. Enter opens the receipt or
// the issue on the module's screen.
class ItemPage : public SheetPage {
    Q_DECLARE_TR_FUNCTIONS(desk::ItemPage)

  public:
    ItemPage(Desk& desk, std::int32_t item, const QString& name);
    QString Chapter() const override { return "Stock"; }
};

// How any list of movements is shown and opens what stands in a line.
void ShowMovements(Desk& desk, SheetView& view);
void AskForMovements(SheetView& view, const queries::MovementFilter& filter);

// A receipt of goods on the module's screen: on that of its order, which has the receipts against it, where
// there is one.
void OpenReceipt(Desk& desk, std::int32_t receipt, std::optional<std::int32_t> order);

}  // namespace desk
