#pragma once

#include <QCoreApplication>
#include <functional>
#include <memory>

#include "desk/Desk.h"
#include "desk/ShownSheet.h"
#include "desk/Worker.h"
#include "queries/Reading.h"

namespace desk {

class JobBar;

// What a view asks of the books: how its sheet is made, at once or on the worker, and in which order its
// rows are shown.
class SheetQuestion {
    Q_DECLARE_TR_FUNCTIONS(desk::SheetQuestion)

  public:
    using SheetPtr = std::shared_ptr<const queries::Sheet>;
    using Making = std::function<SheetPtr(queries::Reading&)>;
    using SlowMaking = std::function<SheetPtr(queries::Reading&, Worker::Job&)>;
    struct Handlers {
        std::function<void(std::shared_ptr<const ShownSheet>)> Answered;
        std::function<void()> Unanswered;  // the bar has told why, or the user has ended it
    };
    struct Sorting {
        int Column = -1;  // none: as the sheet has its rows
        bool Descending = false;
    };

    // What takes long shows itself in the bar of jobs.
    SheetQuestion(Desk& desk, JobBar& jobs, Handlers handlers);

    void Set(Making make);          // answered at once
    void SetSlow(SlowMaking make);  // on the worker; it tells the job how far it is
    void SortBy(Sorting sorting);
    // Nothing before the first Set. The same question again waits for the answer that is on its way; one that
    // has changed puts an end to it.
    void Ask();
    const SlowMaking& Make() const { return make_; }

  private:
    void AskAside();
    void Sort(SheetPtr sheet);

    Desk& desk_;
    JobBar& jobs_;
    Handlers handlers_;
    SlowMaking make_;
    bool slowly_ = false, isChanged_ = false;
    Sorting sorting_;
};

// Rows that are sorted and summed within a moment; more of them wait for the worker.
inline constexpr std::size_t FewRows = 20'000;

}  // namespace desk
