#include "host/doors/JournalFile.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "host/doors/JournalText.h"
#include "host/doors/VoucherCells.h"
#include "host/make/CsvFile.h"
#include "platform/basic/Text.h"

namespace host {
namespace {

using namespace journal;
using View = std::string_view;

View Trimmed(View text) {
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == View::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

// What stands before and behind a place; behind it without its mark of `length`.
std::pair<View, View> Parted(View text, std::size_t at, std::size_t length) {
    if (at == View::npos) return {text, {}};
    return {text.substr(0, at), text.substr(at + length)};
}

// Where an account's name ends: at two blanks or a tab.
std::size_t NameEnd(View text) {
    return std::min(text.find("  "), text.find('\t'));
}

// Passed over with the lines below them: they change no figure.
constexpr std::array PassedOver{"commodity", "payee", "tag", "D", "P"};

class Reader {
  public:
    JournalFile Read(View text) {
        if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
        file_.own = text.starts_with(OwnMark);
        while (!text.empty()) {
            const auto [line, rest] = Parted(text, text.find('\n'), 1);
            ++line_;
            Line(line.ends_with('\r') ? line.substr(0, line.size() - 1) : line);
            text = rest;
        }
        EndTransaction();
        if (file_.transactions.empty() && file_.accounts.empty() && file_.faults.empty())
            file_.faults.Add(1, "", "the file holds no transaction");
        file_.faults.SortByLine();
        return std::move(file_);
    }

  private:
    enum class In { Nothing, Comment, Harmless, Account, Transaction };

    void Blame(const std::string& reason) {
        file_.faults.Add(line_, "", reason);
        if (in_ == In::Transaction) file_.transactions.back().broken = true;
    }

    void Line(View line) {
        if (const std::string fault = TextFault(basic::Replace(line, "\t", " "), false); !fault.empty())
            return Blame(fault);
        const bool indented = line.starts_with(' ') || line.starts_with('\t');
        const View text = Trimmed(line);
        if (in_ == In::Comment) {
            if (text == "end comment") in_ = In::Nothing;
        } else if (text.empty()) {
            EndTransaction();
        } else if (indented) {
            Below(text);
        } else {
            EndTransaction();
            Head(line);
        }
    }

    void Head(View line) {
        const View word = line.substr(0, line.find_first_of(" \t"));
        if (View(";#*%|").find(line.front()) != View::npos) return;
        if (line.front() >= '0' && line.front() <= '9') return BeginTransaction(line);
        const View rest = Trimmed(line.substr(word.size()));
        if (word == "comment") {
            in_ = In::Comment;
        } else if (word == "account" && !rest.empty()) {
            in_ = In::Account;
            const View account = rest.substr(0, NameEnd(rest));
            file_.accounts.push_back({line_, std::string(account), {}});
        } else if (std::find(PassedOver.begin(), PassedOver.end(), word) != PassedOver.end() ||
                   line == "decimal-mark .") {
            in_ = In::Harmless;
        } else {
            in_ = In::Harmless;  // one fault, not one for each line below
            Blame(Shown(std::string(word)) + " cannot be taken");
        }
    }

    // A line below a transaction or a directive.
    void Below(View text) {
        const bool isNote = text.starts_with(';');
        if (in_ == In::Account && isNote) {
            if (const auto name = Tag(text, NameTag)) file_.accounts.back().name = *name;
        } else if (in_ == In::Transaction) {
            isNote ? Note(text) : Post(text);
        } else if (in_ == In::Nothing && !isNote) {
            Blame("a posting stands below no transaction");
        }
    }

    // What a comment says by a tag at its head.
    static std::optional<std::string> Tag(View comment, View tag) {
        const View text = Trimmed(comment.substr(std::min(comment.find_first_not_of(';'), comment.size())));
        if (!text.starts_with(tag)) return {};
        return UnquotedText(std::string(Trimmed(text.substr(tag.size()))));
    }

    void Note(View comment) {
        JournalTransaction& now = file_.transactions.back();
        if (const auto type = Tag(comment, TypeTag); type && now.postings.empty()) now.type = *type;
        if (const auto narration = Tag(comment, NarrationTag))
            (now.postings.empty() ? now.narration : now.postings.back().narration) = *narration;
    }

    void BeginTransaction(View line) {
        in_ = In::Transaction;
        JournalTransaction& now = file_.transactions.emplace_back();
        const auto [head, note] = Parted(line, line.find(';'), 1);
        now.line = line_;
        elided_ = -1;
        const View date = head.substr(0, head.find_first_of(" \t"));
        if (date.find('=') != View::npos) Blame("a second date cannot be taken");
        now.date = basic::Replace(basic::Replace(date, ".", "-"), "/", "-");
        View rest = Trimmed(head.substr(date.size()));
        if (rest.starts_with('*') || rest.starts_with('!')) rest = Trimmed(rest.substr(1));
        if (rest.starts_with('(') && rest.find(')') != View::npos) {
            now.code = rest.substr(1, rest.find(')') - 1);
            rest = Trimmed(rest.substr(rest.find(')') + 1));
        }
        now.narration = rest;
        if (!note.empty()) Note(note);
    }

    void Post(View text) {
        const auto [posting, note] = Parted(text, text.find(';'), 1);
        View account = Trimmed(posting);
        if (account.starts_with("* ") || account.starts_with("! ")) account = Trimmed(account.substr(2));
        JournalTransaction& now = file_.transactions.back();
        const auto [name, behind] = Parted(account, NameEnd(account), 0);
        const View amount = Trimmed(behind);
        JournalPosting& row = now.postings.emplace_back();
        row.line = line_;
        row.account = name;
        row.narration = now.narration;
        if (now.type == OpeningType && name.starts_with('(') && name.ends_with(')'))
            row.account = name.substr(1, name.size() - 2);  // openings need not agree
        else if (name.starts_with('(') || name.starts_with('['))
            return Blame("a posting that is left out of the balance cannot be taken");
        if (!amount.empty())
            row.paise = Amount(amount);
        else if (elided_ >= 0)
            Blame("a second posting goes without its amount");
        else
            elided_ = static_cast<int>(now.postings.size()) - 1;
        if (!note.empty()) Note(note);
    }

    std::int64_t Amount(View text) {
        if (text.find_first_of("@{=(*") != View::npos) {
            Blame("a price, a lot, an assertion or a sum behind an amount cannot be taken");
            return 0;
        }
        const std::size_t first = text.find_first_of("0123456789.,"),
                          last = text.find_last_of("0123456789.,");
        std::string figure, sign, commodity, reason;
        for (std::size_t i = 0; i < text.size(); ++i) {
            if (first != View::npos && i >= first && i <= last)
                figure += text[i];
            else if (text[i] == '-' || text[i] == '+')
                sign += text[i];
            else if (text[i] != ' ' && text[i] != '"')
                commodity += text[i];
        }
        figure = ReadFigure(figure, 2, reason);
        if (!reason.empty() || sign.size() > 1 || text.ends_with('-') || text.ends_with('+')) {
            Blame(reason.empty() ? Shown(std::string(text)) + " is no amount" : reason);
            return 0;
        }
        const std::size_t point = std::min(figure.find('.'), figure.size());
        std::string decimals = figure.substr(std::min(point + 1, figure.size()));
        decimals.resize(2, '0');
        const std::int64_t paise = std::stoll(figure.substr(0, point) + decimals);
        if (paise != 0) OneCommodity(commodity);
        return sign == "-" ? -paise : paise;
    }

    void OneCommodity(const std::string& commodity) {
        if (!commodity_) commodity_ = commodity;
        if (*commodity_ != commodity)
            Blame("the commodity " + Shown(commodity) + " stands beside " + Shown(*commodity_) +
                  ": one can be taken");
    }

    // The posting without an amount takes what the others leave.
    void EndTransaction() {
        if (in_ == In::Transaction && elided_ >= 0) {
            std::int64_t sum = 0;
            std::vector<JournalPosting>& postings = file_.transactions.back().postings;
            bool whole = true;
            for (const JournalPosting& posting : postings)
                whole = whole && !__builtin_add_overflow(sum, posting.paise, &sum);
            if (!whole) file_.faults.Add(postings.front().line, "", "the sum has more than 15 digits");
            postings[static_cast<std::size_t>(elided_)].paise = -sum;
        }
        elided_ = -1;
        in_ = In::Nothing;
    }

    JournalFile file_;
    int line_ = 0;
    In in_ = In::Nothing;
    int elided_ = -1;  // place of the posting without an amount
    std::optional<std::string> commodity_;
};

}  // namespace

std::string FigureText(std::int64_t paise) {
    const std::int64_t size = paise < 0 ? -paise : paise;
    if (size % 100 == 0) return std::to_string(size / 100);
    const std::string cents = std::to_string(size % 100);
    return std::to_string(size / 100) + (cents.size() == 1 ? ".0" : ".") + cents;
}

JournalFile ReadJournal(const std::filesystem::path& file) {
    return Reader().Read(FileText(file));
}

}  // namespace host
