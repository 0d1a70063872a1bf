#pragma once

#include <QElapsedTimer>
#include <QProgressDialog>
#include <cstddef>
#include <functional>

#include "platform/basic/Error.h"

namespace desk {

// What must be done on the main thread, since it goes through the class, or while no books are open: a box
// tells how far it is, and nothing else takes input. It shows itself when the work lasts longer than a
// moment.
class WaitBox {
  public:
    // What Done raises once the user has cancelled.
    struct Stopped : basic::Error {
        Stopped() : Error(basic::error::InvalidCall, "it was cancelled", "desk") {}
    };

    WaitBox(QWidget* over, const QString& what);

    // For the work: how many of its rows are done. Lets the window live meanwhile. Raises Stopped.
    void Done(std::size_t done, std::size_t all);
    bool Cancelled() const { return box_.wasCanceled(); }

    // Runs `work` on a thread of its own and returns when it has ended; it cannot be cancelled. Raises what
    // it raises.
    void RunAside(const std::function<void()>& work);

  private:
    QProgressDialog box_;
    QElapsedTimer begun_, looked_;
};

}  // namespace desk
