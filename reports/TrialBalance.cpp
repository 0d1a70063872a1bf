// Texts are compared and printed letter for letter, tags that do not match included. Kept 72.
#include "reports/TrialBalance.h"

#include "core/Masks.h"
#include "platform/basic/Format.h"
#include "platform/basic/Number.h"

namespace qm {
namespace {

std::string Money(const basic::Value& amount) {
    return basic::Format(amount, ReportMask);
}

constexpr const char* TrialHeads =
    "<td width = '30%' height='31'><b>Particulars</b></td><td width = '10%' height='31'><b>Opening</b></td>"
    "<td width = '15%' height='31' align = 'right'><b>Dr. Txn. Amount</b></td>"
    "<td width = '15%' height='31' align = 'right'><b>Cr. Txn. Amount</b></td>"
    "<td width = '15%' height='31' align = 'right'><b>Closing Dr.</b></td>"
    "<td width = '15%' height='31' align = 'right'><b>Closing Cr.</b></td>"
    "</tr><tr><td width='100%' height='1' colspan='6'><hr></td></tr>";

constexpr const char* TrialRule = "<tr><td></td><td></td><td colspan = '4' width = '100%' ><hr></td></tr>";

}  // namespace

// Nothing tests that the sides agree. Kept 80.
std::string TrialBalance(ado::Recordset& rs) {
    if (rs.Eof() && rs.Bof()) return "";
    std::string text;
    double debits = 0, credits = 0, closingDebits = 0, closingCredits = 0;
    text += "<tr><td width='100%' colspan = '6'><hr></td></tr>";
    text += TrialHeads;
    for (; !rs.Eof(); rs.MoveNext()) {
        const basic::Value debit = rs["leddetDrtxntot"], credit = rs["leddetCrtxntot"];
        debits += basic::NumberOrZero(debit);
        credits += basic::NumberOrZero(credit);
        text += "<tr><td>" + basic::TextOrEmpty(rs["Name"]) + "</td><td align = 'right'>" +
                basic::TextOrEmpty(rs["Opening_Bal"]) + basic::TextOrEmpty(rs["Bal_Type"]) +
                "</td><td align = 'right'>" + Money(debit) + "</td><td align = 'right'>" + Money(credit) +
                "</td>";
        // A Null one, of a ledger that nothing was ever posted to, is an empty credit cell.
        const basic::Value stored = rs["closing_Bal"];
        const double closing = basic::NumberOrZero(stored);
        const double magnitude = closing > 0 ? closing : 0 - closing;  // nought is never below
        (closing > 0 ? closingDebits : closingCredits) += magnitude;
        text += (closing > 0 ? "<td align = 'right'>" : "<td></td><td align = 'right'>") +
                (stored.IsNull() ? "" : Money(magnitude)) + "</td></tr>";
    }
    text += TrialRule;
    text += "<tr><td></td><td></td><td align = 'right'>" + Money(debits) + "</td><td align = 'right'>" +
            Money(credits) + "</td><td align = 'right'>" + Money(closingDebits) +
            "</td><td align = 'right'>" + Money(closingCredits) + "</td></tr>";
    text += TrialRule;
    return text;
}

}  // namespace qm
