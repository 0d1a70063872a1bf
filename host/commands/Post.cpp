#include <iostream>
#include <memory>

#include <CLI/CLI.hpp>
#include <unistd.h>

#include "core/modGeneral.h"
#include "host/commands/Command.h"
#include "host/commands/Counted.h"
#include "host/commands/Exit.h"
#include "host/commands/OpenBooks.h"
#include "host/commands/Posting.h"
#include "host/commands/YearList.h"

namespace host {
namespace {

struct PostOptions {
    std::string folder, file, year;
    bool dryRun = false;
};

// A bar on the terminal, redrawn when a percent is done; nothing where the errors go to a file.
class ProgressBar {
  public:
    explicit ProgressBar(std::size_t total)
        : total_(total), shown_(isatty(STDERR_FILENO) != 0 && total > 0) {}
    ~ProgressBar() {
        if (shown_) std::cerr << "\r\x1b[K" << std::flush;
    }
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    void Done(std::size_t rows) {
        const std::size_t percent = shown_ ? rows * 100 / total_ : 0;
        if (percent == percent_) return;
        percent_ = percent;
        std::cerr << "\r[" << std::string(percent / 4, '#') << std::string(25 - percent / 4, ' ') << "] "
                  << percent << " %" << std::flush;
    }

  private:
    std::size_t total_, percent_ = 0;
    bool shown_;
};

int TellFaults(const std::string& file, const VoucherFile& vouchers) {
    for (const Fault& fault : vouchers.faults)
        std::cerr << file << ":" << fault.line << ": "
                  << (fault.column.empty() ? "" : "column " + fault.column + ": ") << fault.reason << "\n";
    std::cerr << "qmhost: " << Counted(vouchers.faults.size(), "fault") << "; nothing was posted\n";
    return ExitFailed;
}

void TellPosted(const PostingResult& result) {
    for (const PostedVoucher& voucher : result.posted)
        std::cout << "voucher " << voucher.key << " stands as number " << voucher.number << "\n";
}

int Post(const PostOptions& options) {
    OpenBooks books(options.folder);
    const YearSwitch inYear(books.Host(), options.year);
    const auto year = basic::ToInteger(basic::Value(qm::shared().FinYear));
    const VoucherFile vouchers = ReadVoucherFile(options.file, books.Host(), year);
    if (!vouchers.faults.empty()) return TellFaults(options.file, vouchers);
    const std::string size =
        Counted(vouchers.vouchers.size(), "voucher") + ", " + Counted(vouchers.RowCount(), "row");
    if (options.dryRun) {
        std::cout << options.file << ": " << size << ", no fault; nothing was posted\n";
        return ExitOk;
    }
    ProgressBar bar(vouchers.RowCount());
    const PostingResult result =
        PostVouchers(books.Host(), vouchers, year, [&](std::size_t rows) { bar.Done(rows); });
    if (result.failure.empty()) {
        std::cout << "posted " << size << "\n";
        return ExitOk;
    }
    TellPosted(result);
    std::cerr << options.file << ": " << result.failure << "\n"
              << "qmhost: " << result.posted.size() << " of " << vouchers.vouchers.size()
              << " vouchers were posted\n";
    return ExitFailed;
}

}  // namespace

void AddPost(CLI::App& app, Command& chosen) {
    const auto options = std::make_shared<PostOptions>();
    auto* command = app.add_subcommand("post", "Post a file of vouchers");
    command->add_option("DIR", options->folder, "Folder of the books")->required();
    command
        ->add_option("FILE", options->file, "Comma-separated: voucher,date,type,side,ledger,amount,narration")
        ->required();
    command->add_option("--year", options->year, "Post into this year (2001) instead of the current one");
    command->add_flag("--dry-run", options->dryRun, "Check the file and stop before posting");
    command->footer(
        "The whole file is checked first; with a fault in it nothing is posted. A voucher whose row fails is "
        "taken\n"
        "back, and the run stops there.\n"
        "Example: qmhost post books april.csv --dry-run");
    command->callback([options, &chosen] { chosen = [options] { return Post(*options); }; });
}

}  // namespace host
