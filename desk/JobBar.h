#pragma once

#include <QCoreApplication>
#include <QString>
#include <QTimer>
#include <QWidget>
#include <exception>
#include <functional>
#include <memory>

#include "desk/Desk.h"
#include "desk/Worker.h"

class QLabel;
class QProgressBar;

namespace desk {

// One job of the worker at a time: a line that tells what is being done and how far it is, with Cancel. It
// shows itself when the job lasts longer than a moment.
class JobBar : public QWidget {
    Q_DECLARE_TR_FUNCTIONS(desk::JobBar)

  public:
    explicit JobBar(QWidget* parent);
    ~JobBar() override;  // cancels: nobody waits for the job any more

    // A job that still runs is cancelled first. `end` gets what the work raised, if anything; `cancelled` is
    // called instead when the user ends the job.
    void Run(Worker& worker, const QString& what, std::function<void(queries::Reading&, Worker::Job&)> work,
             std::function<void(std::exception_ptr)> end, std::function<void()> cancelled = {});
    // A job of the background. `then` is called on the main thread; what the work or that raises is told in
    // the desk's bar, and `without` is called then, and where the user ends the job.
    void Run(Desk& desk, const QString& what, std::function<void(queries::Reading&, Worker::Job&)> work,
             std::function<void()> then, std::function<void()> without = {});
    // As above, but a job that still runs goes to its end first, and of several that wait the last is run:
    // asked anew at each change, while another program posts, none would ever come to an end.
    void RunNext(Desk& desk, const QString& what, std::function<void(queries::Reading&, Worker::Job&)> work,
                 std::function<void()> then, std::function<void()> without = {});
    void Cancel();               // what runs and what waits; neither of its ends is called
    std::function<void()> Left;  // it hides while the focus is on it: gives the focus to what is worked with
    bool Running() const { return job_ != nullptr; }  // or waits for the one before it

  private:
    void End();
    void Show();

    QLabel* text_;
    QProgressBar* bar_;
    QTimer tick_;
    std::weak_ptr<Worker> worker_;  // of the job; gone when the books are
    std::shared_ptr<Worker::Job> job_;
    std::function<void()> cancelled_, next_;
};

}  // namespace desk
