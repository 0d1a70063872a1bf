#include "desk/OverviewFigures.h"

#include <QCoreApplication>
#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>

#include "desk/Dates.h"
#include "queries/Stock.h"

namespace desk {
namespace {

using queries::Kind;

struct Age {
    double queries::PartyRow::*Part;
    const char* Name;
    int OlderThan, Upto;  // days, 0 without an end
};
struct Words {
    Q_DECLARE_TR_FUNCTIONS(desk::OverviewFigures)

  public:
    static constexpr Age Ages[] = {{&queries::PartyRow::upto30, QT_TR_NOOP("Up to 30 days"), 0, 30},
                                   {&queries::PartyRow::upto60, QT_TR_NOOP("31 to 60"), 30, 60},
                                   {&queries::PartyRow::upto90, QT_TR_NOOP("61 to 90"), 60, 90},
                                   {&queries::PartyRow::older, QT_TR_NOOP("Over 90"), 90, 0}};
};

std::unique_ptr<queries::SheetOf<AgeRow>> AgesOf(const std::vector<queries::PartyRow>& parties) {
    std::vector<AgeRow> rows;
    for (const Age& age : Words::Ages) {
        AgeRow row{Words::tr(age.Name).toStdString()};
        for (const queries::PartyRow& party : parties)
            (party.*age.Part > 0 ? row.owed : row.owing) += std::abs(party.*age.Part);
        rows.push_back(row);
    }
    static const std::vector<queries::Filled<AgeRow>> columns{
        {{"age", "Age in Days", Kind::Text}, [](const AgeRow& row) -> basic::Value { return row.age; }},
        {{"owed_to_us", "Owed to Us", Kind::Amount, true},
         [](const AgeRow& row) -> basic::Value { return row.owed; }},
        {{"we_owe", "We Owe", Kind::Amount, true},
         [](const AgeRow& row) -> basic::Value { return row.owing; }},
    };
    return std::make_unique<queries::SheetOf<AgeRow>>("Owed and owing by age", columns, std::move(rows));
}

// A year made without stock has no tables of it.
std::unique_ptr<queries::SheetOf<queries::ItemRow>> ItemsOf(queries::Reading& books) {
    if (queries::HasStock(books))
        return queries::ItemsSheet(books, {}, queries::ItemStock::Any, queries::ByMovements::LeftOut);
    return std::make_unique<queries::SheetOf<queries::ItemRow>>(
        "Items", std::vector<queries::Filled<queries::ItemRow>>(), std::vector<queries::ItemRow>());
}

template <class Row>
ChartData ByMonth(const queries::SheetOf<Row>& sheet, ChartData::Shape shape,
                  std::vector<std::pair<QString, double Row::*>> lines) {
    ChartData data{.Drawn = shape, .Points = {}, .PointNames = {}, .Lines = {}};
    for (const Row& row : sheet.Typed()) {
        const QString month = MonthText(*row.days.from);
        data.Points << month.left(3);
        data.PointNames << month;
    }
    for (const auto& [caption, field] : lines) {
        data.Lines.push_back({caption, {}});
        for (const Row& row : sheet.Typed()) data.Lines.back().Figures.push_back(row.*field);
    }
    return data;
}

template <class Row>
ShownSheet::Order RowsWhere(const queries::SheetOf<Row>& sheet, const std::function<bool(const Row&)>& fits) {
    ShownSheet::Order order;
    for (std::size_t row = 0; row < sheet.Rows(); ++row)
        if (fits(sheet.Typed()[row])) order.push_back(static_cast<std::uint32_t>(row));
    return order;
}

std::vector<std::size_t> ColumnsNamed(const queries::Sheet& sheet,
                                      std::initializer_list<std::string_view> names) {
    std::vector<std::size_t> found;
    for (const std::string_view name : names)
        for (std::size_t column = 0; column < sheet.Columns().size(); ++column)
            if (sheet.Columns()[column].name == name) found.push_back(column);
    return found;
}

std::shared_ptr<const ShownSheet> Picked(std::shared_ptr<const queries::Sheet> sheet,
                                         std::optional<ShownSheet::Order> rows,
                                         std::vector<std::size_t> columns, const std::string& title) {
    auto picked = std::make_shared<ShownSheet>(std::move(sheet), std::move(rows), std::move(columns));
    picked->SetTitle(title);
    return picked;
}

}  // namespace

std::shared_ptr<const OverviewFigures> OverviewFigures::Read(queries::Reading& books) {
    const queries::Reading::Moment moment(books);
    auto figures = std::make_shared<OverviewFigures>();
    figures->Months = queries::MonthsSheet(books);
    figures->Money = queries::CashAndBankSheet(books, queries::Every::Month);
    figures->Parties = queries::PartiesSheet(books);
    figures->Items = ItemsOf(books);
    figures->Ages = AgesOf(figures->Parties->Typed());
    return figures;
}

ChartData OverviewFigures::MoneyChart() const {
    return ByMonth<queries::MoneyRow>(*Money, ChartData::Shape::Lines,
                                      {{Words::tr("Cash"), &queries::MoneyRow::cashBalance},
                                       {Words::tr("Bank"), &queries::MoneyRow::bankBalance}});
}

ChartData OverviewFigures::TradeChart() const {
    return ByMonth<queries::MonthRow>(*Months, ChartData::Shape::Bars,
                                      {{Words::tr("Sales"), &queries::MonthRow::sales},
                                       {Words::tr("Purchases"), &queries::MonthRow::purchases}});
}

ChartData OverviewFigures::PaidChart() const {
    return ByMonth<queries::MonthRow>(*Months, ChartData::Shape::Bars,
                                      {{Words::tr("Receipts"), &queries::MonthRow::receipts},
                                       {Words::tr("Payments"), &queries::MonthRow::payments}});
}

ChartData OverviewFigures::AgesChart() const {
    ChartData data;
    data.Lines = {{Words::tr("Owed to us"), {}}, {Words::tr("We owe"), {}}};
    for (const AgeRow& row : Ages->Typed()) {
        data.Points << QString::fromStdString(row.age);
        data.PointNames << QString::fromStdString(row.age);
        data.Lines[0].Figures.push_back(row.owed);
        data.Lines[1].Figures.push_back(row.owing);
    }
    return data;
}

std::shared_ptr<const ShownSheet> OverviewFigures::Largest(std::size_t most) const {
    auto order = RowsWhere<queries::PartyRow>(*Parties, [](const auto&) { return true; });
    const auto open = [this](std::uint32_t row) { return std::abs(Parties->Typed()[row].balance); };
    std::stable_sort(order.begin(), order.end(),
                     [&](std::uint32_t a, std::uint32_t b) { return open(a) > open(b); });
    order.resize(std::min(order.size(), most));
    return Picked(Parties, std::move(order), ColumnsNamed(*Parties, {"party", "balance", "older"}),
                  Words::tr("The largest parties").toStdString());
}

std::shared_ptr<const ShownSheet> OverviewFigures::Short() const {
    auto order = RowsWhere<queries::ItemRow>(*Items, [](const auto& row) { return row.reorder; });
    return Picked(Items, std::move(order), ColumnsNamed(*Items, {"name", "net", "reorder_level"}),
                  Words::tr("Items to reorder").toStdString());
}

std::shared_ptr<const ShownSheet> OverviewFigures::Trade() const {
    return Picked(Months, {}, ColumnsNamed(*Months, {"from", "upto", "sales", "purchases"}),
                  Words::tr("Sales and purchases").toStdString());
}

std::shared_ptr<const ShownSheet> OverviewFigures::Paid() const {
    return Picked(Months, {}, ColumnsNamed(*Months, {"from", "upto", "receipts", "payments"}),
                  Words::tr("Receipts and payments").toStdString());
}

queries::PartyFilter OverviewFigures::OfAge(std::size_t point, queries::Owing owing) {
    return {owing, Words::Ages[point].OlderThan, Words::Ages[point].Upto};
}

}  // namespace desk
