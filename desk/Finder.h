#pragma once

#include <QCoreApplication>
#include <QObject>
#include <memory>
#include <string>
#include <vector>

#include "desk/Desk.h"
#include "desk/SearchField.h"
#include "queries/Search.h"

namespace desk {

// What the search field finds: pages and screens by their names at once, and what the books hold as the
// worker finds it. Each leads where it belongs.
class Finder : public QObject {
    Q_DECLARE_TR_FUNCTIONS(desk::Finder)

  public:
    explicit Finder(Desk& desk) : desk_(desk) {}

    // For these words in place of those before. What reading raises is told in the bar.
    void Find(const QString& words, const SearchField::Take& take);

  private:
    std::vector<Found> FindPages(const QString& words);
    Found HitOf(const queries::SearchHit& hit);
    std::function<void()> Screen(const char* form, const std::string& record = {});

    Desk& desk_;
    std::shared_ptr<Worker::Job> search_;
};

}  // namespace desk
