#include "host/audit/Audit.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <set>
#include <string>
#include <thread>

#include "core/Masks.h"
#include "core/modGeneral.h"
#include "platform/ado/EachRow.h"
#include "platform/ado/Errors.h"
#include "platform/ado/Maintenance.h"
#include "platform/basic/Dates.h"
#include "platform/basic/Decimal.h"
#include "platform/basic/Error.h"
#include "platform/basic/Format.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"

namespace host {

std::vector<Finding> Audit::Run() {
    return Run(qm::Conn(), {});
}

std::vector<Finding> Audit::Run(ado::Connection& books, const Step& step) {
    Audit audit(books, step);
    for (const auto check : {AuditFile, AuditYears, AuditLedgers, AuditVouchers, AuditStock, AuditBills})
        check(audit);
    return std::move(audit.findings_);
}

std::vector<Finding> Audit::RunBesideOthers(ado::Connection& books, const Step& step) {
    using namespace std::chrono_literals;
    const auto ofOneMoment = [&] {
        const ado::Snapshot moment(books);
        return Run(books, step);
    };
    const auto isPassing = [](const Finding& finding) { return finding.passing; };
    std::vector<Finding> findings = ofOneMoment();
    const auto end = std::chrono::steady_clock::now() + 1s;
    while (std::any_of(findings.begin(), findings.end(), isPassing) &&
           std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(50ms);
        std::set<std::string> again;  // there may be many
        for (Finding& finding : ofOneMoment())
            if (finding.passing) again.insert(std::move(finding.text));
        std::erase_if(findings, [&](const Finding& finding) {
            return finding.passing && !again.contains(finding.text);
        });
    }
    return findings;
}

bool Audit::HasErrors() const {
    return std::any_of(findings_.begin(), findings_.end(),
                       [](const Finding& finding) { return finding.severity == Severity::Error; });
}

void Audit::Each(const std::string& sql, const std::function<void(ado::Recordset&)>& row) {
    try {
        ado::EachRow(books_, sql, [&](ado::Recordset& each) {
            if (step_) step_();
            row(each);
        });
    } catch (const basic::Error& error) {
        if (error.Number != ado::error::NoSuchTable) throw;
    }
}

bool Audit::HasTable(const std::string& table) {
    try {
        books_.Execute("Select * From " + table + " Where 1 = 0")->Close();
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

Subject MovementOf(ado::Recordset& row, const std::string& year) {
    using Kind = Subject::Kind;
    const std::string type = basic::FoldCase(basic::TextOrEmpty(row["ItemLedTrnType"]));
    const std::int32_t number = IdOf(row, "ItemLedTrnNo"), order = IdOf(row, "ItemLedPONo");
    if (number > 0 && type == "issue") return {Kind::Issue, number, year};
    if (number == 0 || type != "receipt") return {Kind::Movements, 0, year};
    return order > 0 ? Subject{Kind::Order, order, year} : Subject{Kind::Receipt, number, year};
}

std::string DayOutside(const basic::Value& dayNumber, const std::string& year) {
    if (dayNumber.IsNull() || !basic::IsNumeric(year)) return {};
    const double zero = basic::MakeDate(1900, 1, 1).Serial;
    const basic::Date day{zero + basic::ToLong(dayNumber)};
    if (!basic::IsDateSerial(day.Serial)) return "day " + basic::ToText(dayNumber);
    const auto [y, month, d] = basic::Parts(day);
    const int begins = month < 4 ? y - 1 : y;
    return std::to_string(begins) == year ? "" : basic::Format(day, qm::DateMask);
}

std::string AmountFault(double amount) {
    if (!(std::abs(amount) < 1e15)) return "is too large to bear paise";
    if (std::nearbyint(amount * 100) / 100 == amount) return {};
    const basic::Decimal decimal = basic::Decimal::Of(amount);
    if (static_cast<int>(decimal.digits.size()) - decimal.point <= 2) return {};
    const bool residue = std::abs(amount - std::nearbyint(amount * 100) / 100) < 1e-6;
    return residue ? "bears a residue of floating-point sums" : "has more than two decimals";
}

std::string Digits(double amount) {
    return std::isfinite(amount) ? basic::NumberText(amount) : "beyond all digits";
}

std::string Rupees(double amount) {
    return std::isfinite(amount) ? basic::NumberText(basic::Round(amount, 2)) : Digits(amount);
}

bool Differ(double a, double b) {
    return std::abs(a - b) >= 0.005;
}

}  // namespace host
