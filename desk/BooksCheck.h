#pragma once

#include <QCoreApplication>
#include <QDateTime>
#include <QObject>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "desk/Worker.h"
#include "host/audit/Audit.h"
#include "queries/Sheet.h"

namespace desk {

// The audit of the open books, as qmhost check runs it, beside everything else; what it found last is kept.
class BooksCheck {
    Q_DECLARE_TR_FUNCTIONS(desk::BooksCheck)

  public:
    struct Result {
        std::vector<host::Finding> Findings;
        std::size_t Errors = 0;  // the rest are notes
        QDateTime At;
        qint64 Took = 0;  // milliseconds
    };
    using ResultPtr = std::shared_ptr<const Result>;

    BooksCheck(const std::string& dataPath, const std::string& year) : worker_(dataPath, year, KeptKb) {}

    // `end` is called on the main thread, while `owner` lives. An older run that still goes on is left.
    void Run(QObject& owner, const std::function<void(std::exception_ptr)>& end);
    bool Running() const { return job_ != nullptr; }
    QString Text() const;                            // "1 error, 2 notes, at 10:15"
    static QString CountsOf(const Result& result);   // "1 error, 2 notes"
    const ResultPtr& Last() const { return last_; }  // null before the first

  private:
    static constexpr int KeptKb = 16384;  // an index is gone through in the order of its table

    ResultPtr last_;
    std::shared_ptr<Worker::Job> job_;
    Worker worker_;
};

// Errors first.
std::unique_ptr<queries::Sheet> FindingsSheet(const BooksCheck::Result& result);

// The screen that shows what a finding names, and the record there; no form where there is none in the year.
struct FoundRecord {
    std::string Form, Record;
    bool operator==(const FoundRecord&) const = default;
};
FoundRecord RecordOf(const std::string& finding, const std::string& year);

}  // namespace desk
