#include "queries/Items.h"

#include "queries/Movements.h"
#include "queries/Stock.h"
#include "queries/Words.h"

namespace queries {
namespace {

ItemRow Row(ado::Recordset& item) {
    ItemRow row;
    row.id = NumberOf(item, "Item_ID");
    row.name = TextOf(item, "Item_Name");
    row.type = TextOf(item, "Item_Type");
    row.unit = TextOf(item, "Unit_Desc");
    row.opening = FigureOf(item, "Open_Stock");
    row.received = FigureOf(item, "ReceivedQty");
    row.issued = FigureOf(item, "IssuedQty");
    row.net = row.opening.value_or(0) - row.issued.value_or(0) + row.received.value_or(0);
    row.price = FigureOf(item, "Unit_Price");
    row.worth = row.net * row.price.value_or(0);
    row.reorderLevel = FigureOf(item, "Reorder_Level");
    row.overflowLevel = FigureOf(item, "Overflow_Level");
    row.reorder = row.reorderLevel.value_or(0) > 0 && row.net <= *row.reorderLevel;
    row.over = row.overflowLevel.value_or(0) > 0 && row.net > *row.overflowLevel;
    row.notes = TextOf(item, "Notes");
    return row;
}

void AddMoved(std::vector<ItemRow>& rows, const Quantities& moved) {
    for (ItemRow& row : rows) {
        const auto found = moved.find(row.id);
        row.moved = row.opening.value_or(0) + (found == moved.end() ? 0 : found->second);
    }
}

bool Fits(const ItemRow& row, ItemStock stock) {
    return stock == ItemStock::Any || (stock == ItemStock::Over ? row.over : row.reorder);
}

const std::vector<Filled<ItemRow>>& Columns() {
    using Row = const ItemRow&;
    static const std::vector<Filled<ItemRow>> columns{
        {{"item", "Item", Kind::Number}, [](Row row) -> basic::Value { return row.id; }},
        {{"name", "Name", Kind::Text}, [](Row row) -> basic::Value { return row.name; }},
        {{"type", "Type", Kind::Text}, [](Row row) -> basic::Value { return row.type; }},
        {{"unit", "Unit", Kind::Text}, [](Row row) -> basic::Value { return row.unit; }},
        {{"opening", "Opening", Kind::Quantity}, [](Row row) { return ValueOf(row.opening); }},
        {{"received", "Received", Kind::Quantity}, [](Row row) { return ValueOf(row.received); }},
        {{"issued", "Issued", Kind::Quantity}, [](Row row) { return ValueOf(row.issued); }},
        {{"net", "Net Stock", Kind::Quantity}, [](Row row) -> basic::Value { return row.net; }},
        {{"by_movements", "By Movements", Kind::Quantity}, [](Row row) { return ValueOf(row.moved); }},
        {{"price", "Unit Price", Kind::Quantity}, [](Row row) { return ValueOf(row.price); }},
        {{"worth", "Worth", Kind::Amount, true}, [](Row row) -> basic::Value { return row.worth; }},
        {{"reorder_level", "Reorder Level", Kind::Quantity},
         [](Row row) { return ValueOf(row.reorderLevel); }},
        {{"reorder", "Reorder", Kind::Flag}, [](Row row) -> basic::Value { return row.reorder; }},
        {{"overflow_level", "Overflow Level", Kind::Quantity},
         [](Row row) { return ValueOf(row.overflowLevel); }},
    };
    return columns;
}

}  // namespace

std::vector<ItemRow> Items(Reading& books, const std::string& words, ItemStock stock, ByMovements moved) {
    const Reading::Moment moment(books);
    const Words wanted(words);
    std::vector<ItemRow> rows;
    for (const auto items =
             SelectStock(books, "Select * From " + books.Table("ItemMaster") + " Order By Item_ID");
         !items->Eof(); items->MoveNext())
        if (ItemRow row = Row(*items); Fits(row, stock) && wanted.In({row.name, row.type, row.notes}))
            rows.push_back(std::move(row));
    if (moved == ByMovements::AddedUp) AddMoved(rows, MovedQuantities(books));
    return rows;
}

std::unique_ptr<SheetOf<ItemRow>> ItemsSheet(Reading& books, const std::string& words, ItemStock stock,
                                             ByMovements moved) {
    return std::make_unique<SheetOf<ItemRow>>("Items, " + books.LongYear(), Columns(),
                                              Items(books, words, stock, moved));
}

}  // namespace queries
