#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ado/Maintenance.h"
#include "platform/ado/Recordset.h"
#include "platform/ado/RowWindow.h"
#include "platform/basic/Value.h"

namespace queries {

// The day number under which the tables keep a date (whole days since 01/01/1900), and back.
std::int32_t DayOf(basic::Date date);
basic::Date DateOf(std::int32_t day);

// Hears how many steps of all are done; may raise to stop.
using Step = std::function<void(std::size_t done, std::size_t all)>;

// A connection of its own to the books, beside the class and other programs, which may go on writing: it only
// reads, one year at a time. All calls of one Reading come from one thread, any thread.
class Reading {
  public:
    // `dataPath` as the class takes it: a plain prefix, so a folder ends in "/", or a server's URI. `year` in
    // its short form, "2001"; without one it is the current one. Raises what opening raises, and NoSuchTable
    // where the books know no such year or have none yet. `keptKb`, if any, bounds what is kept of a file in
    // memory; it should hold an index of the year where long sums are asked for again and again.
    explicit Reading(const std::string& dataPath, const std::string& year = {},
                     std::optional<int> keptKb = {});
    // Another year through the connection of one that outlives it; a Moment and Cancel are those of both.
    Reading(Reading& of, const std::string& year);
    Reading(const Reading&) = delete;
    Reading& operator=(const Reading&) = delete;

    const std::string& DataPath() const { return dataPath_; }
    const std::string& Year() const { return year_; }  // "2001"
    std::string LongYear() const;                      // "2001-2002"
    basic::Date FirstDay() const;                      // 1 April
    basic::Date LastDay() const;                       // 31 March
    std::vector<std::string> Years();  // the short forms that the books know, in their order, each once

    // Whether another program has written since this was last asked, or since the opening.
    bool ChangedByOthers() { return state_->connection->ChangedByOthers(); }
    // Gives back the memory in which pages of a file are kept.
    void ForgetPages() { ado::ForgetPages(*state_->connection); }
    // What the user should know of the opening; "" if nothing.
    std::string Notice() const { return state_->connection->Notice(); }

  private:
    struct State {
        ado::ConnectionPtr connection = std::make_shared<ado::Connection>();
        int depth = 0;  // of moments
        std::atomic<bool> cancelled{false};
    };

  public:
    // What is read while it lives is of one moment. Each query holds one for its answer; who joins several
    // answers holds one around them. Keep it short: the store cannot tidy up behind it.
    class Moment {
      public:
        explicit Moment(Reading& of);
        ~Moment() { --of_.depth; }
        Moment(const Moment&) = delete;
        Moment& operator=(const Moment&) = delete;

      private:
        State& of_;
        std::optional<ado::Snapshot> snapshot_;  // of the outermost
    };

    // From any thread: what is being asked ends with Cancelled, and so does all that is asked until GoOn.
    void Cancel();
    void GoOn() { state_->cancelled = false; }

    // For queries: the rows of a select in the books' dialect. Any other statement raises BadArgument.
    std::unique_ptr<ado::Recordset> Select(const std::string& select);
    // The same by window, for one call of it.
    ado::RowWindow Window(const std::string& select);
    // A table of the year: "tb_Ledger2001".
    std::string Table(std::string_view stem) const { return std::string(stem) + year_; }
    const ado::ConnectionPtr& Connection() const { return state_->connection; }

  private:
    void MayGoOn() const;  // raises Cancelled

    std::string dataPath_, year_;
    std::shared_ptr<State> state_;
};

}  // namespace queries
