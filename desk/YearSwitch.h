#pragma once

#include <QCoreApplication>
#include <functional>
#include <string>

namespace desk {

class Books;
class NoticeBar;

// Asks in the bar before the desk goes to another year: what follows stands there, and nothing changes until
// it is answered.
class YearSwitch {
    Q_DECLARE_TR_FUNCTIONS(desk::YearSwitch)

  public:
    // The user takes the year; `then`, if anything, is to be done in it.
    using Take = std::function<void(const std::string& shortForm, const std::function<void()>& then)>;

    YearSwitch(Books& books, NoticeBar& notice, Take take);

    // Whether to make it the current one, and to do `then` in it; not for the one in force.
    void Ask(const std::string& shortForm, const std::function<void()>& then = {});
    // Where the flag of the current year was moved by another program: once for each year.
    void TellOther();
    void Forget();  // what has been told: these are other books, or they are in another year

  private:
    Books& books_;
    NoticeBar& notice_;
    Take take_;
    std::string told_;  // another year that the bar has told of
};

}  // namespace desk
