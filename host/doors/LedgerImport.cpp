#include "host/doors/LedgerImport.h"

#include <algorithm>

#include "core/DBCode.h"
#include "host/doors/VoucherCells.h"
#include "host/make/Fail.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"

namespace host {
namespace {

constexpr std::size_t Paise = 2;  // decimals of an amount
enum Column : std::size_t { Name, Group, Opening, Side, FirstDetail };

Column ColumnOf(qm::LedgerField field) {
    switch (field) {
        case qm::LedgerField::Name:
            return Name;
        case qm::LedgerField::Group:
            return Group;
        case qm::LedgerField::OpeningBal:
            return Opening;
        default:
            return Side;
    }
}

// The box's text without its line ends.
const std::string NameInUse = basic::Replace(qm::LedgerNameInUse, "\r\n\r\n", ". ");

qm::LedgerEntry EntryOf(CsvTable::Row& row) {
    qm::LedgerEntry entry{row.Text(Name), row.Text(Group), {}, {}, {}};
    std::string opening = row.Text(Opening), reason;
    if (!opening.empty()) entry.OpeningBal = ReadFigure(opening, Paise, reason);
    if (!reason.empty()) row.Blame(Opening, reason);
    const std::string side = row.Text(Side);
    entry.BalType = qm::SideOfLetter(ReadSide(side));
    if (!entry.BalType && !side.empty()) row.Blame(Side, Shown(side) + " is neither debit nor credit");
    // The screen's statement writes box 1 to the first detail, and so on: here each stands under its field.
    for (std::size_t box = 1; box < entry.Details.size(); ++box) {
        const std::size_t head = FirstDetail + box - 1;
        entry.Details[box] = row.Text(head);
        if (entry.Details[box].find('\'') != std::string::npos)
            row.Blame(head, "an apostrophe cannot stand in a ledger's details");
    }
    return entry;
}

}  // namespace

NewLedgers::NewLedgers() {
    const ado::RecordsetPtr rows =
        qm::ExecuteRecordset("Select Group_Id, Group_Head_Name, Parent_Id From Group_Head_Master");
    for (; !rows->Eof(); rows->MoveNext()) {
        const std::string name = basic::TextOrEmpty((*rows)["Group_Head_Name"]);
        taken_.emplace(basic::FoldCase(name), 0);
        const basic::Value parent = (*rows)["Parent_Id"];
        if (!parent.IsNull() && basic::ToLong(parent) == 0) groups_.emplace(basic::FoldCase(name), name);
        highest_ = std::max(highest_, static_cast<int>(basic::NumberOrZero((*rows)["Group_Id"])));
    }
    rows->Close();
}

const std::string* NewLedgers::PrimaryGroup(const std::string& name) const {
    const auto group = groups_.find(basic::FoldCase(name));
    return group == groups_.end() ? nullptr : &group->second;
}

std::string NewLedgers::GroupNames() const {
    std::string names;
    for (const auto& [folded, name] : groups_) names += (names.empty() ? "" : ", ") + name;
    return names;
}

// Of a name that the statements could not bear, or that is taken; "" for any other.
std::string NewLedgers::Refusal(const qm::LedgerEntry& entry) const {
    if (entry.Name.find_first_of("'\"") != std::string::npos)
        return "an apostrophe or a double quote cannot stand in a ledger's name";
    if (basic::EqualText(entry.Name, entry.GroupName)) return qm::LedgerNameIsGroup;
    const auto taken = taken_.find(basic::FoldCase(entry.Name));
    if (taken != taken_.end())
        return NameInUse + ": " + Shown(entry.Name) +
               (taken->second > 0 ? " stands in line " + std::to_string(taken->second) + " already"
                                  : " stands in the books");
    if (highest_ >= qm::HighestLedgerId)
        return "the books hold no more than " + std::to_string(qm::HighestLedgerId) + " groups and ledgers";
    return {};
}

bool NewLedgers::Check(qm::LedgerEntry& entry, int line, const Blame& blame) {
    const std::string given = entry.GroupName;
    const std::string* const group = PrimaryGroup(given);
    entry.GroupName = group ? *group : "";
    if (const auto missing = qm::MissingOf(entry)) {
        const bool unknown = missing->Field == qm::LedgerField::Group && !given.empty();
        blame(missing->Field,
              missing->Text +
                  (unknown ? ": " + Shown(given) + " is no primary group; the groups are " + GroupNames()
                           : ""));
        return false;
    }
    if (const std::string refusal = Refusal(entry); !refusal.empty()) {
        blame(qm::LedgerField::Name, refusal);
        return false;
    }
    taken_.emplace(basic::FoldCase(entry.Name), line);
    ++highest_;
    return true;
}

void AddLedger(const qm::LedgerEntry& entry) {
    if (qm::LedgerNameTaken(entry.Name)) Fail(NameInUse + ": " + Shown(entry.Name));
    qm::InsertLedger(entry);
}

const std::vector<Head>& LedgerHeads() {
    static const std::vector<Head> heads{{"name", true},
                                         {"group", true, "primarygrp"},
                                         {"opening", true, "opening_bal"},
                                         {"side", true, "bal_type"},
                                         {"company_name"},
                                         {"contact_person"},
                                         {"designation"},
                                         {"address1"},
                                         {"address2"},
                                         {"city"},
                                         {"tel1"},
                                         {"tel2"},
                                         {"pincode"},
                                         {"pager"},
                                         {"mobile"},
                                         {"email"},
                                         {"notes"}};
    return heads;
}

void CheckLedgers(CsvTable& table, qm::clQm&, ImportFile& file, const CheckProgress& progress) {
    NewLedgers ledgers;
    table.ForEach(
        [&](CsvTable::Row& row) {
            qm::LedgerEntry entry = EntryOf(row);
            if (!row.Whole()) return;
            if (ledgers.Check(entry, row.Line(), [&](qm::LedgerField field, const std::string& reason) {
                    row.Blame(ColumnOf(field), reason);
                }))
                file.rows.push_back({row.Line(), [entry] { AddLedger(entry); }});
        },
        progress);
}

}  // namespace host
