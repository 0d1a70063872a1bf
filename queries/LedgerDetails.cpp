#include "queries/LedgerDetails.h"

namespace queries {
namespace {

std::optional<double> Figure(const basic::Value& stored) {
    return stored.IsNull() ? std::nullopt : std::optional(basic::ToDouble(stored));
}

LedgerDetails Details(ado::Recordset& row) {
    LedgerDetails ledger;
    ledger.id = basic::ToLong(row["Ledger_ID"]);
    ledger.name = basic::TextOrEmpty(row["Name"]);
    ledger.group = basic::TextOrEmpty(row["PrimaryGrp"]);
    ledger.deleted = basic::ToBoolean(row["Deleted"]);
    ledger.openingBalance = Figure(row["Opening_Bal"]);
    ledger.side = qm::SideOfLetter(basic::TextOrEmpty(row["Bal_Type"]));
    ledger.debit = Figure(row["LedDetDRTxnTot"]);
    ledger.credit = Figure(row["LedDetCRTxnTot"]);
    ledger.closing = Figure(row["Closing_Bal"]);
    return ledger;
}

}  // namespace

double LedgerDetails::Opening() const {
    return openingBalance.value_or(0) * (side == qm::LedgerSide::Credit ? -1 : 1);
}

std::optional<double> LedgerDetails::ClosingBy(std::optional<double> debits,
                                               std::optional<double> credits) const {
    if (!side) return closing;
    if (!openingBalance || !debits || !credits) return std::nullopt;
    return Opening() + *debits - *credits;
}

std::vector<LedgerDetails> ReadDetails(Reading& books, LedgerOrder order) {
    const bool detailed = order == LedgerOrder::AsDetailed;
    const auto rows = books.Select(
        "Select Ledger_Master.Ledger_ID, Name, PrimaryGrp, Deleted, Opening_Bal, Bal_Type, LedDetDRTxnTot, "
        "LedDetCRTxnTot, Closing_Bal From " +
        std::string(detailed ? "Ledger_Details, Ledger_Master" : "Ledger_Master, Ledger_Details") +
        " Where Ledger_Master.Ledger_ID = Ledger_Details.Ledger_ID And Fnncl_Yr = " + books.Year() +
        (order == LedgerOrder::ByName ? " Order By Name" : ""));
    std::vector<LedgerDetails> ledgers;
    for (; !rows->Eof(); rows->MoveNext()) ledgers.push_back(Details(*rows));
    return ledgers;
}

}  // namespace queries
