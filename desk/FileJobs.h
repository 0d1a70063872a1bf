#pragma once

#include <QWidget>
#include <exception>
#include <functional>
#include <vector>

#include "desk/Worker.h"

namespace desk {

class JobBar;

// The files that are being written: a line for each, at the window's foot.
class FileJobs : public QWidget {
  public:
    FileJobs(QWidget* parent, std::function<void()> left);

    // Begins one, beside those that run. `end` gets what the work raised, if anything; it is not called for
    // a job that the user ends.
    void Run(Worker& writer, const QString& what, std::function<void(queries::Reading&, Worker::Job&)> work,
             std::function<void(std::exception_ptr)> end);
    void Cancel();  // all of them

  private:
    std::function<void()> left_;  // the focus goes back to what is worked with
    std::vector<JobBar*> bars_;
};

}  // namespace desk
