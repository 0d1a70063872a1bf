#include "host/doors/JournalImport.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <utility>

#include "core/DBCode.h"
#include "core/modGeneral.h"
#include "host/doors/AllOrNothing.h"
#include "host/doors/Import.h"
#include "host/doors/JournalText.h"
#include "host/doors/LedgerBook.h"
#include "host/doors/LedgerImport.h"
#include "host/doors/OpeningImport.h"
#include "host/doors/Posting.h"
#include "host/doors/QuietBoxes.h"
#include "host/make/Fail.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Error.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"

namespace host {
namespace {

qm::LedgerSide SideOf(std::int64_t paise) {
    return paise < 0 ? qm::LedgerSide::Credit : qm::LedgerSide::Debit;
}

// What names a voucher among the rows until it has its number.
std::string KeyOf(const JournalTransaction& transaction) {
    return "of line " + std::to_string(transaction.line);
}

// The ledgers that a file names for accounts.
std::map<std::string, std::string> ReadMap(const std::filesystem::path& file, Faults& faults) {
    std::map<std::string, std::string> ledgers;
    if (file.empty()) return ledgers;
    Faults own;
    const std::vector<Head> heads{{"account", true}, {"ledger", true}};
    const auto rows = ReadCsvFile(file, own, [](std::size_t field) { return std::to_string(field + 1); });
    if (rows)
        CsvTable(*rows, heads, own)
            .ForEach(
                [&](CsvTable::Row& row) {
                    if (!ledgers.emplace(row.Text(0), row.Text(1)).second)
                        row.Blame(0, "the account stands twice");
                },
                [](std::size_t, std::size_t) {});
    for (const Fault& fault : own)
        faults.Add(fault.line, fault.column, file.filename().string() + ": " + fault.reason);
    return ledgers;
}

class Checker {
  public:
    Checker(const JournalFile& file, const std::filesystem::path& map, qm::clQm& books)
        : file_(file), books_(books), standing_(books) {
        import_.faults = file.faults;
        import_.year = basic::ToInteger(basic::Value(qm::shared().FinYear));
        mapped_ = ReadMap(map, import_.faults);
    }

    JournalImport Check(const CheckProgress& progress) {
        for (const JournalAccount& account : file_.accounts) declared_.emplace(account.account, &account);
        for (const JournalAccount& account : file_.accounts) LedgerOf(account.account, account.line);
        std::vector<CsvRow> rows{{1, {VoucherColumns.begin(), VoucherColumns.end()}}};
        for (const JournalTransaction& transaction : file_.transactions) {
            if (transaction.broken) continue;
            transaction.type == journal::OpeningType ? TakeOpenings(transaction)
                                                     : TakeVoucher(transaction, rows);
        }
        for (JournalImport::Ledger& ledger : import_.ledgers) {
            standing_.Expect(ledger.entry.Name);
            if (const auto opening = openings_.find(ledger.entry.Name); opening != openings_.end())
                SetOpening(ledger.entry, opening->second);
        }
        import_.vouchers =
            CheckVouchers(rows, books_, standing_, import_.year, DateOrder::DayFirst, progress);
        for (const Fault& fault : import_.vouchers.faults)
            import_.faults.Add(fault.line, fault.column == "voucher" ? "" : fault.column, fault.reason);
        for (FileVoucher& voucher : import_.vouchers.vouchers)
            if (const auto number = numbers_.find(voucher.key); number != numbers_.end())
                voucher.wanted = number->second;
        import_.faults.SortByLine();
        return std::move(import_);
    }

  private:
    static void SetOpening(qm::LedgerEntry& entry, std::int64_t paise) {
        entry.OpeningBal = FigureText(paise);
        entry.BalType = SideOf(paise);
    }

    // The name of the ledger that an account goes to; "" where there is none, which is blamed once.
    const std::string& LedgerOf(const std::string& account, int line) {
        const auto [place, isNew] = ledgers_.try_emplace(account);
        if (isNew) place->second = FoundOrNew(account, line);
        return place->second;
    }

    std::string FoundOrNew(const std::string& account, int line) {
        std::string reason;
        if (const auto mapped = mapped_.find(account); mapped != mapped_.end()) {
            const LedgerBook::Entry* const entry = standing_.Find(mapped->second, reason);
            if (!entry) import_.faults.Add(line, "", reason);
            return entry ? entry->name : "";
        }
        const auto declared = declared_.find(account);
        const std::string tag = declared == declared_.end() ? "" : declared->second->name;
        const std::size_t colon = std::min(account.find(':'), account.size());
        const std::string* const group = new_.PrimaryGroup(account.substr(0, colon));
        const std::string part = group && colon < account.size() ? account.substr(colon + 1) : account;
        const std::string name = tag.empty() ? part : tag;
        for (const std::string& one : {name, account}) {
            std::string none;
            if (const LedgerBook::Entry* const entry = standing_.Find(one, one == name ? reason : none))
                return entry->name;
        }
        if (declared != declared_.end() && group && colon < account.size())
            return Add(declared->second->line, name, *group) ? name : "";
        import_.faults.Add(line, "", "account " + Shown(account) + ": " + reason + " (see --map)");
        return {};
    }

    bool Add(int line, const std::string& name, const std::string& group) {
        qm::LedgerEntry entry{name, group, "0", qm::LedgerSide::Debit, {}};
        for (std::string& detail : entry.Details) detail.clear();
        const bool taken = new_.Check(entry, line, [&](qm::LedgerField, const std::string& reason) {
            import_.faults.Add(line, "", reason);
        });
        if (taken) import_.ledgers.push_back({line, entry});
        return taken;
    }

    void TakeOpenings(const JournalTransaction& transaction) {
        for (const JournalPosting& posting : transaction.postings) {
            const std::string& name = LedgerOf(posting.account, posting.line);
            std::string reason;
            const LedgerBook::Entry* const entry = name.empty() ? nullptr : standing_.Find(name, reason);
            if (!openings_.emplace(name, posting.paise).second && !name.empty())
                import_.faults.Add(posting.line, "", "the opening of " + Shown(name) + " stands twice");
            if (!entry || Stands(entry->id, posting.paise)) continue;
            reason = writable_.Refusal(*entry, posting.line);
            if (!reason.empty()) import_.faults.Add(posting.line, "", reason);
            import_.openings.push_back(
                {posting.line, std::to_string(entry->id), FigureText(posting.paise), SideOf(posting.paise)});
        }
    }

    // Whether the ledger's opening is this one already.
    static bool Stands(std::int32_t id, std::int64_t paise) {
        const ado::RecordsetPtr row = qm::ExecuteRecordset(
            "Select Opening_Bal, Bal_Type From Ledger_Details Where Ledger_ID = " + std::to_string(id) +
            " And Fnncl_Yr = " + qm::shared().FinYear);
        if (row->Eof()) return false;
        const auto side = qm::SideOfLetter(basic::TextOrEmpty((*row)["Bal_Type"]));
        return basic::NumberOrZero((*row)["Opening_Bal"]) == basic::WholeNumber(FigureText(paise)) &&
               (paise == 0 || side == SideOf(paise));
    }

    void TakeVoucher(const JournalTransaction& transaction, std::vector<CsvRow>& rows) {
        const std::string key = KeyOf(transaction);
        const char* const end = transaction.code.data() + transaction.code.size();
        std::int32_t number = 0;
        if (file_.own && std::from_chars(transaction.code.data(), end, number).ptr == end && number > 0)
            numbers_.emplace(key, number);
        if (transaction.postings.empty())
            import_.faults.Add(transaction.line, "", "the transaction has no posting");
        const std::size_t before = rows.size();
        bool known = true;
        for (const JournalPosting& posting : transaction.postings) {
            const std::string& ledger = LedgerOf(posting.account, posting.line);
            known = known && !ledger.empty();
            rows.push_back({posting.line,
                            {key, transaction.date, transaction.type.empty() ? "Journal" : transaction.type,
                             qm::LetterOf(SideOf(posting.paise)), ledger, FigureText(posting.paise),
                             posting.narration}});
        }
        if (!known) rows.resize(before);  // its account was blamed
    }

    const JournalFile& file_;
    qm::clQm& books_;
    LedgerBook standing_;
    NewLedgers new_;
    NewOpenings writable_;
    JournalImport import_;
    std::map<std::string, std::string> mapped_, ledgers_;  // by the account
    std::map<std::string, const JournalAccount*> declared_;
    std::map<std::string, std::int64_t> openings_;  // by the ledger's name
    std::map<std::string, std::int32_t> numbers_;   // by the voucher's key
};

}  // namespace

JournalImport CheckJournal(const std::filesystem::path& file, const std::filesystem::path& map,
                           qm::clQm& books, const CheckProgress& progress) {
    JournalFile journal = ReadJournal(file);
    JournalImport import = Checker(journal, map, books).Check(progress);
    import.read = std::move(journal.transactions);
    return import;
}

std::optional<Fault> WriteJournalImport(const JournalImport& journal, qm::clQm& books,
                                        const CheckProgress& progress) {
    const QuietBoxes boxes;
    int line = 1;
    std::optional<Fault> failure;
    try {
        AllOrNothing([&] {
            RequireYear(std::to_string(journal.year));
            for (const JournalImport::Ledger& ledger : journal.ledgers) {
                line = ledger.line;
                AddLedger(ledger.entry);
            }
            for (const JournalImport::Opening& opening : journal.openings) {
                line = opening.line;
                qm::WriteOpeningBalance(opening.ledgerId, opening.figure, opening.side);
            }
            VoucherFile vouchers = journal.vouchers;
            const LedgerBook ledgers(books);  // the new ones have their numbers now
            for (FileVoucher& voucher : vouchers.vouchers)
                for (VoucherRow& row : voucher.rows) {
                    std::string reason;
                    const LedgerBook::Entry* const entry = ledgers.Find(row.ledgerName, reason);
                    if (row.ledger == 0 && entry) row.ledger = entry->id;
                }
            const std::size_t all = vouchers.RowCount();
            failure = PostAtOnce(books, vouchers, journal.year, [&](std::size_t done) {
                          progress(done, all);
                          return true;
                      }).failure;
            return !failure;
        });
    } catch (const basic::Error& error) {
        failure = NotWritten(line, error);
    }
    return failure;
}

}  // namespace host
