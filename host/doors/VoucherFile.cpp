#include "host/doors/VoucherFile.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>

#include "core/DBCode.h"
#include "core/LedgerSide.h"
#include "core/VoucherType.h"
#include "host/doors/Counted.h"
#include "host/doors/LedgerBook.h"
#include "platform/basic/Dates.h"
#include "platform/basic/Error.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"

namespace host {
namespace {

constexpr auto& Columns = VoucherColumns;
enum Column : std::size_t { Voucher, Date, Type, Side, Ledger, AmountColumn, Narration };

const std::string HeaderLine = "the first line must be: voucher,date,type,side,ledger,amount,narration";
constexpr std::size_t MostOfKey = 40;  // characters: messages bear it

std::string Rupees(std::int64_t paise) {
    const std::string cents = std::to_string(paise % 100);
    return std::to_string(paise / 100) + (cents.size() == 1 ? ".0" : ".") + cents;
}

class Checker {
  public:
    Checker(qm::clQm& books, const LedgerBook& ledgers, std::int16_t year, DateOrder order)
        : books_(books), ledgers_(ledgers), year_(year), order_(order) {}

    bool Header(const CsvRow& row) {
        for (std::size_t i = 0; i < Columns.size(); ++i) {
            const std::string found = i < row.fields.size() ? basic::Trim(row.fields[i]) : "";
            if (basic::FoldCase(found) == Columns[i]) continue;
            Blame(row, Columns[i],
                  (i < row.fields.size() ? Shown(found) : "nothing") + " stands here, but " + HeaderLine);
            return false;
        }
        return true;
    }

    void Row(const CsvRow& row) {
        if (row.fields.size() != Columns.size()) {
            Blame(row, Columns[std::min(row.fields.size(), Columns.size() - 1)],
                  Counted(row.fields.size(), "field") + (row.fields.size() == 1 ? " stands" : " stand") +
                      " where 7 belong");
            broken_.insert(basic::Trim(row.fields.front()));
            return;
        }
        VoucherRow read;
        read.line = row.line;
        std::string key;
        Cell(row, Voucher, [&](const std::string& cell, std::string& reason) {
            key = basic::Trim(cell);
            if (key.empty()) reason = "the voucher's number is missing";
            if (basic::Len(key) > MostOfKey) reason = "the voucher's number is longer than 40 characters";
        });
        Cell(row, Date, [&](const std::string& cell, std::string& reason) { read.day = Day(cell, reason); });
        Cell(row, Type, [&](const std::string& cell, std::string& reason) {
            read.category = LetterOfWord(cell, qm::VoucherTypeWords());
            if (read.category.empty()) reason = Shown(cell) + " is no voucher type";
        });
        Cell(row, Side, [&](const std::string& cell, std::string& reason) {
            read.side = ReadSide(cell);
            if (read.side.empty()) reason = Shown(cell) + " is neither debit nor credit";
        });
        Cell(row, Ledger,
             [&](const std::string& cell, std::string& reason) { TakeLedger(cell, read, reason); });
        Cell(row, AmountColumn, [&](const std::string& cell, std::string& reason) {
            read.amount = ReadAmount(cell, reason).value_or(Amount());
        });
        Cell(row, Narration, [&](const std::string& cell, std::string& reason) {
            read.narration = cell;
            if (cell.find('"') != std::string::npos) reason = "a narration cannot hold a double quote";
        });
        VoucherOf(key).rows.push_back(std::move(read));
    }

    VoucherFile Finish() {
        for (const FileVoucher& voucher : file_.vouchers) {
            if (voucher.key.empty()) continue;  // rows without a number need not be one voucher
            AgreeInHead(voucher);
            if (!broken_.contains(voucher.key)) AgreeInSums(voucher);
        }
        file_.faults.SortByLine();
        return std::move(file_);
    }

    void Blame(const CsvRow& row, const std::string& column, const std::string& reason) {
        file_.faults.Add(row.line, column, reason);
    }

  private:
    // One cell, one reason at most: whether it may be stored comes first.
    template <class Read>
    void Cell(const CsvRow& row, Column column, Read read) {
        std::string reason = TextFault(row.fields[column], column == Narration);
        if (reason.empty()) read(row.fields[column], reason);
        if (!reason.empty()) Blame(row, Columns[column], reason);
    }

    std::int32_t Day(const std::string& cell, std::string& reason) {
        const std::optional<basic::Date> date = ReadDay(cell, order_, reason);
        if (!date) return 0;
        if (!books_.FinYearValidate(*date, year_))
            reason = Shown(cell) + " lies outside the year " + std::to_string(year_) + "-" +
                     std::to_string(year_ + 1);
        return basic::ToLong(qm::DateNumber(*date));
    }

    void TakeLedger(const std::string& cell, VoucherRow& read, std::string& reason) {
        const LedgerBook::Entry* entry = ledgers_.Find(cell, reason);
        if (entry == nullptr) return;
        read.ledger = entry->id;
        read.ledgerName = entry->name;
        if (entry->name.find('"') != std::string::npos)
            reason = "a ledger with a double quote in its name cannot be posted to";
    }

    FileVoucher& VoucherOf(const std::string& key) {
        const auto [place, isNew] = places_.try_emplace(key, file_.vouchers.size());
        if (isNew) file_.vouchers.push_back({key, {}, 0});
        return file_.vouchers[place->second];
    }

    // The rows of one voucher agree in date and type. A cell with a fault of its own is passed over.
    void AgreeInHead(const FileVoucher& voucher) {
        const std::string differs = "differs from the first row of voucher " + voucher.key;
        const VoucherRow& first = voucher.rows.front();
        for (const VoucherRow& row : voucher.rows) {
            if (row.day != 0 && first.day != 0 && row.day != first.day)
                file_.faults.Add(row.line, Columns[Date], differs);
            if (row.category != first.category && !row.category.empty() && !first.category.empty())
                file_.faults.Add(row.line, Columns[Type], differs);
        }
    }

    // Its sides agree to the paisa, unless one of them did not read.
    void AgreeInSums(const FileVoucher& voucher) {
        std::int64_t debit = 0, credit = 0;
        std::vector<int> lines;
        for (const VoucherRow& row : voucher.rows) {
            if (row.amount.paise == 0 || row.side.empty()) return;
            std::int64_t& sum = row.side == qm::LetterOf(qm::LedgerSide::Debit) ? debit : credit;
            if (__builtin_add_overflow(sum, row.amount.paise, &sum)) {
                file_.faults.Add(row.line, Columns[AmountColumn],
                                 "the sum of voucher " + voucher.key + " has more than 15 digits");
                return;
            }
            lines.push_back(row.line);
        }
        if (debit != credit)
            file_.faults.Add(lines.front(), Columns[AmountColumn],
                             "the sides of voucher " + voucher.key + " differ: debit " + Rupees(debit) +
                                 ", credit " + Rupees(credit) + " (" +
                                 (lines.size() == 1 ? "line " : "lines ") + Ranges(lines) + ")");
    }

    qm::clQm& books_;
    const LedgerBook& ledgers_;
    std::int16_t year_;
    DateOrder order_;
    VoucherFile file_;
    std::map<std::string, std::size_t> places_;
    std::set<std::string> broken_;  // vouchers with a row that did not read
};

}  // namespace

std::size_t VoucherFile::RowCount() const {
    std::size_t count = 0;
    for (const FileVoucher& voucher : vouchers) count += voucher.rows.size();
    return count;
}

VoucherFile CheckVouchers(const std::vector<CsvRow>& rows, qm::clQm& books, std::int16_t year,
                          DateOrder order, const CheckProgress& progress) {
    return CheckVouchers(rows, books, LedgerBook(books), year, order, progress);
}

VoucherFile CheckVouchers(const std::vector<CsvRow>& rows, qm::clQm& books, const LedgerBook& ledgers,
                          std::int16_t year, DateOrder order, const CheckProgress& progress) {
    Checker checker(books, ledgers, year, order);
    if (rows.empty()) {
        checker.Blame({1, {}}, Columns[Voucher], "the file is empty");
        return checker.Finish();
    }
    if (!checker.Header(rows.front())) return checker.Finish();
    for (std::size_t i = 1; i < rows.size(); ++i) {
        checker.Row(rows[i]);
        progress(i, rows.size());
    }
    return checker.Finish();
}

VoucherFile ReadVoucherFile(const std::filesystem::path& file, qm::clQm& books, std::int16_t year,
                            DateOrder order, const CheckProgress& progress) {
    VoucherFile unread;
    const auto rows = ReadCsvFile(file, unread.faults, [](std::size_t field) {
        return std::string(Columns[std::min(field, Columns.size() - 1)]);
    });
    return rows ? CheckVouchers(*rows, books, year, order, progress) : unread;
}

}  // namespace host
