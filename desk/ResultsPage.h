#pragma once

#include <QCoreApplication>
#include <optional>

#include "desk/TabPage.h"
#include "queries/LedgerSums.h"
#include "queries/Results.h"

namespace desk {

class ChoiceChip;
class PeriodChip;

// The trial balance and the final results of any range as trees: alone, beside the year before or by month.
// Enter opens a ledger's statement over the days that its figure is of.
class ResultsPage : public TabPage {
    Q_DECLARE_TR_FUNCTIONS(desk::ResultsPage)

  public:
    explicit ResultsPage(Desk& desk);
    QString Chapter() const override { return "Results"; }

  protected:
    void Turned() override;

  private:
    enum Beside { Alone, LastYear, Months };

    void AddStatement(const QString& caption, const QString& name,
                      std::optional<queries::Statement> statement);
    void Ask(SheetView& view, std::optional<queries::Statement> statement);
    void Activate(std::size_t row);
    std::optional<queries::Statement> Statement() const;  // of the tab; none for the trial balance
    bool IsAsOf() const;                                  // how it stood at the end of the range
    queries::Range Asked() const;

    PeriodChip* period_;
    ChoiceChip *beside_, *figures_;  // the last: of the trial balance
};

}  // namespace desk
