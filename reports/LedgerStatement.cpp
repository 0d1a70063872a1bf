// Texts are compared and printed letter for letter, tags that do not match included. Kept 72.
#include "reports/LedgerStatement.h"

#include "core/DBCode.h"
#include "core/Masks.h"
#include "platform/basic/Format.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"

namespace qm {
namespace {

std::string Money(const basic::Value& amount) {
    return basic::Format(amount, ReportMask);
}

// The magnitude; nought is never below.
double Magnitude(double balance) {
    return balance > 0 ? balance : 0 - balance;
}

// A balance of nought reads "Cr". Kept 13.
std::string BalanceCell(double balance) {
    return "<td align = 'right'>" + Money(Magnitude(balance)) + (balance > 0 ? "Dr" : "Cr") + "</td>";
}

// The statement's columns and the rule below them.
constexpr const char* StatementHeads =
    "<td width = '15%' height='31'><b>Date</b></td><td width = '25%' height='31'><b>Particulars</b></td>"
    "<td width = '10%' height='31'><b>TrnType</b></td>"
    "<td width = '15%' height='31' align = 'right'><b>Dr. Amount</b></td>"
    "<td width = '15%' height='31' align = 'right'><b>Cr. Amount</b></td>"
    "<td width = '20%' height='31' align = 'right'><b>Balance</b></td>"
    "</tr><tr><td width='100%' height='1' colspan='6'><hr></td></tr>";

constexpr const char* StatementRule =
    "<tr><td></td><td></td><td></td><td colspan = '3' width = '100%'><hr></td></tr>";

// "Dr " has a blank behind it and "Cr" has none. Kept 74.
std::string OpeningRow(const std::string& date, double opening) {
    const std::string amount = Money(Magnitude(opening));
    return "<tr><td>" + date + "</td><td>Opening Balance</td><td></td>" +
           (opening > 0 ? "<td align = 'right'>" + amount + "</td><td></td><td align = 'right'>" + amount +
                              "Dr </td><td></td></tr>"
                        : "<td></td><td align = 'right'>" + amount + "</td><td align = 'right'>" + amount +
                              "Cr</td><td></td></tr>");
}

// What does not fit the line goes to a second and a third, which overlap by 35 characters: part of the form.
// Kept 75.
std::string Continuation(const std::string& narration) {
    std::string rows;
    if (basic::Len(narration) > 35) rows += "<tr><td>" + basic::Mid(narration, 36, 85) + "</td></tr>";
    if (basic::Len(narration) > 85) rows += "<tr><td>" + basic::Mid(narration, 86) + "</td></tr>";
    return rows;
}

}  // namespace

std::string LedgerStatement(const std::string& name, basic::Date from, double& opening, ado::Recordset& rs) {
    if (rs.Eof() && rs.Bof()) return "";
    std::string text;
    double& balance = opening;
    double debits = opening > 0 ? opening : 0, credits = opening > 0 ? 0 : 0 - opening;
    text += "<tr><td width = '100%' colspan = '2'><b>" + name +
            "</b></td></tr><tr><td width='100%' colspan = '6'><hr></td></tr>";
    text += "<tr>";
    text += StatementHeads;
    text += OpeningRow(basic::Format(from, DateMask), opening);
    for (; !rs.Eof(); rs.MoveNext()) {
        const std::string narration = basic::TextOrEmpty(rs["LedgerNarration"]);
        const basic::Value debit = rs["LedgerDrAmt"], credit = rs["LedgerCrAmt"];
        if (basic::NumberOrZero(debit) != 0)
            balance += basic::ToDouble(debit);
        else
            balance -= basic::ToDouble(credit);
        debits += basic::NumberOrZero(debit);
        credits += basic::NumberOrZero(credit);
        text += "<tr><td>" + basic::Format(DateNumber(rs["LedgerTxnDate"]), DateMask) + "</td><td>" +
                basic::Left(narration, 35) + "</td><td>" + basic::TextOrEmpty(rs["ledgertrntype"]) +
                "</td><td align = 'right'>" + Money(debit) + "</td><td align = 'right'>" + Money(credit) +
                "</td>" + BalanceCell(balance) + "</tr>" + Continuation(narration);
    }
    text += StatementRule;
    text += "<tr><td></td><td></td><td></td><td align = 'right'>" + Money(debits) +
            "</td><td align = 'right'>" + Money(credits) + "</td>" + BalanceCell(balance) + "</td>";
    text += StatementRule;
    text += "<tr><td colspan = '6' width = '100%'><hr></td></tr>";
    return text;
}

}  // namespace qm
