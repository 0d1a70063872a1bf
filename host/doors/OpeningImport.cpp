#include "host/doors/OpeningImport.h"

#include <optional>

#include "core/DBCode.h"
#include "core/LedgerRows.h"
#include "core/modGeneral.h"
#include "host/doors/VoucherCells.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Format.h"
#include "platform/basic/Number.h"

namespace host {
namespace {

constexpr std::size_t Paise = 2;  // decimals of an amount
enum Column : std::size_t { Ledger, Opening, Side };

std::string SumOf(const char* side) {
    const auto sum = qm::FetchFirstColumn("Select Sum(Opening_Bal) From Ledger_Details Where Fnncl_Yr = " +
                                          qm::shared().FinYear + " And Bal_Type = '" + side + "'");
    return basic::Format(basic::NumberOrZero(sum.front()), "0.00");
}

}  // namespace

NewOpenings::NewOpenings() {
    for (const basic::Value& id : qm::FetchFirstColumn(
             "Select Ledger_ID From Ledger_Details Where Fnncl_Yr <> " + qm::shared().FinYear))
        elsewhere_.insert(basic::ToLong(id));
}

std::string NewOpenings::Refusal(const LedgerBook::Entry& ledger, int line) {
    const auto [named, isNew] = lines_.emplace(ledger.id, line);
    if (!isNew)
        return "the opening of " + Shown(ledger.name) + " stands in line " + std::to_string(named->second) +
               " already";
    if (elsewhere_.contains(ledger.id))
        return Shown(ledger.name) +
               " stands in other years, too, and their rows would be lost: an opening can be brought in only "
               "in a ledger's first year";
    return {};
}

const std::vector<Head>& OpeningHeads() {
    static const std::vector<Head> heads{
        {"ledger", true, "name"}, {"opening", true, "opening_bal"}, {"side", true, "bal_type"}};
    return heads;
}

void CheckOpenings(CsvTable& table, qm::clQm& books, ImportFile& file, const CheckProgress& progress) {
    const LedgerBook ledgers(books);
    NewOpenings openings;
    table.ForEach(
        [&](CsvTable::Row& row) {
            std::string reason;
            const LedgerBook::Entry* const ledger = ledgers.Find(row.Text(Ledger), reason);
            if (ledger) reason = openings.Refusal(*ledger, row.Line());
            if (!reason.empty() && row.Whole()) row.Blame(Ledger, reason);
            reason.clear();
            const std::string cell = row.Text(Opening);
            const std::string opening = cell.empty() ? "" : ReadFigure(cell, Paise, reason);
            if (cell.empty()) reason = qm::OpeningMissing;
            if (!reason.empty()) row.Blame(Opening, reason);
            const std::string side = row.Text(Side);
            const std::optional<qm::LedgerSide> letter = qm::SideOfLetter(ReadSide(side));
            if (!letter)
                row.Blame(Side, side.empty() ? qm::BalanceTypeMissing
                                             : Shown(side) + " is neither debit nor credit");
            if (!row.Whole()) return;
            file.rows.push_back({row.Line(), [id = std::to_string(ledger->id), opening, type = *letter] {
                                     qm::WriteOpeningBalance(id, opening, type);
                                 }});
        },
        progress);
}

OpeningSums SumOpenings() {
    return {SumOf("D"), SumOf("C")};
}

std::string OpeningsText() {
    const OpeningSums sums = SumOpenings();
    return "the openings of " + qm::shared().FinYear +
           (sums.Agree() ? " agree: " + sums.debit + " on either side"
                         : " differ: debit " + sums.debit + ", credit " + sums.credit);
}

}  // namespace host
