#pragma once

#include <QObject>
#include <QTimer>
#include <functional>
#include <memory>

#include "desk/Worker.h"
#include "platform/basic/Error.h"

namespace desk {

class Books;

// Looks every second whether anybody has written into the books, and whether they can be read at all.
class BooksWatch : public QObject {
  public:
    struct Handlers {
        std::function<void()> Changed;                      // also where they can be read again
        std::function<void(const basic::Error& why)> Lost;  // told once, not every second
        std::function<void()> Back;                         // they can be read again
    };

    BooksWatch(Books& books, Handlers handlers);

    void Start();  // once the books are open
    void Stop();
    void Look();     // a server, which may be long in answering, is asked aside
    void LookNow();  // and returns when it is known

  private:
    void Take(const std::function<bool()>& changed);

    Books& books_;
    Handlers handlers_;
    QTimer clock_;
    std::weak_ptr<Worker::Job> asked_;  // a server; gone when it has answered
    bool lost_ = false;
};

}  // namespace desk
