#include "desk/SheetQuestion.h"

#include <QLocale>
#include <optional>
#include <utility>

#include "desk/Books.h"
#include "desk/JobBar.h"

namespace desk {
namespace {

ShownSheet::Order Ordered(const queries::Sheet& sheet, SheetQuestion::Sorting sorting, Worker::Job& job) {
    job.Total = sheet.Rows();
    return OrderBy(sheet, static_cast<std::size_t>(sorting.Column), sorting.Descending,
                   [&job](std::size_t row) { job.Step(row); });
}

}  // namespace

SheetQuestion::SheetQuestion(Desk& desk, JobBar& jobs, Handlers handlers)
    : desk_(desk), jobs_(jobs), handlers_(std::move(handlers)) {}

void SheetQuestion::Set(Making make) {
    make_ = [make = std::move(make)](queries::Reading& books, Worker::Job&) { return make(books); };
    slowly_ = false;
    isChanged_ = true;
}

void SheetQuestion::SetSlow(SlowMaking make) {
    make_ = std::move(make);
    slowly_ = true;
    isChanged_ = true;
}

void SheetQuestion::SortBy(Sorting sorting) {
    sorting_ = sorting;
    isChanged_ = true;
}

void SheetQuestion::Ask() {
    if (!make_) return;
    if (std::exchange(isChanged_, false)) jobs_.Cancel();
    if (slowly_) return AskAside();
    Worker::Job job;
    if (!desk_.Try([&] { Sort(make_(desk_.Books().Reading(), job)); })) handlers_.Unanswered();
}

void SheetQuestion::AskAside() {
    struct Made {
        SheetPtr Sheet;
        std::optional<ShownSheet::Order> Order;
    };
    const auto made = std::make_shared<Made>();
    jobs_.RunNext(
        desk_, tr("Adding up\u2026"),
        [make = make_, made, sorting = sorting_](queries::Reading& books, Worker::Job& job) {
            const queries::Reading::Moment moment(books);
            made->Sheet = make(books, job);
            if (sorting.Column >= 0) made->Order = Ordered(*made->Sheet, sorting, job);
        },
        [this, made] {
            made->Sheet->ReadBy(desk_.Books().Reading());
            handlers_.Answered(std::make_shared<ShownSheet>(made->Sheet, std::move(made->Order)));
        },
        handlers_.Unanswered);
}

// A long sheet is made once more on the worker, and only the order comes back.
void SheetQuestion::Sort(SheetPtr sheet) {
    if (sorting_.Column < 0) return handlers_.Answered(std::make_shared<ShownSheet>(std::move(sheet)));
    if (sheet->Rows() <= FewRows) {
        Worker::Job job;
        ShownSheet::Order order = Ordered(*sheet, sorting_, job);
        return handlers_.Answered(std::make_shared<ShownSheet>(std::move(sheet), std::move(order)));
    }
    const auto order = std::make_shared<ShownSheet::Order>();
    jobs_.RunNext(
        desk_, tr("Sorting %1 rows\u2026").arg(QLocale().toString(qulonglong(sheet->Rows()))),
        [make = make_, order, sorting = sorting_](queries::Reading& books, Worker::Job& job) {
            const queries::Reading::Moment moment(books);
            *order = Ordered(*make(books, job), sorting, job);
        },
        [this, sheet, order] {
            if (order->size() == sheet->Rows())
                handlers_.Answered(std::make_shared<ShownSheet>(sheet, std::move(*order)));
        });
}

}  // namespace desk
