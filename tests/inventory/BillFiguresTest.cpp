#include "core/BillFigures.h"
#include "inventory/LandingCost.h"
#include "platform/basic/Number.h"
#include "tests/support/Cases.h"

namespace {

using test::Cases;
using test::Cells;

constexpr const char* File = "inventory/bills.txt";

TEST(BillFigures, AreReckonedByTheRuleOfTheirScreen) {
    for (const auto& [section, rule] : {std::pair{"Receipt", qm::ReceiptBill}, {"Order", qm::OrderBill}})
        for (const Cells& c : Cases(File, section)) {
            qm::BillFigures bill{c.at(0), c.at(1), c.at(2), c.at(3), c.at(4)};
            bill.Reckon(rule);
            EXPECT_EQ((Cells{bill.AmtAfterTax, bill.TotalAmt, bill.NetAmt}), Cells(c.begin() + 5, c.end()))
                << section << ": " << c[0] << " at " << c[1] << " and " << c[2];
        }
}

TEST(LandingCost, BuildsOnTheRowBeforeWithoutADiscount) {
    for (const Cells& c : Cases(File, "Landing costs")) {
        qm::LandingCost cost(c.at(0), c.at(1));
        for (const double price : {100.0, 50.0})
            EXPECT_EQ(basic::NumberText(cost.Next(price)), c.at(price == 100 ? 2 : 3))
                << c[0] << " and " << c[1];
    }
}

}  // namespace
