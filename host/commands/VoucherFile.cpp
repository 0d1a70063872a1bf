#include "host/commands/VoucherFile.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/DBCode.h"
#include "platform/basic/Dates.h"
#include "platform/basic/Error.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"

namespace host {
namespace {

constexpr std::array<const char*, 7> Columns{"voucher", "date",   "type",     "side",
                                             "ledger",  "amount", "narration"};
enum Column : std::size_t { Voucher, Date, Type, Side, Ledger, Amount, Narration };

// The letter that one of the accepted words stands for, "" for any other text.
std::string LetterOf(const std::string& text, std::initializer_list<const char*> words) {
    const std::string folded = basic::FoldCase(basic::Trim(text));
    for (const char* word : words)
        if (basic::FoldCase(word) == folded || basic::FoldCase(basic::Left(word, 1)) == folded)
            return basic::UCase(basic::Left(word, 1));
    return {};
}

class Checker {
  public:
    Checker(qm::clQm& books, std::int16_t year) : books_(books), ledgers_(books), year_(year) {}

    bool Header(const CsvRow& row) {
        for (std::size_t i = 0; i < Columns.size(); ++i)
            if (i >= row.fields.size() || basic::FoldCase(basic::Trim(row.fields[i])) != Columns[i]) {
                Blame(row, Columns[i],
                      "the first line must be: voucher,date,type,side,ledger,amount,narration");
                return false;
            }
        return true;
    }

    void Row(const CsvRow& row) {
        if (row.fields.size() != Columns.size()) {
            Blame(row, "", std::to_string(row.fields.size()) + " fields stand where 7 belong");
            return;
        }
        VoucherRow read;
        read.line = row.line;
        read.day = Day(row);
        read.category = LetterOf(row.fields[Type], {"Receipt", "Payment", "Contra", "Journal"});
        if (read.category.empty()) Blame(row, Columns[Type], "'" + row.fields[Type] + "' is no voucher type");
        read.side = LetterOf(row.fields[Side], {"Debit", "Credit"});
        if (read.side.empty()) read.side = LetterOf(row.fields[Side], {"Dr", "Cr"});
        if (read.side.empty())
            Blame(row, Columns[Side], "'" + row.fields[Side] + "' is neither debit nor credit");
        TakeLedger(row, read);
        read.amount = AmountOf(row);
        read.narration = row.fields[Narration];
        if (read.narration.find('"') != std::string::npos)
            Blame(row, Columns[Narration], "a narration cannot hold a double quote");
        VoucherOf(basic::Trim(row.fields[Voucher]), row).rows.push_back(read);
    }

    VoucherFile Finish() {
        for (const FileVoucher& voucher : file_.vouchers)
            if (!voucher.key.empty()) Agree(voucher);  // rows without a number need not be one voucher
        std::stable_sort(file_.faults.begin(), file_.faults.end(),
                         [](const Fault& a, const Fault& b) { return a.line < b.line; });
        return std::move(file_);
    }

    void Blame(const CsvRow& row, const std::string& column, const std::string& reason) {
        file_.faults.push_back({row.line, column, reason});
    }

  private:
    std::int32_t Day(const CsvRow& row) {
        const std::string& text = row.fields[Date];
        if (!basic::IsDate(text)) {
            Blame(row, Columns[Date], "'" + text + "' is no date");
            return 0;
        }
        const basic::Date date = basic::ReadDate(text);
        if (!books_.FinYearValidate(date, year_))
            Blame(row, Columns[Date],
                  "'" + text + "' lies outside the year " + std::to_string(year_) + "-" +
                      std::to_string(year_ + 1));
        return basic::ToLong(qm::DateNumber(date));
    }

    void TakeLedger(const CsvRow& row, VoucherRow& read) {
        std::string reason;
        const LedgerBook::Entry* entry = ledgers_.Find(row.fields[Ledger], reason);
        if (entry == nullptr) {
            Blame(row, Columns[Ledger], reason);
            return;
        }
        read.ledger = entry->id;
        read.ledgerName = entry->name;
        if (entry->name.find('"') != std::string::npos)
            Blame(row, Columns[Ledger], "a ledger with a double quote in its name cannot be posted to");
    }

    double AmountOf(const CsvRow& row) {
        const std::string& text = row.fields[Amount];
        const double amount = basic::IsNumeric(text) ? basic::WholeNumber(text) : 0;
        if (!(amount > 0) || !std::isfinite(amount))
            Blame(row, Columns[Amount], "'" + text + "' is no amount above 0");
        return amount;
    }

    FileVoucher& VoucherOf(const std::string& key, const CsvRow& row) {
        if (key.empty()) Blame(row, Columns[Voucher], "the voucher's number is missing");
        const auto [place, isNew] = places_.try_emplace(key, file_.vouchers.size());
        if (isNew) file_.vouchers.push_back({key, {}});
        return file_.vouchers[place->second];
    }

    // The rows of one voucher agree in date and type, and its sides in their sums.
    void Agree(const FileVoucher& voucher) {
        double difference = 0;
        const VoucherRow& first = voucher.rows.front();
        for (const VoucherRow& row : voucher.rows) {
            difference += row.side == "D" ? row.amount : -row.amount;
            if (row.day != first.day || row.category != first.category)
                file_.faults.push_back({row.line, row.day != first.day ? Columns[Date] : Columns[Type],
                                        "differs from the first row of voucher " + voucher.key});
        }
        if (basic::Round(difference, 2) != 0)
            file_.faults.push_back({first.line, Columns[Amount],
                                    "the sides of voucher " + voucher.key + " differ by " +
                                        basic::NumberText(basic::Round(std::abs(difference), 2))});
    }

    qm::clQm& books_;
    LedgerBook ledgers_;
    std::int16_t year_;
    VoucherFile file_;
    std::map<std::string, std::size_t> places_;
};

}  // namespace

LedgerBook::LedgerBook(qm::clQm& books) {
    // A condition makes the list go through the year's details: only ledgers with a row there can be posted
    // to.
    const ado::RecordsetPtr rows = books.Ledgers("Ledger_Master.Ledger_Id > 0");
    for (; !rows->Eof(); rows->MoveNext()) {
        const std::int32_t id = basic::ToLong(rows->Fields(0).Value());
        const std::string name = basic::TextOrEmpty(rows->Fields(1).Value());
        if (byId_.emplace(id, Entry{id, name}).second) byFoldedName_.emplace(basic::FoldCase(name), id);
    }
    rows->Close();
}

const LedgerBook::Entry* LedgerBook::Find(const std::string& cell, std::string& reason) const {
    const std::string text = basic::Trim(cell);
    const auto [from, to] = byFoldedName_.equal_range(basic::FoldCase(text));
    if (from != to && std::next(from) == to) return &byId_.at(from->second);
    if (from != to) {
        reason = "two ledgers are named '" + text + "'; give the number";
        return nullptr;
    }
    if (!text.empty() && text.find_first_not_of("0123456789") == std::string::npos && text.size() < 10) {
        const auto found = byId_.find(std::stoi(text));
        if (found != byId_.end()) return &found->second;
    }
    reason = "the year has no ledger '" + text + "'";
    return nullptr;
}

std::size_t VoucherFile::RowCount() const {
    std::size_t count = 0;
    for (const FileVoucher& voucher : vouchers) count += voucher.rows.size();
    return count;
}

VoucherFile CheckVouchers(const std::vector<CsvRow>& rows, qm::clQm& books, std::int16_t year) {
    Checker checker(books, year);
    if (rows.empty()) checker.Blame({1, {}}, "", "the file is empty");
    if (!rows.empty() && checker.Header(rows.front()))
        for (std::size_t i = 1; i < rows.size(); ++i) checker.Row(rows[i]);
    return checker.Finish();
}

VoucherFile ReadVoucherFile(const std::filesystem::path& file, qm::clQm& books, std::int16_t year) {
    return CheckVouchers(ReadCsv(file), books, year);
}

}  // namespace host
