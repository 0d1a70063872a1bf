#include "queries/Movements.h"

#include <algorithm>
#include <limits>
#include <map>
#include <numeric>
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

const std::string WalkedFields =
    "Select ItemLedTrnDate, ItemLedTrnType, ItemLedItemID, ItemLedTrnRptQty, ItemLedTrnIssQty";
const std::string WordFields = ", ItemLedItemDesc, ItemLedBillNo, ItemLedNote";

std::int32_t Whole(const basic::Value& value) {
    return value.IsNull() ? 0 : basic::ToLong(value);
}

std::optional<double> Figure(const basic::Value& value) {
    return value.IsNull() ? std::nullopt : std::optional(basic::ToDouble(value));
}

// A movement without a bill bears a nought.
std::string BillOf(const basic::Value& value) {
    const std::string bill = basic::TextOrEmpty(value);
    return bill == "0" ? "" : bill;
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
    row.bill = BillOf(next());
    row.note = basic::TextOrEmpty(next());
    return row;
}

Quantities OpeningStocks(Reading& books) {
    Quantities stocks;
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
// each movement is kept, put in order here, and walked through once more for the balances.
class MovementLines::Pass {
  public:
    Pass(const MovementFilter& filter, std::size_t most) : filter_(filter), words_(filter.words) {
        keys_.Reserve(most);
        changes_.reserve(most);
        items_.reserve(most);
        when_.reserve(most);
    }

    // Of the fields of WalkedFields, and behind them of WordFields where words are wanted.
    void Take(const ado::KeptRows& rows) {
        for (std::int64_t at = 0; at < rows.Count(); ++at) {
            const auto value = [&](std::size_t field) { return rows.ValueAt(at, field); };
            const basic::Value day = value(0);
            const std::string type = basic::TextOrEmpty(value(1));
            const std::int32_t item = Whole(value(2));
            const std::optional<double> received = Figure(value(3)), issued = Figure(value(4));
            const auto date = day.IsNull() ? std::nullopt : std::optional(DateOf(basic::ToLong(day)));
            // What lies before the range only moves the balances, and there by both quantities of a row.
            if (date && filter_.days.from && *date < *filter_.days.from) {
                before_[item] += received.value_or(0) - issued.value_or(0);
            } else if (Holds(filter_.days, date)) {
                const bool shown =
                    (filter_.type.empty() || basic::EqualText(type, filter_.type)) &&
                    (filter_.words.empty() || words_.In({basic::TextOrEmpty(value(5)), BillOf(value(6)),
                                                         basic::TextOrEmpty(value(7))}));
                keys_.Add(rows.KeyOf(at));
                changes_.push_back(Change(type, received, issued));
                items_.push_back(item);
                when_.push_back(When(date, type) * 2 + (shown ? 1 : 0));
            }
        }
    }

    // Leaves nothing here.
    void Finish(MovementLines& lines, Reading& books) {
        std::vector<std::uint32_t> order = Order();
        Quantities balances = OpeningStocks(books);
        for (const auto& [item, moved] : before_) balances[item] += moved;
        for (const std::uint32_t at : order) changes_[at] = balances[items_[at]] += changes_[at];
        std::erase_if(order, [&](std::uint32_t at) { return when_[at] % 2 == 0; });
        items_ = std::vector<std::int32_t>();
        when_ = std::vector<std::uint32_t>();
        lines.keys_ = keys_.At(order);
        keys_ = ado::RowKeys();
        lines.balances_.reserve(order.size());
        for (const std::uint32_t at : order) lines.balances_.push_back(changes_[at]);
    }

  private:
    using DayAndType = std::pair<std::int32_t, std::string>;

    // The place of a row's day and type among those met so far; as a rule it is that of the row before.
    std::uint32_t When(const std::optional<basic::Date>& date, const std::string& type) {
        const std::int32_t day = date ? DayOf(*date) : std::numeric_limits<std::int32_t>::min();
        if (last_ == met_.end() || last_->first.first != day || last_->first.second != type)
            last_ = met_.try_emplace({day, type}, static_cast<std::uint32_t>(met_.size())).first;
        return last_->second;
    }

    // By day and by type from Z to A; types that differ in case alone are equal.
    std::vector<std::uint32_t> Ranks() const {
        using Met = std::map<DayAndType, std::uint32_t>::const_iterator;
        std::vector<Met> order;
        for (Met each = met_.begin(); each != met_.end(); ++each) order.push_back(each);
        std::stable_sort(order.begin(), order.end(), [](const Met& a, const Met& b) {
            if (a->first.first != b->first.first) return a->first.first < b->first.first;
            return basic::CompareText(a->first.second, b->first.second) > 0;
        });
        std::vector<std::uint32_t> ranks(order.size());
        std::uint32_t rank = 0;
        for (std::size_t at = 0; at < order.size(); ++at) {
            const bool equal = at > 0 && order[at]->first.first == order[at - 1]->first.first &&
                               basic::EqualText(order[at]->first.second, order[at - 1]->first.second);
            ranks[order[at]->second] = equal ? rank : ++rank;
        }
        return ranks;
    }

    std::vector<std::uint32_t> Order() const {
        const std::vector<std::uint32_t> ranks = Ranks();
        std::vector<std::uint32_t> order(when_.size());
        std::iota(order.begin(), order.end(), 0U);
        std::sort(order.begin(), order.end(), [&](std::uint32_t a, std::uint32_t b) {
            const std::uint32_t ofA = ranks[when_[a] / 2], ofB = ranks[when_[b] / 2];
            return ofA != ofB ? ofA < ofB : keys_[a] < keys_[b];
        });
        return order;
    }

    const MovementFilter& filter_;
    const Words words_;
    Quantities before_;  // what moved before the range
    std::map<DayAndType, std::uint32_t> met_;
    std::map<DayAndType, std::uint32_t>::const_iterator last_ = met_.end();
    // Of each movement in the range, as they were met.
    ado::RowKeys keys_;
    std::vector<double> changes_;  // of its item's stock; in the end the balance behind it
    std::vector<std::int32_t> items_;
    std::vector<std::uint32_t> when_;  // its day and type, times two, and 1 where it is shown
};

MovementLines::MovementLines(Reading& books, const MovementFilter& filter, const Step& step)
    : books_(&books), select_(SelectFields + books.Table("tblItemLed")) {
    const Reading::Moment moment(books);
    const std::string one = filter.item ? " Where ItemLedItemID = " + std::to_string(*filter.item) : "";
    const ado::RowWindow window = StockWindow(books, WalkedFields + (filter.words.empty() ? "" : WordFields) +
                                                         " From " + books.Table("tblItemLed") + one);
    const std::size_t all = window.Count();
    Pass pass(filter, all);
    std::size_t done = 0;
    window.Each([&](const ado::KeptRows& rows) {
        pass.Take(rows);
        if (step) step(done += static_cast<std::size_t>(rows.Count()), all);
    });
    pass.Finish(*this, books);
}

std::vector<MovementRow> MovementLines::Page(std::size_t first, std::size_t count) const {
    const ado::KeptRows rows = books_->Window(select_).Of(keys_.Part(first, count));
    std::vector<MovementRow> page;
    for (std::int64_t at = 0; at < rows.Count(); ++at) {
        page.push_back(Row(rows, at));
        page.back().balance = balances_[first + static_cast<std::size_t>(at)];
    }
    return page;
}

Quantities MovedQuantities(Reading& books) {
    Quantities moved;
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
