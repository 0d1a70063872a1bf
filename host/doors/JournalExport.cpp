#include "host/doors/JournalExport.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "host/doors/JournalText.h"
#include "platform/basic/Dates.h"
#include "platform/basic/Decimal.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "queries/LedgerDetails.h"

namespace host {
namespace {

using namespace journal;

// An amount as the books keep it, with at least two decimals and no exponent.
std::string AmountText(double amount) {
    const basic::Decimal exact = basic::Decimal::Of(amount);
    const int places = std::max(2, static_cast<int>(exact.digits.size()) - exact.point);
    const std::string whole = exact.WholeDigits();
    return std::string(Commodity) + " " + (exact.negative ? "-" : "") + (whole.empty() ? "0" : whole) + "." +
           exact.DecimalDigits(places);
}

std::string DateText(basic::Date date) {
    const auto [year, month, day] = basic::Parts(date);
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d", year, month, day);
    return text;
}

// The accounts, by the number of the ledger.
class Accounts {
  public:
    Accounts(queries::Reading& books, std::ostream& out) : out_(out) {
        for (const queries::LedgerDetails& ledger : ReadDetails(books, queries::LedgerOrder::AsEntered))
            if (!names_.contains(ledger.id)) Add(ledger.id, ledger.group, ledger.name);
    }
    // A row of a ledger that is not there any more goes by the name in the row.
    void AddUnknown(std::int32_t id, const std::string& name) {
        if (!names_.contains(id)) Add(id, "Unknown", name);
    }
    const std::string& Of(std::int32_t id) const { return names_.at(id); }
    std::size_t Count() const { return names_.size(); }

  private:
    void Add(std::int32_t id, const std::string& group, const std::string& name) {
        std::string account = AccountPart(group) + ":" + AccountPart(name);
        if (!taken_.insert(basic::FoldCase(account)).second) {
            account += " #" + std::to_string(id);
            taken_.insert(basic::FoldCase(account));
        }
        out_ << "account " << account << "\n";
        if (account != group + ":" + name) out_ << "    ; " << NameTag << QuotedText(name) << "\n";
        names_.emplace(id, account);
    }

    std::ostream& out_;
    std::map<std::int32_t, std::string> names_;
    std::set<std::string> taken_;
};

struct Posting {
    std::string account;
    double amount = 0;
    std::string narration;
};

// One transaction: its head, then its postings.
class Transaction {
  public:
    explicit Transaction(const std::string& head) : text_(head) {}

    void Tag(const char* tag, const std::string& value) { text_ += "\n    ; " + std::string(tag) + value; }
    void Add(const std::string& account, double amount, const std::string& note = {}) {
        postings_.push_back({account, amount, note});
    }
    void Write(std::ostream& out) const {
        const bool balanced = Balanced();
        out << text_ << "\n";
        for (const Posting& posting : postings_) {
            out << "    " << (balanced ? "" : "(") << posting.account << (balanced ? "" : ")") << "  "
                << AmountText(posting.amount) << "\n";
            if (!posting.narration.empty()) out << "    ; " << NarrationTag << posting.narration << "\n";
        }
        out << "\n";
    }

  private:
    // To the last digit; an amount of more than six decimals or 15 digits is not looked into.
    bool Balanced() const {
        std::int64_t rupees = 0, millionths = 0;
        for (const Posting& posting : postings_) {
            const basic::Decimal exact = basic::Decimal::Of(posting.amount);
            if (static_cast<int>(exact.digits.size()) - exact.point > 6 || exact.point > 15) return false;
            const int sign = exact.negative ? -1 : 1;
            rupees += sign * std::stoll("0" + exact.WholeDigits());
            millionths += sign * std::stoll("0" + exact.DecimalDigits(6));
        }
        return rupees == -(millionths / 1'000'000) && millionths % 1'000'000 == 0;
    }

    std::string text_;
    std::vector<Posting> postings_;
};

void WriteOpenings(queries::Reading& books, const Accounts& accounts, std::ostream& out) {
    Transaction openings(DateText(books.FirstDay()) + " * Opening balances");
    openings.Tag(TypeTag, OpeningType);
    bool any = false;
    for (const queries::LedgerDetails& ledger : ReadDetails(books, queries::LedgerOrder::AsEntered)) {
        if (ledger.Opening() == 0) continue;
        openings.Add(accounts.Of(ledger.id), ledger.Opening());
        any = true;
    }
    if (any) openings.Write(out);
}

// The rows of the year's vouchers, those of one number together, in the order in which they were posted.
class VoucherRows {
  public:
    explicit VoucherRows(queries::Reading& books)
        : rows_(books.Select(
              "Select LedgerTrnNo, LedgerCode, LedgerName, LedgerTxnDate, LedgerNarration, LedgerTrnType, "
              "LedgerDrAmt, LedgerCrAmt From " +
              books.Table("tb_Ledger") + " Order By LedgerTrnNo")),
          firstDay_(queries::DayOf(books.FirstDay())) {}

    void NameUnknown(Accounts& accounts) {
        for (; !rows_->Eof(); rows_->MoveNext()) accounts.AddUnknown(Ledger(), Text("LedgerName"));
        if (rows_->RecordCount() > 0) rows_->MoveFirst();
    }

    void Write(const Accounts& accounts, JournalSize& size, std::ostream& out) {
        while (!rows_->Eof()) {
            const std::string head = Head(), narration = Text("LedgerNarration");
            Transaction voucher(head + (Description(narration).empty() ? "" : " " + Description(narration)));
            if (const std::string type = Text("LedgerTrnType"); !type.empty())
                voucher.Tag(TypeTag, Description(type));
            if (Description(narration) != narration) voucher.Tag(NarrationTag, QuotedText(narration));
            for (; !rows_->Eof() && Head() == head; rows_->MoveNext(), ++size.rows)
                AddRow(accounts, narration, voucher);
            voucher.Write(out);
            ++size.vouchers;
        }
    }

  private:
    void AddRow(const Accounts& accounts, const std::string& narration, Transaction& voucher) {
        const std::string own = Text("LedgerNarration"), note = own == narration ? "" : QuotedText(own);
        const double debit = basic::NumberOrZero((*rows_)["LedgerDrAmt"]),
                     credit = basic::NumberOrZero((*rows_)["LedgerCrAmt"]);
        if (debit != 0 || credit == 0) voucher.Add(accounts.Of(Ledger()), debit, note);
        if (credit != 0) voucher.Add(accounts.Of(Ledger()), -credit, note);
    }
    std::string Text(const char* field) { return basic::TextOrEmpty((*rows_)[field]); }
    std::int32_t Ledger() { return static_cast<std::int32_t>(basic::NumberOrZero((*rows_)["LedgerCode"])); }
    // Day, number and type part one voucher from the next.
    std::string Head() {
        const basic::Value day = (*rows_)["LedgerTxnDate"];
        return DateText(queries::DateOf(day.IsNull() ? firstDay_ : basic::ToLong(day))) + " * (" +
               Text("LedgerTrnNo") + ")";
    }

    std::unique_ptr<ado::Recordset> rows_;
    std::int32_t firstDay_;
};

}  // namespace

JournalSize WriteJournal(queries::Reading& books, std::ostream& out) {
    const queries::Reading::Moment moment(books);
    out << OwnMark << ", year " << books.LongYear() << "\n\ncommodity " << Commodity << "\n\n";
    Accounts accounts(books, out);
    VoucherRows rows(books);
    rows.NameUnknown(accounts);
    out << "\n";
    WriteOpenings(books, accounts, out);
    JournalSize size;
    rows.Write(accounts, size, out);
    size.ledgers = accounts.Count();
    return size;
}

}  // namespace host
