#include "queries/Movements.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "platform/basic/Text.h"
#include "queries/Stock.h"
#include "queries/Words.h"

namespace queries {
namespace {

// A row takes or adds the quantity of its type, whatever stands in the other.
double Change(const std::string& type, std::optional<double> received, std::optional<double> issued) {
    return type == "Issue" ? -issued.value_or(0) : received.value_or(0);
}

const std::string SelectQuantities =
    "Select ItemLedItemID, ItemLedTrnType, ItemLedTrnRptQty, ItemLedTrnIssQty From ";
const std::string SelectFields =
    "Select ItemLedTrnNo, ItemLedTrnDate, ItemLedTrnType, ItemLedItemID, ItemLedItemDesc, ItemLedTrnRptQty, "
    "ItemLedTrnIssQty, ItemLedUnitPrice, ItemLandingCost, ItemLedPONo, ItemLedBillNo, ItemLedNote From ";

std::int32_t Whole(const basic::Value& value) {
    return value.IsNull() ? 0 : basic::ToLong(value);
}

std::optional<double> Figure(const basic::Value& value) {
    return value.IsNull() ? std::nullopt : std::optional(basic::ToDouble(value));
}

MovementRow Row(const ado::KeptRows& rows, std::int64_t at) {
    MovementRow row;
    std::size_t field = 0;
    const auto next = [&] { return rows.ValueAt(at, field++); };
    row.key = rows.KeyOf(at);
    row.number = Whole(next());
    if (const basic::Value day = next(); !day.IsNull()) row.date = DateOf(basic::ToLong(day));
    row.type = basic::TextOrEmpty(next());
    row.item = Whole(next());
    row.name = basic::TextOrEmpty(next());
    row.received = Figure(next());
    row.issued = Figure(next());
    row.price = Figure(next());
    const std::optional<double> cost = Figure(next());
    if (row.type == "Receipt") row.landingCost = cost;
    if (const std::int32_t order = Whole(next()); order != 0) row.order = order;
    if (const std::string bill = basic::TextOrEmpty(next()); bill != "0") row.bill = bill;
    row.note = basic::TextOrEmpty(next());
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
        {{"number", "Number", Kind::Number},
         [](Row row) { return row.key == 0 ? basic::Value() : basic::Value(row.number); }},
        {{"type", "Type", Kind::Text}, [](Row row) -> basic::Value { return row.type; }},
        {{"item", "Item", Kind::Number},
         [](Row row) { return row.key == 0 ? basic::Value() : basic::Value(row.item); }},
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

// One walk over the table as it stands, which no index has in the order of the list: what the list needs of
// each movement is kept, sorted here, and walked through once more for the balances.
class MovementLines::Pass {
  public:
    Pass(MovementLines& lines, const MovementFilter& filter) : lines_(lines), filter_(filter) {}

    void Take(const ado::KeptRows& rows) {
        for (std::int64_t at = 0; at < rows.Count(); ++at) {
            const MovementRow row = Row(rows, at);
            // What lies before the range only moves the balances, and there by both quantities of a row.
            const bool before = row.date && filter_.days.from && *row.date < *filter_.days.from;
            if (before) {
                before_[row.item] += row.received.value_or(0) - row.issued.value_or(0);
            } else if (Holds(filter_.days, row.date)) {
                const bool shown = (filter_.type.empty() || basic::EqualText(row.type, filter_.type)) &&
                                   words_.In({row.name, row.bill, row.note});
                lines_.lines_.push_back({row.key, Change(row.type, row.received, row.issued), row.item,
                                         When(row) * 2 + (shown ? 1 : 0)});
            }
        }
    }

    void Finish(Reading& books) {
        Sort();
        std::map<std::int32_t, double> balances = OpeningStocks(books);
        for (const auto& [item, moved] : before_) balances[item] += moved;
        for (Line& line : lines_.lines_) line.balance = balances[line.item] += line.balance;
        std::erase_if(lines_.lines_, [](const Line& line) { return line.when % 2 == 0; });
        lines_.lines_.shrink_to_fit();
    }

  private:
    // The place of a row's day and type among those met so far.
    std::uint32_t When(const MovementRow& row) {
        const auto [found, isNew] = met_.try_emplace(
            {row.date ? DayOf(*row.date) : std::numeric_limits<std::int32_t>::min(), row.type},
            static_cast<std::uint32_t>(met_.size()));
        return found->second;
    }

    void Sort() {
        using Met = std::map<std::pair<std::int32_t, std::string>, std::uint32_t>::const_iterator;
        std::vector<Met> order;
        for (Met each = met_.begin(); each != met_.end(); ++each) order.push_back(each);
        std::stable_sort(order.begin(), order.end(), [](const Met& a, const Met& b) {
            if (a->first.first != b->first.first) return a->first.first < b->first.first;
            return basic::CompareText(a->first.second, b->first.second) > 0;
        });
        // Types that differ in case alone are equal.
        std::vector<std::uint32_t> ranks(order.size());
        std::uint32_t rank = 0;
        for (std::size_t at = 0; at < order.size(); ++at) {
            const bool equal = at > 0 && order[at]->first.first == order[at - 1]->first.first &&
                               basic::EqualText(order[at]->first.second, order[at - 1]->first.second);
            ranks[order[at]->second] = equal ? rank : ++rank;
        }
        for (Line& line : lines_.lines_) line.when = ranks[line.when / 2] * 2 + line.when % 2;
        std::sort(lines_.lines_.begin(), lines_.lines_.end(), [](const Line& a, const Line& b) {
            return a.when / 2 != b.when / 2 ? a.when / 2 < b.when / 2 : a.key < b.key;
        });
    }

    MovementLines& lines_;
    const MovementFilter& filter_;
    const Words words_{filter_.words};
    std::map<std::int32_t, double> before_;  // what moved before the range
    std::map<std::pair<std::int32_t, std::string>, std::uint32_t> met_;
};

MovementLines::MovementLines(Reading& books, const MovementFilter& filter, const Step& step)
    : books_(&books), select_(SelectFields + books.Table("tblItemLed")) {
    const Reading::Moment moment(books);
    const std::string one = filter.item ? " Where ItemLedItemID = " + std::to_string(*filter.item) : "";
    Pass pass(*this, filter);
    const ado::RowWindow window = StockWindow(books, select_ + one);
    const std::size_t all = window.Count();
    lines_.reserve(all);
    std::size_t done = 0;
    window.Each([&](const ado::KeptRows& rows) {
        pass.Take(rows);
        if (step) step(done += static_cast<std::size_t>(rows.Count()), all);
    });
    pass.Finish(books);
}

std::vector<MovementRow> MovementLines::Page(std::size_t first, std::size_t count) const {
    std::vector<ado::RowKey> keys;
    for (std::size_t at = first; at < std::min(first + count, Count()); ++at) keys.push_back(lines_[at].key);
    const ado::KeptRows rows = books_->Window(select_).Of(keys.data(), keys.size());
    std::vector<MovementRow> page;
    for (std::int64_t at = 0; at < rows.Count(); ++at) {
        page.push_back(Row(rows, at));
        page.back().balance = lines_[first + static_cast<std::size_t>(at)].balance;
    }
    return page;
}

std::optional<std::size_t> MovementLines::PlaceOf(ado::RowKey key) const {
    const auto place = std::ranges::find(lines_, key, &Line::key);
    if (place == lines_.end()) return std::nullopt;
    return static_cast<std::size_t>(place - lines_.begin());
}

std::map<std::int32_t, double> MovedQuantities(Reading& books) {
    std::map<std::int32_t, double> moved;
    StockWindow(books, SelectQuantities + books.Table("tblItemLed")).Each([&](const ado::KeptRows& rows) {
        for (std::int64_t at = 0; at < rows.Count(); ++at)
            moved[Whole(rows.ValueAt(at, 0))] +=
                Change(basic::TextOrEmpty(rows.ValueAt(at, 1)), Figure(rows.ValueAt(at, 2)),
                       Figure(rows.ValueAt(at, 3)));
    });
    return moved;
}

std::unique_ptr<MovementSheet> ListMovements(Reading& books, const MovementFilter& filter, const Step& step) {
    return std::make_unique<MovementSheet>("Stock movements, " + TitleOf(books, filter.days), Columns(),
                                           MovementLines(books, filter, step));
}

}  // namespace queries
