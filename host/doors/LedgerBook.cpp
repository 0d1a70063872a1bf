#include "host/doors/LedgerBook.h"

#include <iterator>

#include "host/doors/VoucherCells.h"
#include "platform/basic/Text.h"

namespace host {

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

void LedgerBook::Expect(const std::string& name) {
    const int id = -static_cast<int>(++expected_);
    byId_.emplace(id, Entry{0, name});
    byFoldedName_.emplace(basic::FoldCase(name), id);
}

const LedgerBook::Entry* LedgerBook::Find(const std::string& cell, std::string& reason) const {
    const std::string text = basic::Trim(cell);
    const auto [from, to] = byFoldedName_.equal_range(basic::FoldCase(text));
    if (from != to && std::next(from) == to) return &byId_.at(from->second);
    if (from != to) {
        reason = "two ledgers are named " + Shown(text) + "; give the number";
        return nullptr;
    }
    if (!text.empty() && text.find_first_not_of("0123456789") == std::string::npos && text.size() < 10) {
        const auto found = byId_.find(std::stoi(text));
        if (found != byId_.end()) return &found->second;
    }
    reason = "the year has no ledger " + Shown(text);
    return nullptr;
}

}  // namespace host
