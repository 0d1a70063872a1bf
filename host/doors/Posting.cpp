#include "host/doors/Posting.h"

#include <algorithm>
#include <utility>

#include "core/DBCode.h"
#include "core/ErrorModule.h"
#include "core/modGeneral.h"
#include "host/doors/AllOrNothing.h"
#include "host/doors/QuietBoxes.h"
#include "platform/basic/Error.h"

namespace host {
namespace {

// Why the last voucher row was refused: a count that failed has no description.
std::string LastReason() {
    const std::string& reason = qm::LastError().Description;
    return reason.empty() ? "no row of the ledger or of its details could be written" : reason;
}

class Poster {
  public:
    Poster(qm::clQm& books, const VoucherFile& file, std::int16_t year, const PostingProgress& progress)
        : books_(books), file_(file), year_(std::to_string(year)), progress_(progress) {}

    // Posts until a voucher fails; its rows are still there then.
    void Run() {
        bool goOn = true;
        for (const FileVoucher& voucher : file_.vouchers) {
            written_ = 0;
            if (!goOn) return Stop(voucher.rows.front(), "voucher", "stopped before voucher " + voucher.key);
            if (!Draw(voucher)) return;
            for (const VoucherRow& row : voucher.rows) {
                if (!Insert(row))
                    return Stop(row, "voucher",
                                "voucher " + voucher.key + " could not be posted (" + LastReason() + ")");
                ++written_;
                goOn = progress_(++done_);
            }
            result_.posted.push_back({voucher.key, number_});
        }
    }

    // Deletes what was written of the voucher that failed, and says what became of it.
    void TakeBack() {
        if (!result_.failure) return;
        result_.failure->reason += "; " + (written_ == 0 ? "nothing of it was posted" : TakenBack());
    }

    PostingResult& Result() { return result_; }

  private:
    // The next number, of the year that the file was checked for: the call reads the current year again, and
    // the rows go where it has read.
    bool Draw(const FileVoucher& voucher) {
        const std::string refused = "voucher " + voucher.key + " could not be posted (";
        try {
            number_ = std::max(books_.GetNextTrnID(), voucher.wanted);
        } catch (const basic::Error& error) {
            Stop(voucher.rows.front(), "voucher", refused + error.Description + ")");
            return false;
        }
        if (qm::shared().FinYear == year_) return true;
        Stop(voucher.rows.front(), "date",
             refused + "the file was checked for " + year_ + ", and another program has made " +
                 qm::shared().FinYear + " the current year)");
        return false;
    }

    bool Insert(const VoucherRow& row) {
        return books_.InsertVoucher(number_, row.day, row.category, row.side, row.narration,
                                    row.amount.rupees, row.ledger, row.ledgerName);
    }

    void Stop(const VoucherRow& row, const std::string& column, const std::string& reason) {
        result_.failure = Fault{row.line, column, reason};
    }

    // Looks and deletes in one transaction: the deletion goes by the current year, which another program may
    // move, and by the number alone.
    std::string TakenBack() {
        const std::string of = std::to_string(written_) + " of its rows under number " +
                               std::to_string(number_) + " still stand";
        std::string stays = "its rows could not be taken back: " + of;
        try {
            const bool gone = AllOrNothing([&] {
                qm::LoadCurrentYear();
                if (qm::shared().FinYear != year_)
                    stays = "another program has moved the current year, so " + of + ": remove them by hand";
                else if (RowsUnderNumber() != static_cast<double>(written_))
                    stays = "another program wrote under its number, so " + of + ": remove them by hand";
                else
                    return books_.DeleteVoucher(number_);
                return false;
            });
            return gone ? "its rows were taken back" : stays;
        } catch (const basic::Error&) {
            return stays;
        }
    }

    double RowsUnderNumber() const {
        const auto count = qm::FetchFirstColumn("Select Sum(1) From tb_Ledger" + year_ +
                                                " Where LedgerTrnNo = " + std::to_string(number_));
        return basic::NumberOrZero(count.front());
    }

    const QuietBoxes boxes_;
    qm::clQm& books_;
    const VoucherFile& file_;
    const std::string year_;
    const PostingProgress& progress_;
    PostingResult result_;
    std::int32_t number_ = 0;
    std::size_t written_ = 0, done_ = 0;
};

}  // namespace

PostingResult PostVouchers(qm::clQm& books, const VoucherFile& file, std::int16_t year,
                           const PostingProgress& progress) {
    Poster poster(books, file, year, progress);
    poster.Run();
    poster.TakeBack();
    return std::move(poster.Result());
}

PostingResult PostAtOnce(qm::clQm& books, const VoucherFile& file, std::int16_t year,
                         const PostingProgress& progress) {
    Poster poster(books, file, year, progress);
    PostingResult& result = poster.Result();
    try {
        AllOrNothing([&] {
            poster.Run();
            return !result.failure;
        });
    } catch (const basic::Error& error) {
        if (!result.failure) result.failure = Fault{1, "voucher", error.Description};
    }
    if (result.failure) {
        result.posted.clear();
        result.failure->reason += "; nothing of the file was posted";
    }
    return std::move(result);
}

}  // namespace host
