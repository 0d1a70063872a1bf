#pragma once

#include <string>

// The pieces of which the page of the final results is made, tags as they are printed.
namespace resulttext {

inline std::string Period(const std::string& upto) {
    return "</tr><tr><td width='100%' colspan='4'><p align='center'><font size='4'><b>for the period "
           "ending " +
           upto + "</b></font></p><hr></td></tr><tr>";
}
inline const std::string Below =
    "</tr><tr><td width='100%' height='1' colspan='4'><hr></td></tr><tr>"
    "<td width='25%' height='12'></td><td width='25%' height='12'></td><td width='25%' height='12'></td>"
    "<td width='25%' height='12'></td></tr>";

// The first pair of captions stands without a blank before its alignment, the second with one.
inline std::string TradingHead(const std::string& upto = "30-Apr-2001") {
    return "<html><head><title>TRADING PROFIT</title></head><body><table width='100%' border = '0'>"
           "<tr><td width='100%' colspan='4' height='27'><p align='center'><font size='5'><b>TRADING PROFIT "
           "&amp; LOSS ACCOUNT</b></font></td>" +
           Period(upto) +
           "<td width='25%' height='31'align='lEFT'><b>Particulars</b></td>"
           "<td width='25%' height='31'align='Right'><b>Amount (Rs.)</b></td>"
           "<td width='25%' height='31' align='lEFT'><b>Particulars</b></td>"
           "<td width='25%' height='31' align='Right'><b>Amount (Rs.)</b></td>" +
           Below;
}
inline std::string BalanceHead(const std::string& upto = "30-Apr-2001") {
    return "<br><br><table width='100%'><tr><td width='100%' colspan='4' height='27'>"
           "<p align='center'><font size='5'><b>BALANCE SHEET</b></font></td>" +
           Period(upto) +
           "<td width='25%' height='31' align='lEFT'><b>Liabilities</b></td>"
           "<td width='25%' height='31' align='Right'><b>Amount (Rs.)</b></td>"
           "<td width='25%' height='31' align='lEFT'><b>Assets</b></td>"
           "<td width='25%' height='31' align='Right'><b>Amount (Rs.)</b></td>" +
           Below;
}
inline const std::string End = "</table></body></html>";

// A line of four cells; `trading` lines open otherwise than those of the Balance Sheet.
inline std::string Line(bool trading, const std::string& a, const std::string& b, const std::string& c,
                        const std::string& d) {
    return std::string("\r\n") + (trading ? "<tr><td colspan =1 align  = 'lEFT'>" : "<tr><td colspan =1>") +
           a + "</td><td colspan =1 align  = 'right'>" + b + "</td><td colspan =1 align  = 'lEFT'>" + c +
           "</td><td colspan =1 align  = 'right'>" + d + "</td></tr> ";
}
// One side of a line, the other left out as nought.
inline std::string LeftLine(bool trading, const std::string& particular, const std::string& amount) {
    return Line(trading, particular, amount, "", " ");
}
inline std::string RightLine(bool trading, const std::string& particular, const std::string& amount) {
    return Line(trading, "", "", particular, amount);
}

// The foot: rules as most of them are, and the totals between two of them.
inline const std::string Rules = "<tr><td></td><td><hr></td><td></td><td><hr></td></tr>";
inline std::string TotalsRow(const std::string& left, const std::string& right) {
    return "<tr><td></td><td align  = 'right'>" + left + "</td><td></td><td align  = 'right'>" + right +
           "</td></tr>";
}

}  // namespace resulttext
