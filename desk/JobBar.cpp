#include "desk/JobBar.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <utility>

#include "desk/Books.h"

namespace desk {
namespace {

constexpr int Moment = 300;  // milliseconds, until it shows and from one look to the next

}  // namespace

JobBar::JobBar(QWidget* parent) : QWidget(parent) {
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(8, 4, 0, 4);
    text_ = new QLabel(this);
    text_->setTextFormat(Qt::PlainText);
    bar_ = new QProgressBar(this);
    bar_->setTextVisible(false);
    bar_->setMaximumWidth(240);
    auto* const cancel = new QPushButton(tr("Cancel"), this);
    cancel->setObjectName("cancelJob");
    connect(cancel, &QPushButton::clicked, this, [this] {
        const auto cancelled = std::exchange(cancelled_, nullptr);
        Cancel();
        if (cancelled) cancelled();
    });
    row->addWidget(text_, 1);
    row->addWidget(bar_, 1);
    row->addWidget(cancel);
    hide();
    tick_.setInterval(Moment);
    connect(&tick_, &QTimer::timeout, this, [this] { Show(); });
}

JobBar::~JobBar() {
    Left = nullptr;
    Cancel();
}

void JobBar::Run(Worker& worker, const QString& what,
                 std::function<void(queries::Reading&, Worker::Job&)> work,
                 std::function<void(std::exception_ptr)> end, std::function<void()> cancelled) {
    Cancel();
    cancelled_ = std::move(cancelled);
    text_->setText(what);
    bar_->setAccessibleName(what);
    bar_->setRange(0, 0);
    worker_ = worker.weak_from_this();
    job_ = worker.Start(*this, std::move(work), [this, end = std::move(end)](std::exception_ptr failure) {
        const QPointer<JobBar> here(this);
        const auto next = std::exchange(next_, nullptr);
        End();
        end(failure);
        if (!here || !next) return;
        if (!job_) return next();
        if (!next_) next_ = next;  // the end has begun a job of its own
    });
    tick_.start();
}

void JobBar::Run(Desk& desk, const QString& what, std::function<void(queries::Reading&, Worker::Job&)> work,
                 std::function<void()> then, std::function<void()> without) {
    const auto end = [&desk, then = std::move(then), without](std::exception_ptr failure) {
        const bool went = desk.Try([&] {
            if (failure) std::rethrow_exception(failure);
            then();
        });
        if (!went && without) without();
    };
    Run(desk.Books().Background(), what, std::move(work), end, without);
}

void JobBar::RunNext(Desk& desk, const QString& what,
                     std::function<void(queries::Reading&, Worker::Job&)> work, std::function<void()> then,
                     std::function<void()> without) {
    const auto run = [=, this, &desk] { Run(desk, what, work, then, without); };
    Running() && !worker_.expired() ? void(next_ = run) : run();
}

void JobBar::Cancel() {
    next_ = nullptr;
    if (const auto worker = worker_.lock()) worker->Cancel(job_);
    End();
}

void JobBar::End() {
    job_.reset();
    tick_.stop();
    const bool hadFocus = isAncestorOf(QApplication::focusWidget());
    hide();
    if (hadFocus && Left) Left();
}

void JobBar::Show() {
    if (!job_) return;
    if (const std::size_t total = job_->Total; total > 0) {
        bar_->setRange(0, 1000);
        bar_->setValue(
            static_cast<int>(1000.0 * static_cast<double>(job_->Done) / static_cast<double>(total)));
    }
    show();
}

}  // namespace desk
