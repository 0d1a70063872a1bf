#include "desk/FileJobs.h"

#include <QVBoxLayout>
#include <utility>

#include "desk/JobBar.h"

namespace desk {

FileJobs::FileJobs(QWidget* parent, std::function<void()> left) : QWidget(parent), left_(std::move(left)) {
    setObjectName("fileJobs");
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
}

void FileJobs::Run(Worker& writer, const QString& what,
                   std::function<void(queries::Reading&, Worker::Job&)> work,
                   std::function<void(std::exception_ptr)> end) {
    std::erase_if(bars_, [](JobBar* bar) {
        if (!bar->Running()) bar->deleteLater();
        return !bar->Running();
    });
    JobBar* const bar = bars_.emplace_back(new JobBar(this));
    layout()->addWidget(bar);
    bar->Left = left_;
    bar->Run(writer, what, std::move(work), std::move(end));
}

void FileJobs::Cancel() {
    qDeleteAll(std::exchange(bars_, {}));
}

}  // namespace desk
