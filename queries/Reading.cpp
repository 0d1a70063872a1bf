#include "queries/Reading.h"

#include <algorithm>

#include "core/DBCode.h"
#include "platform/ado/Constants.h"
#include "platform/ado/Errors.h"
#include "platform/basic/Dates.h"
#include "platform/basic/Text.h"

namespace queries {
namespace {

constexpr const char* Source = "queries.Reading";

// "2001" of "2001-2002".
std::string ShortForm(const basic::Value& longForm) {
    return basic::Left(basic::TextOrEmpty(longForm), 4);
}

std::string CurrentYear(Reading& books) {
    const auto years = books.Select("Select Fnncl_Yr From Fnncl_Yr_Mstr Where Crrnt_Yr_Flg = True");
    return years->Eof() ? "" : ShortForm((*years)["Fnncl_Yr"]);
}

void RefuseUnlessAmong(const std::vector<std::string>& years, const std::string& year) {
    if (std::find(years.begin(), years.end(), year) == years.end())
        throw basic::Error(ado::error::NoSuchTable, "The books know no year '" + year + "'.", Source);
}

int First(const std::string& year) {
    return static_cast<int>(basic::ToLong(basic::Value(year)));
}

}  // namespace

std::int32_t DayOf(basic::Date date) {
    return basic::DaysBetween(basic::MakeDate(1900, 1, 1), date);
}

basic::Date DateOf(std::int32_t day) {
    return basic::AddDays(basic::MakeDate(1900, 1, 1), day);
}

Reading::Reading(const std::string& dataPath, const std::string& year, std::optional<int> keptKb)
    : dataPath_(dataPath), state_(std::make_shared<State>()) {
    ado::Connection& connection = *state_->connection;
    connection.Properties("Data Source") = dataPath + qm::BooksFile;
    connection.Properties("Jet OLEDB:Database Password") = qm::BooksPassword;
    connection.Properties("Mode") = "Read";
    if (keptKb) connection.Properties("Jet OLEDB:Max Buffer Size") = std::to_string(*keptKb);
    connection.Open();
    year_ = year.empty() ? CurrentYear(*this) : year;
    if (year_.empty())
        throw basic::Error(ado::error::NoSuchTable, "The books have no current year yet.", Source);
    RefuseUnlessAmong(Years(), year_);
}

Reading::Reading(Reading& of, const std::string& year)
    : dataPath_(of.dataPath_), year_(year), state_(of.state_) {
    RefuseUnlessAmong(Years(), year_);
}

std::string Reading::LongYear() const {
    return year_ + "-" + std::to_string(First(year_) + 1);
}

basic::Date Reading::FirstDay() const {
    return basic::MakeDate(First(year_), 4, 1);
}

basic::Date Reading::LastDay() const {
    return basic::MakeDate(First(year_) + 1, 3, 31);
}

std::vector<std::string> Reading::Years() {
    std::vector<std::string> years;
    for (const auto rows = Select("Select Fnncl_Yr From Fnncl_Yr_Mstr"); !rows->Eof(); rows->MoveNext()) {
        const std::string year = ShortForm((*rows)["Fnncl_Yr"]);
        if (std::find(years.begin(), years.end(), year) == years.end()) years.push_back(year);
    }
    return years;
}

void Reading::Cancel() {
    state_->cancelled = true;
    state_->connection->Cancel();
}

void Reading::MayGoOn() const {
    if (state_->cancelled) throw basic::Error(ado::error::Cancelled, "The question was cancelled.", Source);
}

std::unique_ptr<ado::Recordset> Reading::Select(const std::string& select) {
    MayGoOn();
    auto rows = std::make_unique<ado::Recordset>();
    rows->Open(select, state_->connection, ado::adOpenForwardOnly, ado::adLockReadOnly, ado::adCmdText);
    return rows;
}

ado::RowWindow Reading::Window(const std::string& select) {
    MayGoOn();
    return {state_->connection, select};
}

Reading::Moment::Moment(Reading& of) : of_(*of.state_) {
    if (of_.depth == 0) snapshot_.emplace(*of_.connection);
    ++of_.depth;
}

}  // namespace queries
