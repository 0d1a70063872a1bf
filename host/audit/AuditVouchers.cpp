// The voucher rows of each year: the sides of a voucher agree to the paisa, its amounts are whole paise, its
// day lies in the year, its ledgers are known, the running totals are the rows' sums.
#include <cmath>

#include "host/audit/Audit.h"
#include "platform/basic/Number.h"

namespace host {
namespace {

using Id = std::int32_t;
using Kind = Subject::Kind;

// In paise, so that whole ones add up exactly however many there are.
struct Sides {
    long double debit = 0, credit = 0;
};

long double Paise(double amount) {
    if (AmountFault(amount).empty()) return std::round(amount * 100.0L);
    return std::round(amount * 1e8L) / 1e6L;  // 100.005 is just that, not the binary fraction below it
}

double InRupees(long double paise) {
    return static_cast<double>(paise / 100);
}

bool Agree(const Sides& sides) {
    return std::round(sides.debit) == std::round(sides.credit);
}

struct YearRows {
    std::map<Id, Sides> uneven;  // vouchers whose sides do not agree
    std::map<Id, Sides> byLedger, stockByLedger;
    std::map<Id, std::string> outside;  // the day of a voucher that lies in another year
};

std::string OfVoucher(Id voucher, const std::string& year) {
    return "voucher " + std::to_string(voucher) + " of " + year + ": ";
}

// The balance text keeps what the totals were when the row was posted, residues too: so they are notes.
void CheckAmounts(Audit& audit, const std::string& year, ado::Recordset& row, double debit, double credit) {
    const Subject voucher{Kind::Voucher, IdOf(row, "LedgerTrnNo"), year};
    const auto said = [&](const std::string& what, const std::string& fault) {
        return OfVoucher(voucher.number, year) + what + " of ledger " +
               std::to_string(IdOf(row, "LedgerCode")) + " " + fault;
    };
    for (const double amount : {debit, credit})
        if (const std::string fault = AmountFault(amount); !fault.empty())
            audit.Error(voucher, said("the amount " + Digits(amount), fault));
    const std::string balance = basic::TextOrEmpty(row["LedgerLedBal"]);
    if (const std::string fault = AmountFault(basic::PrefixValue(balance)); !fault.empty())
        audit.Note(voucher, said("the balance text " + balance, fault));
}

// One voucher after the other: of a long year only those are kept that say something.
YearRows ReadRows(Audit& audit, const std::string& year) {
    YearRows rows;
    Id voucher = 0;
    Sides ofVoucher;
    const auto close = [&] {
        if (!Agree(ofVoucher)) rows.uneven.emplace(voucher, ofVoucher);
        ofVoucher = {};
    };
    audit.Each(
        "Select LedgerTrnNo, LedgerCode, LedgerTxnDate, LedgerDrAmt, LedgerCrAmt, LedgerLedBal, "
        "LedgerMcGenerated From tb_Ledger" +
            year + " Order By LedgerTrnNo",
        [&](ado::Recordset& row) {
            const Id ledger = IdOf(row, "LedgerCode");
            if (const Id next = IdOf(row, "LedgerTrnNo"); next != voucher) {
                close();
                voucher = next;
            }
            const double debit = basic::NumberOrZero(row["LedgerDrAmt"]);
            const double credit = basic::NumberOrZero(row["LedgerCrAmt"]);
            const auto add = [&](Sides& sum) {
                sum.debit += Paise(debit);
                sum.credit += Paise(credit);
            };
            add(ofVoucher);
            add(rows.byLedger[ledger]);
            if (!basic::ToBoolean(row["LedgerMcGenerated"])) add(rows.stockByLedger[ledger]);
            CheckAmounts(audit, year, row, debit, credit);
            if (const std::string day = DayOutside(row["LedgerTxnDate"], year); !day.empty())
                rows.outside.emplace(voucher, day);
        });
    close();
    return rows;
}

void CheckSides(Audit& audit, const std::string& year, const YearRows& rows) {
    for (const auto& [voucher, sums] : rows.uneven)
        audit.PassingError({Kind::Voucher, voucher, year},
                           OfVoucher(voucher, year) + "debit " + Rupees(InRupees(std::round(sums.debit))) +
                               ", credit " + Rupees(InRupees(std::round(sums.credit))));
    for (const auto& [voucher, day] : rows.outside)
        audit.Error({Kind::Voucher, voucher, year},
                    OfVoucher(voucher, year) + "dated " + day + ", outside the year");
}

void CheckKnown(Audit& audit, const std::string& year, const YearRows& rows, const std::set<Id>& ledgers) {
    for (const auto& [ledger, sums] : rows.byLedger)
        if (!ledgers.contains(ledger))
            audit.Error({Kind::Lines, ledger, year},
                        "rows of " + year + ": ledger " + std::to_string(ledger) + " does not stand (debit " +
                            Rupees(InRupees(sums.debit)) + ", credit " + Rupees(InRupees(sums.credit)) + ")");
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
            const double ofDebit = InRupees(sums.debit), ofCredit = InRupees(sums.credit);
            if (!Differ(debit, ofDebit) && !Differ(credit, ofCredit)) return;
            const bool onlyStock = !Differ(debit, InRupees(sums.debit - stock.debit)) &&
                                   !Differ(credit, InRupees(sums.credit - stock.credit));
            audit.Note({Kind::Totals, ledger, year},
                       "totals of ledger " + std::to_string(ledger) + " in " + year + ": " +
                           (onlyStock ? "vouchers of the stock screens are not in the running totals ("
                                      : "they are not the sums of its rows until the next rebuild (") +
                           "totals " + Rupees(debit) + " and " + Rupees(credit) + ", rows " +
                           Rupees(ofDebit) + " and " + Rupees(ofCredit) + ")");
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
