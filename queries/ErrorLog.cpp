#include "queries/ErrorLog.h"

#include "platform/basic/Dates.h"
#include "queries/Stock.h"
#include "queries/Words.h"

namespace queries {
namespace {

LoggedError Row(ado::Recordset& rows) {
    LoggedError row;
    if (const std::string date = TextOf(rows, "ErrDate"); basic::IsDate(date))
        row.date = basic::DatePart(basic::ReadDate(date));
    row.time = TextOf(rows, "ErrTime");
    row.form = TextOf(rows, "frmName");
    row.number = NumberOf(rows, "ErrNumber");
    row.description = TextOf(rows, "ErrDesc");
    row.source = TextOf(rows, "ErrSource");
    return row;
}

const std::vector<Filled<LoggedError>>& Columns() {
    using Row = const LoggedError&;
    static const std::vector<Filled<LoggedError>> columns{
        {{"date", "Date", Kind::Date}, [](Row row) { return ValueOf(row.date); }},
        {{"time", "Time", Kind::Text}, [](Row row) -> basic::Value { return row.time; }},
        {{"form", "Form", Kind::Text}, [](Row row) -> basic::Value { return row.form; }},
        {{"number", "Number", Kind::Number}, [](Row row) -> basic::Value { return row.number; }},
        {{"description", "Description", Kind::Text}, [](Row row) -> basic::Value { return row.description; }},
        {{"source", "Source", Kind::Text}, [](Row row) -> basic::Value { return row.source; }},
    };
    return columns;
}

}  // namespace

std::vector<LoggedError> ErrorLog(Reading& books, const Range& days, const std::string& words) {
    const Words wanted(words);
    std::vector<LoggedError> kept;
    for (const auto rows = books.Select("Select * From tblError"); !rows->Eof(); rows->MoveNext())
        if (LoggedError row = Row(*rows);
            Holds(days, row.date) && wanted.In({row.form, row.description, row.source}))
            kept.push_back(std::move(row));
    return kept;
}

std::unique_ptr<SheetOf<LoggedError>> ErrorLogSheet(Reading& books, const Range& days,
                                                    const std::string& words) {
    return std::make_unique<SheetOf<LoggedError>>("Error log", Columns(), ErrorLog(books, days, words));
}

}  // namespace queries
