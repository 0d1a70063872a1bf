#include "desk/BooksCheck.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <regex>
#include <utility>

namespace desk {

void BooksCheck::Run(QObject& owner, const std::function<void(std::exception_ptr)>& end) {
    if (job_) job_->Cancelled = true;
    const auto result = std::make_shared<Result>();
    job_ = worker_.Start(
        owner,
        [result](queries::Reading& books, Worker::Job& job) {
            QElapsedTimer clock;
            clock.start();
            result->Findings =
                host::Audit::RunBesideOthers(*books.Connection(), [&job] { job.Step(job.Done + 1); });
            std::stable_partition(result->Findings.begin(), result->Findings.end(), [](const auto& finding) {
                return finding.severity == host::Severity::Error;
            });
            result->Errors = static_cast<std::size_t>(
                std::count_if(result->Findings.begin(), result->Findings.end(),
                              [](const auto& finding) { return finding.severity == host::Severity::Error; }));
            result->At = QDateTime::currentDateTime();
            result->Took = clock.elapsed();
        },
        [this, result, end](std::exception_ptr failure) {
            job_.reset();
            if (!failure) last_ = result;
            end(failure);
        });
}

QString BooksCheck::CountsOf(const Result& result) {
    const auto notes = static_cast<int>(result.Findings.size() - result.Errors);
    return tr("%Ln error(s)", nullptr, static_cast<int>(result.Errors)) + ", " +
           tr("%Ln note(s)", nullptr, notes);
}

QString BooksCheck::Text() const {
    if (!last_) return Running() ? tr("Checking\u2026") : tr("Not checked yet");
    const QString found = last_->Findings.empty() ? tr("Nothing to find fault with") : CountsOf(*last_);
    return tr("%1, at %2").arg(found, last_->At.toString("HH:mm"));
}

std::unique_ptr<queries::Sheet> FindingsSheet(const BooksCheck::Result& result) {
    using host::Finding;
    using queries::Kind;
    static const std::vector<queries::Filled<Finding>> columns{
        {{"severity", "Severity", Kind::Text},
         [](const Finding& finding) -> basic::Value {
             return finding.severity == host::Severity::Error ? "Error" : "Note";
         }},
        {{"finding", "What was found", Kind::Text},
         [](const Finding& finding) -> basic::Value { return finding.text; }},
    };
    return std::make_unique<queries::SheetOf<Finding>>(
        "Check of the books, " + result.At.toString("dd-MMM-yyyy HH:mm").toStdString(), columns,
        result.Findings);
}

// A finding names its record first: "voucher 12 of 2001: ...", "bill 'B 7' of receipt 4 in 2001: ...".
FoundRecord RecordOf(const std::string& finding, const std::string& year) {
    static const std::regex ofYear("\\b(voucher|receipt) (\\d+) (?:of|in) (\\d{4})\\b"),
        ledger("^(?:details of |totals of )?ledger (\\d+)\\b"), item("\\bitem (\\d+)\\b"),
        order("\\border (\\d+)\\b"), leaf("^leaf \\d+\\b"), years("^(?:years?|voucher register)\\b");
    std::smatch found;
    if (std::regex_search(finding, found, ofYear)) {
        if (found[3] != year) return {};
        return {found[1] == "voucher" ? "frmVoucher" : "frmReceipt", found[2]};
    }
    if (std::regex_search(finding, found, ledger)) return {"Ledger_Master", found[1]};
    if (std::regex_search(finding, found, item)) return {"ItemMaster", found[1]};
    if (std::regex_search(finding, found, order)) return {"frmPO", found[1]};
    if (std::regex_search(finding, leaf)) return {"frmGrpMain", ""};
    if (std::regex_search(finding, years)) return {"frmFinYear", ""};
    return {};
}

}  // namespace desk
