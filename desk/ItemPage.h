#pragma once

#include <cstdint>

#include "desk/Page.h"
#include "queries/Movements.h"

namespace desk {

class SheetView;

// One item's movements with its stock behind each, as the item ledger has them. Enter opens the receipt or
// the issue on the module's screen.
class ItemPage : public Page {
    Q_DECLARE_TR_FUNCTIONS(desk::ItemPage)

  public:
    ItemPage(Desk& desk, std::int32_t item, const QString& name);
    QString Chapter() const override { return "Stock"; }
    void Refresh() override;

  private:
    SheetView* view_;
};

// How any list of movements is shown and opens what stands in a line.
void ShowMovements(Desk& desk, SheetView& view);
void AskForMovements(SheetView& view, const queries::MovementFilter& filter);

}  // namespace desk
