#include "desk/BooksCheck.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <utility>

namespace desk {

void BooksCheck::Listen(QObject& owner, std::function<void()> hear) {
    listeners_.emplace_back(&owner, std::move(hear));
}

void BooksCheck::Tell() {
    std::erase_if(listeners_, [](const auto& listener) { return !listener.first; });
    for (const auto& [owner, hear] : listeners_) hear();
}

void BooksCheck::Run(QObject& owner, std::function<void(std::exception_ptr)> end) {
    if (job_) job_->Cancelled = true;
    const auto result = std::make_shared<Result>();
    job_ = worker_.Start(
        *this,
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
        [this, result, asked = QPointer<QObject>(&owner), end = std::move(end)](std::exception_ptr failure) {
            job_.reset();
            if (!failure) last_ = result;
            Tell();
            if (asked) end(failure);
        });
    Tell();
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

}  // namespace desk
