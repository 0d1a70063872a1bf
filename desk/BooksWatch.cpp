#include "desk/BooksWatch.h"

#include <exception>
#include <utility>

#include "desk/Books.h"

namespace desk {
namespace {

constexpr int LookEvery = 1000;  // milliseconds

}  // namespace

BooksWatch::BooksWatch(Books& books, Handlers handlers) : books_(books), handlers_(std::move(handlers)) {
    clock_.setInterval(LookEvery);
    connect(&clock_, &QTimer::timeout, this, [this] { Look(); });
}

void BooksWatch::Start() {
    clock_.start();
}

void BooksWatch::Stop() {
    clock_.stop();
    lost_ = false;
}

void BooksWatch::Look() {
    if (!books_.OnServer()) return LookNow();
    if (!asked_.expired()) return;
    asked_ = books_.Watcher().Start(
        *this, [](queries::Reading& books, Worker::Job&) { books.ChangedByOthers(); },
        [this](std::exception_ptr failure) {
            Take([&] {
                if (failure) std::rethrow_exception(failure);
                return books_.Changed();
            });
        });
}

void BooksWatch::LookNow() {
    Take([this] {
        books_.RequireFile();
        return books_.Changed();
    });
}

void BooksWatch::Take(const std::function<bool()>& changed) {
    try {
        const bool changedNow = changed();
        const bool isBack = std::exchange(lost_, false);
        if (isBack) handlers_.Back();
        if (changedNow || isBack) handlers_.Changed();
    } catch (const basic::Error& error) {
        if (!std::exchange(lost_, true)) handlers_.Lost(error);
    }
}

}  // namespace desk
