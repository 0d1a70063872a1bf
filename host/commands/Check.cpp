#include <algorithm>
#include <chrono>
#include <iostream>
#include <memory>
#include <thread>

#include "core/DBCode.h"
#include "core/modGeneral.h"
#include "host/audit/Audit.h"
#include "host/commands/CommandLine.h"
#include "host/commands/Exit.h"
#include "host/commands/ReadOnlyBooks.h"
#include "host/doors/Counted.h"
#include "platform/ado/Maintenance.h"

namespace host {
namespace {

// Others may go on posting: rows and totals are looked at as of one moment.
std::vector<Finding> FindingsOfOneMoment() {
    const ado::Snapshot moment(qm::Conn());
    return Audit::Run();
}

// A voucher that has one side because another program is just posting the other has both soon: it is looked
// at until it has, for a second.
std::vector<Finding> Findings() {
    using namespace std::chrono_literals;
    const auto isPassing = [](const Finding& finding) { return finding.passing; };
    std::vector<Finding> findings = FindingsOfOneMoment();
    const auto end = std::chrono::steady_clock::now() + 1s;
    while (std::any_of(findings.begin(), findings.end(), isPassing) &&
           std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(50ms);
        const std::vector<Finding> again = FindingsOfOneMoment();
        std::erase_if(findings, [&](const Finding& finding) {
            return finding.passing && std::find(again.begin(), again.end(), finding) == again.end();
        });
    }
    return findings;
}

int Check(const std::string& folder) {
    const ReadOnlyBooks books(folder);
    const std::vector<Finding> findings = Findings();
    for (const Finding& finding : findings)
        std::cout << (finding.severity == Severity::Error ? "error: " : "note:  ") << finding.text << "\n";
    const auto isError = [](const Finding& finding) { return finding.severity == Severity::Error; };
    const auto errors = static_cast<std::size_t>(std::count_if(findings.begin(), findings.end(), isError));
    std::cout << Counted(errors, "error") << ", " << Counted(findings.size() - errors, "note") << "\n";
    return errors == 0 ? ExitOk : ExitFailed;
}

}  // namespace

void AddCheck(CommandLine& line) {
    const auto folder = std::make_shared<std::string>();
    line.Add("check", "Audit the books and change nothing")
        .Needs("DIR", *folder, "Folder of the books")
        .Footer(
            "Errors are what should not be. Notes are what the system's own roads leave: what the next "
            "rebuild "
            "of the\n"
            "totals heals, doubled rows, vouchers of the stock screens that are not in the running totals.\n"
            "Others may go on posting: what is read is of one moment.\n"
            "Example: qmhost check books")
        .Does([folder] { return Check(*folder); });
}

}  // namespace host
