#include "queries/Movements.h"

#include "platform/basic/Text.h"
#include "queries/Stock.h"
#include "queries/Words.h"

namespace queries {
namespace {

// A row takes or adds the quantity of its type, whatever stands in the other.
double Change(const std::string& type, std::optional<double> received, std::optional<double> issued) {
    return type == "Issue" ? -issued.value_or(0) : received.value_or(0);
}

MovementRow Row(ado::Recordset& rows) {
    MovementRow row;
    row.number = NumberOf(rows, "ItemLedTrnNo");
    row.date = DayOf(rows, "ItemLedTrnDate");
    row.type = TextOf(rows, "ItemLedTrnType");
    row.item = NumberOf(rows, "ItemLedItemID");
    row.name = TextOf(rows, "ItemLedItemDesc");
    row.received = FigureOf(rows, "ItemLedTrnRptQty");
    row.issued = FigureOf(rows, "ItemLedTrnIssQty");
    row.price = FigureOf(rows, "ItemLedUnitPrice");
    if (row.type == "Receipt") row.landingCost = FigureOf(rows, "ItemLandingCost");
    if (const std::int32_t order = NumberOf(rows, "ItemLedPONo"); order != 0) row.order = order;
    if (const std::string bill = TextOf(rows, "ItemLedBillNo"); bill != "0") row.bill = bill;
    row.note = TextOf(rows, "ItemLedNote");
    return row;
}

std::map<std::int32_t, double> OpeningStocks(Reading& books) {
    std::map<std::int32_t, double> stocks;
    const auto items = SelectStock(books, "Select Item_ID, Open_Stock From " + books.Table("ItemMaster"));
    for (; !items->Eof(); items->MoveNext())
        stocks[NumberOf(*items, "Item_ID")] = FigureOf(*items, "Open_Stock").value_or(0);
    return stocks;
}

const std::vector<Filled<MovementRow>>& Columns() {
    using Row = const MovementRow&;
    static const std::vector<Filled<MovementRow>> columns{
        {{"date", "Date", Kind::Date}, [](Row row) { return ValueOf(row.date); }},
        {{"number", "Number", Kind::Number}, [](Row row) -> basic::Value { return row.number; }},
        {{"type", "Type", Kind::Text}, [](Row row) -> basic::Value { return row.type; }},
        {{"item", "Item", Kind::Number}, [](Row row) -> basic::Value { return row.item; }},
        {{"name", "Name", Kind::Text}, [](Row row) -> basic::Value { return row.name; }},
        {{"received", "Received", Kind::Quantity, true}, [](Row row) { return ValueOf(row.received); }},
        {{"issued", "Issued", Kind::Quantity, true}, [](Row row) { return ValueOf(row.issued); }},
        {{"balance", "Balance", Kind::Quantity}, [](Row row) -> basic::Value { return row.balance; }},
        {{"price", "Unit Price", Kind::Quantity}, [](Row row) { return ValueOf(row.price); }},
        {{"landing_cost", "Landing Cost", Kind::Quantity}, [](Row row) { return ValueOf(row.landingCost); }},
        {{"order", "Order", Kind::Number}, [](Row row) { return ValueOf(row.order); }},
        {{"bill", "Bill", Kind::Text}, [](Row row) -> basic::Value { return row.bill; }},
        {{"note", "Note", Kind::Text}, [](Row row) -> basic::Value { return row.note; }},
    };
    return columns;
}

}  // namespace

// What lies before the range only moves the balances, and there by both quantities of a row.
std::vector<MovementRow> Movements(Reading& books, const MovementFilter& filter) {
    const Reading::Moment moment(books);
    std::map<std::int32_t, double> balances = OpeningStocks(books);
    const Words words(filter.words);
    const std::string one = filter.item ? " Where ItemLedItemID = " + std::to_string(*filter.item) : "";
    std::vector<MovementRow> kept;
    for (const auto rows = SelectStock(books, "Select * From " + books.Table("tblItemLed") + one +
                                                  " Order By ItemLedTrnDate, ItemLedTrnType Desc");
         !rows->Eof(); rows->MoveNext()) {
        MovementRow row = Row(*rows);
        double& balance = balances[row.item];
        if (row.date && filter.days.from && *row.date < *filter.days.from) {
            balance += row.received.value_or(0) - row.issued.value_or(0);
            continue;
        }
        if (!Holds(filter.days, row.date)) continue;
        row.balance = balance += Change(row.type, row.received, row.issued);
        if (!filter.type.empty() && !basic::EqualText(row.type, filter.type)) continue;
        if (words.In({row.name, row.bill, row.note})) kept.push_back(std::move(row));
    }
    return kept;
}

std::map<std::int32_t, double> MovedQuantities(Reading& books) {
    std::map<std::int32_t, double> moved;
    for (const auto rows = SelectStock(books,
                                       "Select ItemLedItemID, ItemLedTrnType, ItemLedTrnRptQty, "
                                       "ItemLedTrnIssQty From " +
                                           books.Table("tblItemLed"));
         !rows->Eof(); rows->MoveNext())
        moved[NumberOf(*rows, "ItemLedItemID")] +=
            Change(TextOf(*rows, "ItemLedTrnType"), FigureOf(*rows, "ItemLedTrnRptQty"),
                   FigureOf(*rows, "ItemLedTrnIssQty"));
    return moved;
}

std::unique_ptr<SheetOf<MovementRow>> MovementsSheet(Reading& books, const MovementFilter& filter) {
    return std::make_unique<SheetOf<MovementRow>>("Stock movements, " + TitleOf(books, filter.days),
                                                  Columns(), Movements(books, filter));
}

}  // namespace queries
