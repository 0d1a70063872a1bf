#include "desk/WaitBox.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <exception>
#include <thread>

namespace desk {
namespace {

constexpr int Moment = 300;    // milliseconds, until it shows
constexpr int LookEvery = 40;  // milliseconds, from one look at what the user does to the next

}  // namespace

WaitBox::WaitBox(QWidget* over, const QString& what)
    : box_(what, QCoreApplication::translate("desk::WaitBox", "Cancel"), 0, 0, over) {
    box_.setObjectName("wait");
    box_.setWindowTitle(QCoreApplication::translate("desk::WaitBox", "Please wait"));
    box_.setWindowModality(Qt::ApplicationModal);
    box_.setAutoClose(false);
    box_.setAutoReset(false);
    box_.reset();  // it shows itself by its own clock else
    begun_.start();
    looked_.start();
}

void WaitBox::Done(std::size_t done, std::size_t all) {
    if (looked_.elapsed() < LookEvery) return;
    if (begun_.elapsed() >= Moment) {
        box_.setMaximum(static_cast<int>(all));
        box_.setValue(static_cast<int>(done));
        if (!box_.isVisible() && !Cancelled()) box_.show();
        QCoreApplication::processEvents();
    }
    looked_.restart();
    if (Cancelled()) throw Stopped();
}

void WaitBox::RunAside(const std::function<void()>& work) {
    box_.setCancelButton(nullptr);
    std::exception_ptr failure;
    QEventLoop loop;
    std::thread thread([&] {
        try {
            work();
        } catch (...) {
            failure = std::current_exception();
        }
        QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
    });
    box_.show();
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    thread.join();
    if (failure) std::rethrow_exception(failure);
}

}  // namespace desk
