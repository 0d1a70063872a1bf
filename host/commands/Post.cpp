#include <atomic>
#include <csignal>
#include <iostream>
#include <memory>
#include <utility>

#include "host/audit/YearList.h"
#include "host/commands/CommandLine.h"
#include "host/commands/Exit.h"
#include "host/commands/FileCommand.h"
#include "host/commands/OpenBooks.h"
#include "host/doors/Counted.h"
#include "host/doors/Posting.h"

namespace host {
namespace {

struct PostOptions {
    std::string folder, file, year;
    bool dryRun = false, again = false, fast = false, monthFirst = false;
};

// Ctrl-C, or a request to end, lets the voucher in hand be finished, so that what stands can be told.
class StopSignals {
  public:
    StopSignals() {
        for (const int signal : {SIGINT, SIGTERM}) std::signal(signal, [](int) { wanted = true; });
    }
    ~StopSignals() {
        for (const int signal : {SIGINT, SIGTERM}) std::signal(signal, SIG_DFL);
    }
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;
    static bool Wanted() { return wanted; }

  private:
    static inline std::atomic<bool> wanted{false};
};

void TellPosted(const PostingResult& result, const std::string& size) {
    if (!result.failure) {
        std::vector<int> numbers;
        for (const PostedVoucher& voucher : result.posted) numbers.push_back(voucher.number);
        std::cout << "posted " << size << (numbers.empty() ? "" : ": ") << Ranges(numbers) << "\n";
        return;
    }
    for (const PostedVoucher& voucher : result.posted)
        std::cout << "voucher " << voucher.key << " stands as number " << voucher.number << "\n";
    std::cout << std::flush;
}

VoucherFile Checked(const PostOptions& options, qm::clQm& books, std::int16_t year) {
    ProgressBar bar("checking");
    return ReadVoucherFile(options.file, books, year,
                           options.monthFirst ? DateOrder::MonthFirst : DateOrder::DayFirst,
                           [&](std::size_t done, std::size_t all) { bar.Done(done, all); });
}

PostingResult Posted(const PostOptions& options, qm::clQm& books, const VoucherFile& file,
                     std::int16_t year) {
    const StopSignals signals;
    ProgressBar bar("posting");
    const std::size_t all = file.RowCount();
    return (options.fast ? PostAtOnce : PostVouchers)(books, file, year, [&](std::size_t done) {
        bar.Done(done, all);
        return !StopSignals::Wanted();
    });
}

int Post(const PostOptions& options) {
    OpenBooks books(options.folder);
    const std::int16_t year = YearToWriteInto(options.year);
    const VoucherFile file = Checked(options, books.Host(), year);
    if (!file.faults.empty()) return TellFaults(options.file, file.faults, "posted");
    if (!options.again && !MayStandTwice(StandingOf(file, year))) return ExitFailed;
    const std::string size =
        Counted(file.vouchers.size(), "voucher") + ", " + Counted(file.RowCount(), "row");
    if (options.dryRun) {
        books.Close();
        std::cout << options.file << ": " << size << ", no fault; nothing was posted\n";
        return ExitOk;
    }
    const PostingResult result = Posted(options, books.Host(), file, year);
    if (!result.failure) books.Close();
    TellPosted(result, size);
    if (!result.failure) return ExitOk;
    TellFault(options.file, *result.failure);
    std::cerr << "qmhost: " << result.posted.size() << " of " << file.vouchers.size()
              << " vouchers were posted\n";
    return ExitFailed;
}

}  // namespace

void AddPost(CommandLine& line) {
    const auto options = std::make_shared<PostOptions>();
    line.Add("post", "Post a file of vouchers into the current year")
        .Needs("DIR", options->folder, "Folder of the books")
        .Needs("FILE", options->file,
               "UTF-8, comma-separated: voucher,date,type,side,ledger,amount,narration")
        .Takes("--year", options->year, "Post only if this is the current year (2001)")
        .Takes("--dry-run", options->dryRun, "Check the file and stop before posting")
        .Takes("--again", options->again, "Post although all its vouchers stand in the books already")
        .Takes("--fast", options->fast, "Post the whole file in one transaction: all of it or nothing")
        .Takes("--month-first", options->monthFirst,
               "Read all dates in figures as month/day/year instead of day/month/year")
        .Footer(
            "The whole file is checked first; with a fault in it nothing is posted. Then each row is on the "
            "disk\n"
            "before the next is written, which takes the disk's time for each (several milliseconds). A "
            "voucher\n"
            "whose row fails is taken back, and the run stops there. With --fast the disk is waited for "
            "once, "
            "and\n"
            "nobody else can write until the file is posted.\n"
            "Example: qmhost post books april.csv --dry-run")
        .Does([options] { return Post(*options); });
}

}  // namespace host
