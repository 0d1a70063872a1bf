#pragma once

#include <QCoreApplication>
#include <QTimer>

#include "desk/TabPage.h"

class QLineEdit;

namespace desk {

class ChoiceChip;
class PeriodChip;

// Items with their stock, movements, orders with what is outstanding, and bills. Enter leads from an item to
// its movements, from the rest to the record on the module's screen, as Ctrl+M does from all of them.
class StockPage : public TabPage {
    Q_DECLARE_TR_FUNCTIONS(desk::StockPage)

  public:
    enum Tabs { Items, Movements, Orders, Bills };
    enum Stock { Any, ToReorder, Over };

    explicit StockPage(Desk& desk);
    QString Chapter() const override { return "Stock"; }
    void ShowItems(Stock stock);  // from elsewhere

  protected:
    void Turned() override;

  private:
    void AddFilters();
    void AddItems();
    void AddMovements();
    void AddOrders();
    void AddBills();
    void Change();
    std::string Words() const;
    bool IsNarrowed() const;

    QLineEdit* words_;
    QTimer typed_;
    ChoiceChip *stock_, *type_, *open_;
    PeriodChip* period_;
};

}  // namespace desk
