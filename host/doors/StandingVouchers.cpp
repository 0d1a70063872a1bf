#include "host/doors/StandingVouchers.h"

#include <algorithm>
#include <limits>
#include <map>
#include <string>

#include "core/DBCode.h"
#include "core/LedgerSide.h"
#include "host/doors/Counted.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"

namespace host {
namespace {

// A voucher's rows as texts, in no order of their own: alike for vouchers that are alike.
class Likeness {
  public:
    void Add(std::int32_t day, const std::string& type, std::int32_t ledger, double debit, double credit) {
        rows_.push_back(std::to_string(day) + type + std::to_string(ledger) + "D" + basic::NumberText(debit) +
                        "C" + basic::NumberText(credit));
    }
    std::string Text() {
        std::sort(rows_.begin(), rows_.end());
        std::string all;
        for (const std::string& row : rows_) all += row + "\n";
        rows_.clear();
        return all;
    }

  private:
    std::vector<std::string> rows_;
};

// The rows of the year's table on the file's days, those of one voucher together.
ado::RecordsetPtr RowsBetween(std::int32_t first, std::int32_t last, std::int16_t year) {
    return qm::ExecuteRecordset(
        "Select LedgerTrnNo, LedgerTxnDate, LedgerTrnType, LedgerCode, LedgerDrAmt, LedgerCrAmt From "
        "tb_Ledger" +
        std::to_string(year) + " Where LedgerTxnDate >= " + std::to_string(first) +
        " And LedgerTxnDate <= " + std::to_string(last) + " Order By LedgerTrnNo");
}

}  // namespace

std::vector<std::int32_t> StandingVouchers(const VoucherFile& file, std::int16_t year) {
    std::multimap<std::string, std::size_t> wanted;
    std::int32_t first = std::numeric_limits<std::int32_t>::max(), last = 0;
    Likeness likeness;
    for (std::size_t i = 0; i < file.vouchers.size(); ++i) {
        for (const VoucherRow& row : file.vouchers[i].rows) {
            const bool debit = row.side == qm::LetterOf(qm::LedgerSide::Debit);
            likeness.Add(row.day, row.category, row.ledger, debit ? row.amount.rupees : 0,
                         debit ? 0 : row.amount.rupees);
            first = std::min(first, row.day);
            last = std::max(last, row.day);
        }
        wanted.emplace(likeness.Text(), i);
    }
    std::vector<std::int32_t> numbers(file.vouchers.size());
    const ado::RecordsetPtr rows = RowsBetween(first, last, year);
    while (!rows->Eof()) {
        const auto number = static_cast<std::int32_t>(basic::NumberOrZero((*rows)["LedgerTrnNo"]));
        for (; !rows->Eof() && basic::NumberOrZero((*rows)["LedgerTrnNo"]) == number; rows->MoveNext())
            likeness.Add(basic::ToLong((*rows)["LedgerTxnDate"]),
                         basic::Left(basic::TextOrEmpty((*rows)["LedgerTrnType"]), 1),
                         static_cast<std::int32_t>(basic::NumberOrZero((*rows)["LedgerCode"])),
                         basic::NumberOrZero((*rows)["LedgerDrAmt"]),
                         basic::NumberOrZero((*rows)["LedgerCrAmt"]));
        const auto found = wanted.find(likeness.Text());
        if (found == wanted.end()) continue;
        numbers[found->second] = number;
        wanted.erase(found);
    }
    rows->Close();
    return numbers;
}

Standing StandingOf(const VoucherFile& file, std::int16_t year) {
    if (file.vouchers.empty()) return {};
    const std::vector<std::int32_t> numbers = StandingVouchers(file, year);
    const auto stands = [](std::int32_t number) { return number != 0; };
    const auto count = static_cast<std::size_t>(std::count_if(numbers.begin(), numbers.end(), stands));
    if (count == 0) return {};
    const auto first =
        static_cast<std::size_t>(std::find_if(numbers.begin(), numbers.end(), stands) - numbers.begin());
    const bool all = count == numbers.size();
    return {count, all,
            (all ? "every voucher of the file stands"
                 : std::to_string(count) + " of " + Counted(numbers.size(), "voucher") + " stand") +
                " in the books already, with the same day, type, ledgers and amounts: voucher " +
                file.vouchers[first].key + " as number " + std::to_string(numbers[first]) +
                (count > 1 ? " is the first" : "")};
}

}  // namespace host
