#include "queries/Stock.h"

#include "platform/ado/Errors.h"

namespace queries {

namespace {

template <class Ask>
auto OfStock(const Reading& books, Ask ask) {
    try {
        return ask();
    } catch (const basic::Error& error) {
        if (error.Number != ado::error::NoSuchTable) throw;
        throw basic::Error(error.Number, "The year " + books.Year() + " was made without stock tables.",
                           "queries.Stock");
    }
}

}  // namespace

std::unique_ptr<ado::Recordset> SelectStock(Reading& books, const std::string& select) {
    return OfStock(books, [&] { return books.Select(select); });
}

ado::RowWindow StockWindow(Reading& books, const std::string& select) {
    return OfStock(books, [&] { return books.Window(select); });
}

bool HasStock(Reading& books) {
    try {
        SelectStock(books, "Select * From " + books.Table("ItemMaster") + " Where 1 = 0");
        return true;
    } catch (const basic::Error& error) {
        if (error.Number != ado::error::NoSuchTable) throw;
        return false;
    }
}

std::optional<double> FigureOf(ado::Recordset& row, const char* field) {
    const basic::Value value = row[field];
    return value.IsNull() ? std::nullopt : std::optional(basic::ToDouble(value));
}

std::int32_t NumberOf(ado::Recordset& row, const char* field) {
    const basic::Value value = row[field];
    return value.IsNull() ? 0 : basic::ToLong(value);
}

std::string TextOf(ado::Recordset& row, const char* field) {
    return basic::TextOrEmpty(row[field]);
}

std::optional<basic::Date> DayOf(ado::Recordset& row, const char* field) {
    const basic::Value day = row[field];
    return day.IsNull() ? std::nullopt : std::optional(DateOf(basic::ToLong(day)));
}

bool Holds(const Range& range, const std::optional<basic::Date>& day) {
    if (!range.from && !range.upto) return true;
    return day && (!range.from || *day >= *range.from) && (!range.upto || *day <= *range.upto);
}

}  // namespace queries
