#include <algorithm>
#include <iostream>

#include "core/modGeneral.h"
#include "host/audit/Audit.h"
#include "host/commands/CommandLine.h"
#include "host/commands/Exit.h"
#include "host/commands/ReadOnlyBooks.h"
#include "host/doors/Counted.h"

namespace host {
namespace {

int Check(const std::string& folder) {
    const ReadOnlyBooks books(folder);
    const std::vector<Finding> findings = Audit::RunBesideOthers(qm::Conn());
    for (const Finding& finding : findings)
        std::cout << (finding.severity == Severity::Error ? "error: " : "note:  ") << finding.text << "\n";
    const auto isError = [](const Finding& finding) { return finding.severity == Severity::Error; };
    const auto errors = static_cast<std::size_t>(std::count_if(findings.begin(), findings.end(), isError));
    std::cout << Counted(errors, "error") << ", " << Counted(findings.size() - errors, "note") << "\n";
    return errors == 0 ? ExitOk : ExitFailed;
}

}  // namespace

void AddCheck(CommandLine& line) {
    line.Add("check", "Audit the books and change nothing")
        .Footer(
            "Errors are what should not be. Notes are what the system's own roads leave: what the next "
            "rebuild "
            "of the\n"
            "totals heals, doubled rows, vouchers of the stock screens that are not in the running totals.\n"
            "Others may go on posting: what is read is of one moment.\n"
            "Example: qmhost check books")
        .Does("DIR", "Folder of the books", Check);
}

}  // namespace host
