// The file and its years.
#include <algorithm>

#include "core/modGeneral.h"
#include "host/audit/Audit.h"
#include "host/commands/YearList.h"
#include "platform/ado/Maintenance.h"

namespace host {

void AuditFile(Audit& audit) {
    for (const std::string& fault : ado::CheckIntegrity(qm::Conn())) audit.Error("file: " + fault);
}

void AuditYears(Audit& audit) {
    std::vector<std::string> known;
    int flags = 0;
    const std::vector<Year> years = ReadYears();
    for (const Year& year : years) {
        flags += year.current ? 1 : 0;
        if (std::find(known.begin(), known.end(), year.ShortForm()) != known.end())
            audit.Note("year " + year.longForm + ": stands twice in the register");
        else
            known.push_back(year.ShortForm());
    }
    if (years.empty()) audit.Note("years: none yet; the first start makes 2001-2002");
    if (!years.empty() && flags == 0) audit.Error("years: none is flagged as current");
    if (flags > 1) audit.Error("years: " + std::to_string(flags) + " are flagged as current");
    for (const std::string& year : known) {
        if (!audit.HasTable("tb_Ledger" + year))
            audit.Error("year " + year + ": the table tb_Ledger" + year + " is missing");
        for (const char* stem : {"tblItemLed", "tblPO", "tblPODet", "tblBills", "ItemMaster"})
            if (!audit.HasTable(stem + year))
                audit.Note("year " + year + ": has no table " + stem + year +
                           "; its stock screens will not work");
    }
    audit.SetYears(std::move(known));
}

}  // namespace host
