#pragma once

#include <QCoreApplication>
#include <QFrame>
#include <functional>
#include <memory>
#include <optional>

#include "desk/ChartView.h"
#include "desk/SheetView.h"

class QLabel;
class QStackedWidget;
class QPushButton;

namespace desk {

// A chart with its title, its legend and the marked figure in words; Ctrl+T turns it into the table of the
// same figures and back, on the same figure.
class ChartCard : public QFrame {
    Q_DECLARE_TR_FUNCTIONS(desk::ChartCard)

  public:
    // The columns of the table are kept under `name`. `open` gets the point and the line of a chosen figure.
    ChartCard(Desk& desk, const QString& name, const QString& title,
              std::function<void(ChartView::Place)> open);

    // The chart and, where it is turned, its twin.
    void Set(ChartData drawn, std::shared_ptr<const queries::Sheet> twin);
    // What the card is made of, whichever side is turned up.
    ChartView& Chart() const { return *chart_; }
    SheetView& Table() const { return *table_; }
    void Turn();  // to the table, or back to the chart; the focus goes along

  private:
    void Tell();
    std::optional<std::size_t> LineOf(int column) const;
    void MarkCell();    // in the chart, the figure that the table stands on
    void GoToMarked();  // in the table

    ChartView* chart_;
    SheetView* table_;
    QLabel *legend_, *marked_;
    QStackedWidget* stack_;
    QPushButton* turn_;
};

}  // namespace desk
