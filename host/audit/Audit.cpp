#include "host/audit/Audit.h"

#include <cmath>

#include "core/modGeneral.h"
#include "platform/ado/Errors.h"
#include "platform/basic/Error.h"
#include "platform/basic/Number.h"

namespace host {

std::vector<Finding> Audit::Run() {
    Audit audit;
    for (const auto check : {AuditFile, AuditYears, AuditLedgers, AuditVouchers, AuditStock}) check(audit);
    return std::move(audit.findings_);
}

void Audit::Each(const std::string& sql, const std::function<void(ado::Recordset&)>& row) {
    try {
        const ado::RecordsetPtr rows = qm::Conn().Execute(sql);
        for (; !rows->Eof(); rows->MoveNext()) row(*rows);
        rows->Close();
    } catch (const basic::Error& error) {
        if (error.Number != ado::error::NoSuchTable) throw;
    }
}

bool Audit::HasTable(const std::string& table) {
    try {
        qm::Conn().Execute("Select * From " + table + " Where 1 = 0")->Close();
        return true;
    } catch (const basic::Error& error) {
        if (error.Number != ado::error::NoSuchTable) throw;
        return false;
    }
}

std::int32_t IdOf(ado::Recordset& row, std::string_view field) {
    const basic::Value id = row[field];
    return id.IsNull() ? 0 : basic::ToLong(id);
}

std::string Rupees(double amount) {
    return basic::NumberText(basic::Round(amount, 2));
}

bool Differ(double a, double b) {
    return std::abs(a - b) >= 0.005;
}

}  // namespace host
