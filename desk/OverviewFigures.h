#pragma once

#include <memory>
#include <string>

#include "desk/ChartView.h"
#include "desk/ShownSheet.h"
#include "queries/CashAndBank.h"
#include "queries/Items.h"
#include "queries/Months.h"
#include "queries/Parties.h"

namespace desk {

// What is owed to the firm and what it owes, in rupees, of one age.
struct AgeRow {
    std::string age;  // "31 to 60"
    double owed = 0, owing = 0;
};

// All that the overview shows, of one moment.
struct OverviewFigures {
    std::shared_ptr<const queries::SheetOf<queries::MonthRow>> Months;
    std::shared_ptr<const queries::SheetOf<queries::MoneyRow>> Money;
    std::shared_ptr<const queries::SheetOf<queries::PartyRow>> Parties;
    std::shared_ptr<const queries::SheetOf<queries::ItemRow>> Items;
    std::shared_ptr<const queries::SheetOf<AgeRow>> Ages;

    // Raises what reading raises.
    static std::shared_ptr<const OverviewFigures> Read(queries::Reading& books);

    ChartData MoneyChart() const;  // cash and bank at the end of each month
    ChartData TradeChart() const;  // sales and purchases
    ChartData PaidChart() const;   // receipts and payments
    ChartData AgesChart() const;   // owed and owing

    // The tables of two charts.
    std::shared_ptr<const ShownSheet> Trade() const;
    std::shared_ptr<const ShownSheet> Paid() const;
    std::shared_ptr<const ShownSheet> Largest(std::size_t most) const;  // parties by what is open
    std::shared_ptr<const ShownSheet> Short() const;                    // items to reorder

    // The parties of a point of the chart of ages.
    static queries::PartyFilter OfAge(std::size_t point, queries::Owing owing);
};

}  // namespace desk
