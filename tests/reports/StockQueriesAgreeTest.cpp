// What the queries of stock answer beside what the screens print and show, cell by cell, on random books.
#include <random>

#include <gmock/gmock.h>

#include "core/Masks.h"
#include "platform/basic/Format.h"
#include "queries/Items.h"
#include "queries/Movements.h"
#include "reports/frmItemLedger.h"
#include "tests/reports/PageCells.h"
#include "tests/reports/ReportScreens.h"

using namespace testing;
using test::CellsOf;

namespace {

class StockQueriesAgreeTest : public ReportScreensTest, public WithParamInterface<unsigned> {
  protected:
    ~StockQueriesAgreeTest() override { screen.Unload(); }

    // Items and movements of both types and of none, days before and behind the year, quantities in the wrong
    // column, or none there; the counters are the sums of the columns, as the stock screens keep them.
    static void Fill(unsigned seed) {
        std::mt19937 random(seed);
        const auto below = [&](int count) {
            return static_cast<int>(random() % static_cast<unsigned>(count));
        };
        const auto figure = [&](int most) { return basic::NumberText(below(most) / 8.0); };
        const auto item = [&] { return std::to_string(1 + below(Items)); };
        qm::Conn().BeginTrans();
        for (int id = 1; id <= Items; ++id)
            Run("Insert Into ItemMaster2001 (Item_ID, Item_Name, Open_Stock, Unit_Price, IssuedQty, "
                "ReceivedQty) "
                "Values (" +
                std::to_string(id) + ", 'Item " + std::to_string(100 + below(900)) + "', " + figure(800) +
                ", " + figure(4000) + ", 0, 0)");
        for (int row = 0; row < 200; ++row) {
            const std::string in = figure(400), out = figure(300), id = item();
            const char* const types[] = {"Issue", "Issue", "Receipt", "Receipt", "Return"};
            const int type = below(5);
            Run("Insert Into tblItemLed2001 (ItemLedTrnNo, ItemLedItemID, ItemLedTrnDate, ItemLedTrnType, "
                "ItemLedItemDesc, ItemLedTrnRptQty, ItemLedTrnIssQty, ItemLandingCost, ItemLedUnitPrice, "
                "ItemLedNote) Values (" +
                std::to_string(row / 3) + ", " + id + ", " + std::to_string(36970 + below(385)) + ", '" +
                types[type] + "', 'x', " + in + ", " + (type > 1 && below(5) == 0 ? "Null" : out) + ", " +
                figure(80) + ", " + figure(80) + ", 'note " + std::to_string(row) + "')");
            Run("Update ItemMaster2001 Set ReceivedQty = ReceivedQty + " + in + ", IssuedQty = IssuedQty + " +
                out + " Where Item_ID = " + id);
        }
        qm::Conn().CommitTrans();
    }

    std::string Page(basic::Date from, basic::Date upto) {
        screen.Unload();
        screen.Show();
        BringToFront(screen);
        screen.ui().dtpDateFrom->SetValue(from);
        screen.ui().dtpDateUpTo->SetValue(upto);
        Click(screen.ui().ucItemLedger->ui().optAll);
        return Printed([&] { Click(screen.ui().ucItemLedger->ui().cmdOk); });
    }

    static constexpr int Items = 12;
    qm::frmItemLedger& screen = forms::Default<qm::frmItemLedger>();
};

std::string Quantity(double quantity) {
    return basic::Format(quantity, qm::ReportMask);
}
std::string Plain(const std::optional<double>& figure) {
    return figure ? basic::NumberText(*figure) : "";
}

// The page of the item ledger, made of the answers alone: a part for each item that moved, by name.
test::Lines LedgerLines(queries::Reading& reading, basic::Date from, basic::Date upto) {
    std::vector<queries::ItemRow> items = queries::Items(reading);
    std::stable_sort(items.begin(), items.end(),
                     [](const auto& a, const auto& b) { return a.name < b.name; });
    test::Lines lines;
    for (const queries::ItemRow& item : items) {
        const queries::MovementLines movements(reading, {.days = {from, upto}, .item = item.id});
        const auto rows = movements.Page(0, movements.Count());
        if (rows.empty()) continue;
        const auto& first = rows.front();
        double received = first.balance -
                          (first.type == "Issue" ? -first.issued.value_or(0) : first.received.value_or(0)),
               issued = 0;
        lines.push_back("|Item Code: " + std::to_string(item.id) + "|Item: " + item.name +
                        "|Unit Price: " + Plain(first.price));
        lines.push_back("|Date|Particulars|TrnType|Landing Cost|Receipt Qty.|Issue Qty.|Balance Qty.");
        lines.push_back("|" + basic::Format(from, qm::DateMask) + "|Opening Balance|||" + Quantity(received) +
                        "|");
        for (const queries::MovementRow& row : rows) {
            lines.push_back("|" + basic::Format(*row.date, qm::DateMask) + "|" + row.note + "|" + row.type +
                            "|" + Plain(row.landingCost) + "|" + Quantity(*row.received) + "|" +
                            (row.issued ? Quantity(*row.issued) : "") + "|" + Quantity(row.balance));
            received += *row.received, issued += row.issued.value_or(0);
        }
        lines.push_back("||||" + ("|" + Quantity(received)) + "|" + Quantity(issued) + "|" +
                        Quantity(rows.back().balance));
    }
    return lines;
}

TEST_P(StockQueriesAgreeTest, WithTheItemLedgerAndTheIssuesToTheLastDigit) {
    Fill(GetParam());
    queries::Reading reading(books.DataPath());
    for (const int day : {1, 60, 365}) {
        SCOPED_TRACE("day " + std::to_string(day));
        EXPECT_EQ(CellsOf(Page(Date(day / 2 + 1), Date(day)), "Stock Ledger|"),
                  LedgerLines(reading, Date(day / 2 + 1), Date(day)));
    }
    // What an issue may take at most, by the statement of its screen.
    test::Lines nets;
    for (const queries::ItemRow& item : queries::Items(reading))
        nets.push_back(std::to_string(item.id) + "|" + basic::NumberText(item.net));
    EXPECT_EQ(nets, Rows("Select Item_ID, (Open_Stock-IssuedQty+ReceivedQty) As NetQty From ItemMaster2001"));
}

INSTANTIATE_TEST_SUITE_P(RandomBooks, StockQueriesAgreeTest, testing::Range(1u, 4u));

}  // namespace
