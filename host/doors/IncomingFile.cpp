#include "host/doors/IncomingFile.h"

#include <algorithm>
#include <fstream>
#include <utility>

#include "core/modGeneral.h"
#include "host/doors/Counted.h"
#include "host/doors/JournalText.h"
#include "host/doors/Posting.h"
#include "host/make/Fail.h"
#include "platform/basic/Text.h"
#include "platform/basic/Value.h"

namespace host {
namespace {

const char* const VoucherKind = "vouchers";
const char* const JournalKind = "journal";
constexpr std::size_t MostOfFirstLine = 4096;  // bytes

std::string ColumnNumber(std::size_t field) {
    return std::to_string(field + 1);
}

std::string FirstLine(const std::filesystem::path& file) {
    std::string begin(MostOfFirstLine, '\0');
    std::ifstream in(file, std::ios::binary);
    in.read(begin.data(), static_cast<std::streamsize>(begin.size()));
    begin.resize(static_cast<std::size_t>(in.gcount()));
    if (begin.starts_with("\xEF\xBB\xBF")) begin.erase(0, 3);
    return begin.substr(0, begin.find_first_of("\r\n"));
}

std::vector<std::string> FieldsOf(const std::string& line) {
    try {
        const std::vector<CsvRow> rows = ParseCsv(line);
        return rows.empty() ? std::vector<std::string>() : rows.front().fields;
    } catch (const CsvError&) {
        return {};
    }
}

const std::vector<Head>& HeadsOf(const std::string& kind) {
    static const std::vector<Head> vouchers = [] {
        std::vector<Head> heads;
        for (const char* const name : VoucherColumns) heads.push_back({name, true});
        return heads;
    }();
    return kind == VoucherKind ? vouchers : ImportHeads(kind);
}

// Whether these are the columns of such a file: those that are needed, and no other.
bool Fit(const std::vector<std::string>& names, const std::string& kind) {
    const std::vector<Head>& heads = HeadsOf(kind);
    const auto is = [](const Head& head, const std::string& name) {
        const std::string folded = basic::FoldCase(basic::Trim(name));
        return folded == head.name || (head.other && folded == head.other);
    };
    return std::all_of(names.begin(), names.end(),
                       [&](const std::string& name) {
                           return std::any_of(heads.begin(), heads.end(),
                                              [&](const Head& head) { return is(head, name); });
                       }) &&
           std::all_of(heads.begin(), heads.end(), [&](const Head& head) {
               return !head.needed || std::any_of(names.begin(), names.end(),
                                                  [&](const std::string& name) { return is(head, name); });
           });
}

// Columns of another kind would all be faults, and none would say what the file is.
void RefuseOtherKind(const IncomingFile::Source& source) {
    const std::string line = FirstLine(source.file);
    const std::vector<std::string> names = FieldsOf(line);
    const auto is = [&](const std::string& kind) {
        return kind == JournalKind ? line.starts_with(journal::OwnMark) : Fit(names, kind);
    };
    if (is(source.kind)) return;
    for (const std::string& kind : IncomingFile::Kinds())
        if (is(kind))
            Fail("the first line of '" + source.file.string() + "' is that of " + kind + ", not of " +
                 source.kind);
}

}  // namespace

const std::vector<std::string>& IncomingFile::Kinds() {
    static const std::vector<std::string> kinds = [] {
        std::vector<std::string> all = ImportKinds();
        all.insert(all.end(), {VoucherKind, JournalKind});
        return all;
    }();
    return kinds;
}

IncomingFile::IncomingFile(Source source, qm::clQm& books, const CheckProgress& progress)
    : source_(std::move(source)), year_(qm::shared().FinYear) {
    RefuseOtherKind(source_);
    if (source_.kind == JournalKind)
        ReadJournal(books, progress);
    else if (source_.kind == VoucherKind)
        ReadVouchers(books, progress);
    else
        ReadList(books, progress);
    if (const VoucherFile* const vouchers = Vouchers(); vouchers && Faults().empty())
        standing_ = StandingOf(*vouchers, basic::ToInteger(basic::Value(year_)));
}

void IncomingFile::ReadList(qm::clQm& books, const CheckProgress& progress) {
    ImportFile file = CheckImport(source_.kind, source_.file, books, progress);
    Take(std::move(file.read));
    checked_ = std::move(file);
}

void IncomingFile::ReadVouchers(qm::clQm& books, const CheckProgress& progress) {
    VoucherFile file;
    auto rows = ReadCsvFile(source_.file, file.faults, ColumnNumber);
    if (rows)
        file = CheckVouchers(*rows, books, basic::ToInteger(basic::Value(year_)), source_.order, progress);
    checked_ = std::move(file);
    if (rows) Take(std::move(*rows));
}

void IncomingFile::ReadJournal(qm::clQm& books, const CheckProgress& progress) {
    JournalImport file = CheckJournal(source_.file, source_.map, books, progress);
    heads_ = {"date", "code", "type", "account", "debit", "credit", "narration"};
    for (const JournalTransaction& transaction : file.read)
        for (const JournalPosting& posting : transaction.postings) {
            const std::string figure = FigureText(posting.paise);
            rows_.push_back(
                {posting.line,
                 {transaction.date, transaction.code, transaction.type, posting.account,
                  posting.paise > 0 ? figure : "", posting.paise < 0 ? figure : "", posting.narration}});
        }
    file.read.clear();
    checked_ = std::move(file);
}

// The first row names the columns.
void IncomingFile::Take(std::vector<CsvRow> rows) {
    if (rows.empty()) return;
    heads_ = std::move(rows.front().fields);
    rows.erase(rows.begin());
    rows_ = std::move(rows);
}

const VoucherFile* IncomingFile::Vouchers() const {
    if (const auto* const journal = std::get_if<JournalImport>(&checked_)) return &journal->vouchers;
    return std::get_if<VoucherFile>(&checked_);
}

const Faults& IncomingFile::Faults() const {
    return std::visit([](const auto& file) -> const host::Faults& { return file.faults; }, checked_);
}

std::string IncomingFile::Size() const {
    if (const auto* const list = std::get_if<ImportFile>(&checked_))
        return Counted(list->rows.size(), source_.kind.substr(0, source_.kind.size() - 1));
    std::string size;
    if (const auto* const journal = std::get_if<JournalImport>(&checked_))
        size = Counted(journal->ledgers.size(), "new ledger") + ", " +
               Counted(journal->openings.size(), "changed opening") + ", ";
    return size + Counted(Vouchers()->vouchers.size(), "voucher") + ", " +
           Counted(Vouchers()->RowCount(), "row");
}

std::optional<Fault> IncomingFile::Write(qm::clQm& books, const CheckProgress& progress) const {
    if (const auto* const list = std::get_if<ImportFile>(&checked_)) return WriteImport(*list, progress);
    if (const auto* const journal = std::get_if<JournalImport>(&checked_))
        return WriteJournalImport(*journal, books, progress);
    const VoucherFile& vouchers = *Vouchers();
    const std::size_t all = vouchers.RowCount();
    return PostAtOnce(books, vouchers, basic::ToInteger(basic::Value(year_)),
                      [&](std::size_t done) {
                          progress(done, all);
                          return true;
                      })
        .failure;
}

}  // namespace host
