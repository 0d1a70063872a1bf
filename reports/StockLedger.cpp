// Texts are compared and printed letter for letter, tags that do not match included. Kept 72.
#include "reports/StockLedger.h"

#include "core/DBCode.h"
#include "core/Masks.h"
#include "platform/basic/Format.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"

namespace qm {
namespace {

std::string Quantity(const basic::Value& quantity) {
    return basic::Format(quantity, ReportMask);
}

constexpr const char* Heads =
    "<tr><td width = '10%' height='31'><b>Date</b></td><td width = '25%' height='31'><b>Particulars</b></td>"
    "<td width = '10%' height='31'><b>TrnType</b></td>"
    "<td width = '15%' height='31' align = 'right'><b>Landing Cost</b></td>"
    "<td width = '10%' height='31' align = 'right'><b>Receipt Qty.</b></td>"
    "<td width = '10%' height='31' align = 'right'><b>Issue Qty.</b></td>"
    "<td width = '10%' height='31' align = 'right'><b>Balance Qty.</b></td>"
    "</tr><tr><td width='100%' height='1' colspan='8'><hr></td></tr>";

// The overlap from 91 to 135 and the end tag of a cell that was never begun are part of the form. Kept 75.
std::string Continuation(const std::string& note) {
    std::string rows;
    if (basic::Len(note) > 45) rows += "<tr><td>" + basic::Mid(note, 46, 90) + "</td></tr>";
    if (basic::Len(note) > 90) rows += "<tr></td>" + basic::Mid(note, 91) + "</td></tr>";
    return rows;
}

}  // namespace

// A Null note is a failure, and so is a Null receipt quantity of a row that is no issue.
std::string StockLedger(std::int16_t itemId, const std::string& name, basic::Date from, double& opening,
                        ado::Recordset& rs) {
    if (rs.Eof() && rs.Bof()) return "";
    std::string text;
    double& balance = opening;
    double received = opening, issued = 0;
    text += "<tr><td width = '100%' colspan = '2'><b>Item Code: " + std::to_string(itemId) +
            "</b></td><td width = '100%' colspan = '3'><b>Item: " + name +
            "</b></td><td width = '100%' colspan = '3'><b>Unit Price: " +
            basic::TextOrEmpty(rs["ItemLedUnitPrice"]) +
            "</b></td></tr><tr><td width='100%' colspan = '8'><hr></td></tr>";
    text += Heads;
    text += "<tr><td>" + basic::Format(from, DateMask) +
            "</td><td>Opening Balance</td><td></td><td></td><td align = 'right'>" + Quantity(opening) +
            "</td><td></td></tr>";
    for (; !rs.Eof(); rs.MoveNext()) {
        const std::string note = basic::ToText(rs["ItemLedNote"]);
        const std::string type = basic::TextOrEmpty(rs["itemledtrntype"]);
        const basic::Value in = rs["ItemLedTrnRptQty"], out = rs["itemledtrnIssqty"];
        if (type == "Issue")
            balance -= basic::ToDouble(out);
        else
            balance += basic::ToDouble(in);
        received += basic::NumberOrZero(in);
        issued += basic::NumberOrZero(out);
        text += "<tr><td>" + basic::Format(DateNumber(rs["ItemLedTrnDate"]), DateMask) + "</td><td>" +
                basic::Left(note, 45) + "</td><td>" + type + "</td><td align = 'right'>" +
                (type == "Receipt" ? basic::TextOrEmpty(rs["ItemLandingCost"]) : "") +
                "</td><td align = 'right'>" + Quantity(in) + "</td><td align = 'right'>" + Quantity(out) +
                "</td><td align = 'right'>" + Quantity(balance) + "</td></tr>" + Continuation(note);
    }
    text += "<tr><td></td><td></td><td></td><td></td><td colspan = '4' width = '100%''><hr></td></tr>";
    text += "<tr><td></td><td></td><td></td><td></td><td align = 'right'>" + Quantity(received) +
            "<td align = 'right'>" + Quantity(issued) + "</td><td width = '100%' align = 'right'>" +
            Quantity(balance) + "</td></tr>";
    text += "<tr><td></td><td></td><td></td><td></td><td colspan = '4' width = '100%'><hr></td></tr>";
    text += "<tr><td colspan = '8' width = '100%'><hr></td></tr>";
    return text;
}

}  // namespace qm
