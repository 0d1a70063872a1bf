#include "host/commands/Posting.h"

#include <utility>

#include "core/MsgBox.h"

namespace host {
namespace {

// Keeps what the error log's boxes say while vouchers are posted, and shows none.
class QuietBoxes {
  public:
    QuietBoxes() {
        before_ = qm::SetMsgBoxPort([this](const std::string& text, int, const std::string&) {
            said_ = text;
            return qm::vbOK;
        });
    }
    ~QuietBoxes() { qm::SetMsgBoxPort(std::move(before_)); }
    QuietBoxes(const QuietBoxes&) = delete;
    QuietBoxes& operator=(const QuietBoxes&) = delete;

    // The description out of the last box: between " Description : " and the line end.
    std::string LastReason() const {
        static const std::string mark = " Description : ";
        const std::size_t from = said_.find(mark);
        if (from == std::string::npos) return said_;
        const std::size_t begin = from + mark.size();
        const std::string reason = said_.substr(begin, said_.find('\r', begin) - begin);
        return reason.empty() ? "no row of the ledger or of its details could be written" : reason;
    }

  private:
    std::string said_;
    qm::MsgBoxPort before_;
};

// How many rows bear the number. No member of the class counts them, but the condition of a ledger list may
// ask.
bool ExactlyRows(qm::clQm& books, std::int16_t year, std::int32_t number, std::size_t count) {
    const ado::RecordsetPtr rows =
        books.Ledgers("(Select Sum(1) From tb_Ledger" + std::to_string(year) +
                      " Where LedgerTrnNo = " + std::to_string(number) + ") = " + std::to_string(count));
    const bool exactly = !rows->Eof();
    rows->Close();
    return exactly;
}

std::string TakeBack(qm::clQm& books, std::int16_t year, std::int32_t number, std::size_t written) {
    if (written == 0) return "nothing of it was posted";
    const std::string of = std::to_string(written) + " of its rows under number " + std::to_string(number);
    if (!ExactlyRows(books, year, number, written))
        return "another program wrote under its number, so " + of + " still stand: remove them by hand";
    if (!books.DeleteVoucher(number)) return "its rows could not be taken back: " + of + " still stand";
    return "its rows were taken back";
}

}  // namespace

PostingResult PostVouchers(qm::clQm& books, const VoucherFile& file, std::int16_t year,
                           const std::function<void(std::size_t)>& progress) {
    PostingResult result;
    const QuietBoxes boxes;
    std::size_t done = 0;
    for (const FileVoucher& voucher : file.vouchers) {
        const std::int32_t number = books.GetNextTrnID();
        std::size_t written = 0;
        for (const VoucherRow& row : voucher.rows) {
            if (!books.InsertVoucher(number, row.day, row.category, row.side, row.narration, row.amount,
                                     row.ledger, row.ledgerName)) {
                const std::string reason = boxes.LastReason();
                result.failure = "line " + std::to_string(row.line) + ": voucher " + voucher.key +
                                 " could not be posted (" + reason + "); " +
                                 TakeBack(books, year, number, written);
                return result;
            }
            ++written;
            progress(++done);
        }
        result.posted.push_back({voucher.key, number});
    }
    return result;
}

}  // namespace host
