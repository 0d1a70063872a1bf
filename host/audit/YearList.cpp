#include "host/audit/YearList.h"

#include "core/modGeneral.h"

namespace host {

std::vector<Year> ReadYears(ado::Connection& books) {
    std::vector<Year> years;
    const ado::RecordsetPtr rows = books.Execute("Select Fnncl_Yr, Crrnt_Yr_Flg From Fnncl_Yr_Mstr");
    for (; !rows->Eof(); rows->MoveNext())
        years.push_back({basic::TextOrEmpty((*rows)["Fnncl_Yr"]), basic::ToBoolean((*rows)["Crrnt_Yr_Flg"])});
    return years;
}

std::string CurrentYear() {
    for (const Year& year : ReadYears(qm::Conn()))
        if (year.current) return year.ShortForm();
    return {};
}

}  // namespace host
