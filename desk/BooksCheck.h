#pragma once

#include <QCoreApplication>
#include <QDateTime>
#include <QObject>
#include <QPointer>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "desk/Worker.h"
#include "host/audit/Audit.h"

namespace desk {

// The audit of the open books, as qmhost check runs it, beside everything else; what it found last is kept.
class BooksCheck : public QObject {
    Q_DECLARE_TR_FUNCTIONS(desk::BooksCheck)

  public:
    struct Result {
        std::vector<host::Finding> Findings;  // errors first
        std::size_t Errors = 0;               // the rest are notes
        QDateTime At;
        qint64 Took = 0;  // milliseconds
    };
    using ResultPtr = std::shared_ptr<const Result>;

    BooksCheck(const std::string& dataPath, const std::string& year) : worker_(dataPath, year, KeptKb) {}

    // `end` is called on the main thread, if `owner` still lives then. An older run that still goes on is
    // left.
    void Run(QObject& owner, std::function<void(std::exception_ptr)> end);
    // Calls `hear` at each beginning and end of a run, while `owner` lives.
    void Listen(QObject& owner, std::function<void()> hear);
    bool Running() const { return job_ != nullptr; }
    QString Text() const;                                   // "1 error, 2 notes, at 10:15"
    static QString CountsOf(const Result& result);          // "1 error, 2 notes"
    const ResultPtr& Last() const { return last_; }         // null before the first
    void Keep(ResultPtr last) { last_ = std::move(last); }  // of the same books, in another year

  private:
    static constexpr int KeptKb = 16384;  // an index is gone through in the order of its table

    void Tell();

    ResultPtr last_;
    std::vector<std::pair<QPointer<QObject>, std::function<void()>>> listeners_;
    std::shared_ptr<Worker::Job> job_;
    Worker worker_;
};

}  // namespace desk
