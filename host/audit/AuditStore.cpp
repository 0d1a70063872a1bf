// The file: its pages, and bytes that are no text.
#include "core/modGeneral.h"
#include "host/audit/Audit.h"
#include "host/audit/YearList.h"
#include "platform/ado/Maintenance.h"

namespace host {

void AuditFile(Audit& audit) {
    for (const std::string& fault : ado::CheckIntegrity(audit.Books())) audit.Error("file: " + fault);
    if (audit.HasErrors()) return;
    for (const ado::BadText& bad : ado::FindBadTexts(audit.Books()))
        audit.Error(bad.table + ", row " + std::to_string(bad.row) + ": " + bad.column + " '" + bad.text +
                    "' holds bytes that are no UTF-8");
}

}  // namespace host
