#include "host/commands/YearList.h"

#include "core/ErrorModule.h"
#include "core/modGeneral.h"
#include "platform/basic/Error.h"

namespace host {

std::vector<Year> ReadYears() {
    std::vector<Year> years;
    const ado::RecordsetPtr rows = qm::Conn().Execute("Select Fnncl_Yr, Crrnt_Yr_Flg From Fnncl_Yr_Mstr");
    for (; !rows->Eof(); rows->MoveNext())
        years.push_back({basic::TextOrEmpty((*rows)["Fnncl_Yr"]), basic::ToBoolean((*rows)["Crrnt_Yr_Flg"])});
    return years;
}

std::string CurrentYear() {
    for (const Year& year : ReadYears())
        if (year.current) return year.ShortForm();
    return {};
}

YearSwitch::YearSwitch(qm::clQm& books, const std::string& shortForm)
    : books_(books), before_(CurrentYear()) {
    if (shortForm.empty() || shortForm == before_) return;
    if (books_.SetGetFinancialYear(shortForm) != shortForm)
        throw basic::Error(basic::error::InvalidCall, "The books know no year '" + shortForm + "'", "host");
    moved_ = true;
    books_.StartDataConn();
}

YearSwitch::~YearSwitch() {
    if (!moved_) return;
    qm::SkipOnError([this] {
        books_.SetGetFinancialYear(before_);
        books_.StartDataConn();
    });
}

}  // namespace host
