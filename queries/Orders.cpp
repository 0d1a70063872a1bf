#include "queries/Orders.h"

#include <map>

#include "queries/Stock.h"
#include "queries/Words.h"

namespace queries {
namespace {

OrderRow Head(ado::Recordset& order) {
    OrderRow row;
    row.number = NumberOf(order, "poNumber");
    row.date = DayOf(order, "PoDate");
    row.supplier = NumberOf(order, "poSupplierID");
    row.name = TextOf(order, "poSupplierName");
    row.cancelled = basic::ToBoolean(order["poCancelled"]);
    row.terms = TextOf(order, "PoDlvTerm");
    return row;
}

struct Line {
    std::int32_t item = 0;
    std::string description;
    double ordered = 0, received = 0;
};

std::multimap<std::int32_t, Line> Lines(Reading& books) {
    std::multimap<std::int32_t, Line> lines;
    const auto rows = SelectStock(books, "Select * From " + books.Table("tblPODet"));
    for (; !rows->Eof(); rows->MoveNext())
        lines.emplace(
            NumberOf(*rows, "PoDetPoNo"),
            Line{NumberOf(*rows, "PoDetItemID"), TextOf(*rows, "PoDetItemDesc"),
                 FigureOf(*rows, "PoDetQtyOrder").value_or(0), FigureOf(*rows, "PoDetQtyRecd").value_or(0)});
    return lines;
}

OrderRow WithLine(OrderRow row, const Line& line) {
    row.item = line.item;
    row.description = line.description;
    row.ordered = line.ordered;
    row.received = line.received;
    row.outstanding = row.cancelled ? 0 : row.ordered - row.received;
    return row;
}

const std::vector<Filled<OrderRow>>& Columns() {
    using Row = const OrderRow&;
    static const std::vector<Filled<OrderRow>> columns{
        {{"order", "Order", Kind::Number}, [](Row row) -> basic::Value { return row.number; }},
        {{"date", "Date", Kind::Date}, [](Row row) { return ValueOf(row.date); }},
        {{"supplier", "Supplier", Kind::Text}, [](Row row) -> basic::Value { return row.name; }},
        {{"item", "Item", Kind::Number}, [](Row row) { return ValueOf(row.item); }},
        {{"name", "Name", Kind::Text}, [](Row row) -> basic::Value { return row.description; }},
        {{"ordered", "Ordered", Kind::Quantity}, [](Row row) -> basic::Value { return row.ordered; }},
        {{"received", "Received", Kind::Quantity}, [](Row row) -> basic::Value { return row.received; }},
        {{"outstanding", "Outstanding", Kind::Quantity},
         [](Row row) -> basic::Value { return row.outstanding; }},
        {{"cancelled", "Cancelled", Kind::Flag}, [](Row row) -> basic::Value { return row.cancelled; }},
        {{"terms", "Terms", Kind::Text}, [](Row row) -> basic::Value { return row.terms; }},
    };
    return columns;
}

}  // namespace

std::vector<OrderRow> Orders(Reading& books, const OrderFilter& filter) {
    const Reading::Moment moment(books);
    const auto lines = Lines(books);
    const Words words(filter.words);
    std::vector<OrderRow> kept;
    const auto keep = [&](OrderRow row) {
        if (filter.outstanding && row.outstanding <= 0) return;
        if (words.In({row.name, row.description, row.terms})) kept.push_back(std::move(row));
    };
    for (const auto orders =
             SelectStock(books, "Select * From " + books.Table("tblPO") + " Order By poNumber");
         !orders->Eof(); orders->MoveNext()) {
        const OrderRow head = Head(*orders);
        if (!Holds(filter.days, head.date) || (filter.supplier && head.supplier != *filter.supplier))
            continue;
        const auto [first, last] = lines.equal_range(head.number);
        if (first == last) keep(head);
        for (auto line = first; line != last; ++line) keep(WithLine(head, line->second));
    }
    return kept;
}

std::unique_ptr<SheetOf<OrderRow>> OrdersSheet(Reading& books, const OrderFilter& filter) {
    return std::make_unique<SheetOf<OrderRow>>("Purchase orders, " + TitleOf(books, filter.days), Columns(),
                                               Orders(books, filter));
}

}  // namespace queries
