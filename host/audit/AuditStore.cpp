// The file: its pages, and bytes that are no text.
#include <algorithm>
#include <functional>
#include <optional>
#include <span>
#include <utility>

#include "host/audit/Audit.h"
#include "platform/ado/Maintenance.h"
#include "platform/basic/Text.h"

namespace host {
namespace {

using Kind = Subject::Kind;
using SubjectOf = std::function<Subject(ado::Recordset&, const std::string& year)>;

SubjectOf By(Kind kind, const char* number) {
    return [=](ado::Recordset& row, const std::string& year) {
        return Subject{kind, IdOf(row, number), year};
    };
}

// What shows the rows of a table; those of a year end in it. Nothing shows the rest.
const std::pair<const char*, SubjectOf> Tables[] = {
    {"tb_Ledger", By(Kind::Voucher, "LedgerTrnNo")},
    {"Ledger_Master", By(Kind::Ledger, "Ledger_ID")},
    {"tblItemLed", MovementOf},
    {"ItemMaster", By(Kind::Item, "Item_ID")},
    {"tblPO", By(Kind::Order, "poNumber")},
    {"tblPODet", By(Kind::Order, "PoDetPoNo")},
    {"tblBills",
     [](ado::Recordset&, const std::string& year) {
         return Subject{Kind::Bills, 0, year};
     }},
    {"Fnncl_Yr_Mstr", [](ado::Recordset&, const std::string&) { return Subject{Kind::Years}; }},
    {"tblError", [](ado::Recordset&, const std::string&) { return Subject{Kind::ErrorLog}; }},
    {"Ledger_Details",
     [](ado::Recordset& row, const std::string&) {
         return Subject{Kind::Ledger, IdOf(row, "Ledger_ID"), std::to_string(IdOf(row, "Fnncl_Yr"))};
     }},
    {"Group_Head_Master",
     [](ado::Recordset& row, const std::string&) {
         return IdOf(row, "Parent_Id") == 0 ? Subject{} : Subject{Kind::Ledger, IdOf(row, "Group_Id")};
     }},
};

// With a mark where bytes do not read.
std::string Readable(const std::string& text) {
    return basic::FromUtf16(basic::ToUtf16(text));
}

// What follows the stem in the table's name; none where it is another's.
std::optional<std::string> YearBehind(const std::string& stem, const std::string& table) {
    if (basic::FoldCase(table.substr(0, stem.size())) != basic::FoldCase(stem)) return {};
    const std::string year = table.substr(stem.size());
    return year.find_first_not_of("0123456789") == std::string::npos ? std::optional(year) : std::nullopt;
}

// The subject of each text, all of one table and in the order of its rows.
std::vector<Subject> SubjectsOf(Audit& audit, std::span<const ado::BadText> texts) {
    std::vector<Subject> subjects(texts.size());
    const std::string& table = texts.front().table;
    for (const auto& [stem, subjectOf] : Tables) {
        const auto year = YearBehind(stem, table);
        if (!year) continue;
        std::int64_t place = 0;
        std::size_t next = 0;
        audit.Each("Select * From " + table, [&](ado::Recordset& row) {
            for (++place; next < texts.size() && texts[next].row == place; ++next)
                if (Readable(basic::TextOrEmpty(row[texts[next].column])) == texts[next].text)
                    subjects[next] = subjectOf(row, *year);
        });
    }
    return subjects;
}

void CheckTexts(Audit& audit) {
    const std::vector<ado::BadText> all = ado::FindBadTexts(audit.Books());
    for (auto first = all.begin(); first != all.end();) {
        const auto end = std::find_if(first, all.end(),
                                      [&](const ado::BadText& text) { return text.table != first->table; });
        const std::vector<Subject> subjects = SubjectsOf(audit, {first, end});
        for (const Subject& subject : subjects) {
            audit.Error(subject, first->table + ", row " + std::to_string(first->row) + ": " + first->column +
                                     " '" + first->text + "' holds bytes that are no UTF-8");
            ++first;
        }
    }
}

}  // namespace

void AuditFile(Audit& audit) {
    for (const std::string& fault : ado::CheckIntegrity(audit.Books()))
        audit.Error({Kind::File}, "file: " + fault);
    if (audit.HasErrors()) return;
    CheckTexts(audit);
}

}  // namespace host
