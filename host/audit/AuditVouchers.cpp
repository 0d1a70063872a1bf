// The voucher rows of each year: the sides of a voucher agree, its ledgers are known, the running totals are
// the rows' sums.
#include "host/audit/Audit.h"

namespace host {
namespace {

using Id = std::int32_t;

struct Sides {
    double debit = 0, credit = 0;
};

struct YearRows {
    std::map<Id, Sides> byVoucher, byLedger, stockByLedger;
    std::map<Id, int> stockVouchers;  // voucher numbers that a stock screen posted
};

YearRows ReadRows(Audit& audit, const std::string& year) {
    YearRows rows;
    audit.Each(
        "Select LedgerTrnNo, LedgerCode, LedgerDrAmt, LedgerCrAmt, LedgerMcGenerated From tb_Ledger" + year,
        [&](ado::Recordset& row) {
            const Id voucher = IdOf(row, "LedgerTrnNo"), ledger = IdOf(row, "LedgerCode");
            const bool ofStock = !basic::ToBoolean(row["LedgerMcGenerated"]);
            const Sides amounts{basic::NumberOrZero(row["LedgerDrAmt"]),
                                basic::NumberOrZero(row["LedgerCrAmt"])};
            const auto add = [&](Sides& sum) {
                sum.debit += amounts.debit;
                sum.credit += amounts.credit;
            };
            add(rows.byVoucher[voucher]);
            add(rows.byLedger[ledger]);
            if (ofStock) {
                add(rows.stockByLedger[ledger]);
                ++rows.stockVouchers[voucher];
            }
        });
    return rows;
}

void CheckSides(Audit& audit, const std::string& year, const YearRows& rows) {
    for (const auto& [voucher, sums] : rows.byVoucher)
        if (Differ(sums.debit, sums.credit))
            audit.Error("voucher " + std::to_string(voucher) + " of " + year + ": debit " +
                        Rupees(sums.debit) + ", credit " + Rupees(sums.credit));
}

void CheckKnown(Audit& audit, const std::string& year, const YearRows& rows, const std::set<Id>& ledgers) {
    for (const auto& [ledger, sums] : rows.byLedger)
        if (!ledgers.contains(ledger))
            audit.Error("rows of " + year + ": ledger " + std::to_string(ledger) + " does not stand (debit " +
                        Rupees(sums.debit) + ", credit " + Rupees(sums.credit) + ")");
}

Sides SumOf(const std::map<Id, Sides>& sums, Id ledger) {
    const auto found = sums.find(ledger);
    return found == sums.end() ? Sides{} : found->second;
}

// The rebuild puts totals right for ledgers with rows, the final results also for those without: so these are
// notes.
void CheckTotals(Audit& audit, const std::string& year, const YearRows& rows) {
    audit.Each(
        "Select Ledger_ID, LedDetDRTxnTot, LedDetCRTxnTot From Ledger_Details Where Fnncl_Yr = " + year,
        [&](ado::Recordset& row) {
            const Id ledger = IdOf(row, "Ledger_ID");
            const double debit = basic::NumberOrZero(row["LedDetDRTxnTot"]);
            const double credit = basic::NumberOrZero(row["LedDetCRTxnTot"]);
            const Sides sums = SumOf(rows.byLedger, ledger), stock = SumOf(rows.stockByLedger, ledger);
            if (!Differ(debit, sums.debit) && !Differ(credit, sums.credit)) return;
            const bool onlyStock =
                !Differ(debit, sums.debit - stock.debit) && !Differ(credit, sums.credit - stock.credit);
            audit.Note("totals of ledger " + std::to_string(ledger) + " in " + year + ": " +
                       (onlyStock ? "vouchers of the stock screens are not in the running totals ("
                                  : "they are not the sums of its rows until the next rebuild (") +
                       "totals " + Rupees(debit) + " and " + Rupees(credit) + ", rows " + Rupees(sums.debit) +
                       " and " + Rupees(sums.credit) + ")");
        });
}

}  // namespace

void AuditVouchers(Audit& audit) {
    std::set<Id> ledgers;
    audit.Each("Select Ledger_ID From Ledger_Master",
               [&](ado::Recordset& row) { ledgers.insert(IdOf(row, "Ledger_ID")); });
    for (const std::string& year : audit.Years()) {
        const YearRows rows = ReadRows(audit, year);
        CheckSides(audit, year, rows);
        CheckKnown(audit, year, rows, ledgers);
        CheckTotals(audit, year, rows);
    }
}

}  // namespace host
