#include "reports/FinalResults.h"

#include "core/Masks.h"
#include "core/modGeneral.h"
#include "platform/ado/AddRow.h"
#include "platform/ado/Together.h"
#include "platform/basic/Format.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"

namespace qm {
namespace {

constexpr const char* GrossLoss = "Gross Loss B/F";
constexpr const char* GrossProfit = "Gross Profit B/F";
constexpr const char* Rules = "<tr><td></td><td><hr></td><td></td><td><hr></td></tr>";

struct Totals {
    double Dr = 0, Cr = 0;
};

std::string Money(double amount) {
    return basic::Format(amount, ReportMask);
}

std::string Particular(const basic::Value& text) {
    return text.IsNull() ? " " : basic::Trim(basic::ToText(text));
}

// What reads as nought is left out: the first amount of a line as an empty text, the second as a blank.
std::string Amount(const basic::Value& amount, const char* nought) {
    const std::string shown = basic::Format(amount, ReportMask);
    return shown == Money(0) ? nought : shown;
}

std::string Line(const char* firstCell, const std::string& left, const std::string& leftAmount,
                 const std::string& right, const std::string& rightAmount) {
    return firstCell + left + "</td><td colspan =1 align  = 'right'>" + leftAmount +
           "</td><td colspan =1 align  = 'lEFT'>" + right + "</td><td colspan =1 align  = 'right'>" +
           rightAmount + "</td></tr> ";
}

std::string LiabilityAndAsset(ado::Recordset& line) {
    return Line("<tr><td colspan =1>", Particular(line["ParticularCr"]), Amount(line["amtCr"], ""),
                Particular(line["ParticularDr"]), Amount(line["amtdr"], " "));
}

// The gross line stands at the foot of the section before, and is not printed again. A Null particular keeps
// a line from being printed too. Kept 78.
std::string DebitAndCredit(ado::Recordset& line) {
    const basic::Value debit = line["ParticularDr"], credit = line["ParticularCr"];
    if (debit.IsNull() || credit.IsNull() || basic::ToText(debit) == GrossLoss ||
        basic::ToText(credit) == GrossProfit)
        return "";
    return Line("<tr><td colspan =1 align  = 'lEFT'>", Particular(debit), Amount(line["amtdr"], ""),
                Particular(credit), Amount(line["amtCr"], " "));
}

// The result's line in the next statement: particular and amount of the one side, then of the other.
void HandOn(const std::string& values) {
    Conn().Execute("Insert Into tblsysTpl (particularDr,AmtDr,particularCr,AmtCr,type) Values (" + values +
                   ")");
}

std::string TotalsRow(const char* before, double left, double right) {
    return "<tr><td>" + std::string(before) + Money(left) + "</td><td></td><td align  = 'right'>" +
           Money(right) + "</td></tr>";
}
constexpr const char* Plain = "</td><td align  = 'right'>";

std::string GrossLossFoot(const Totals& totals) {
    const double loss = totals.Dr - totals.Cr;
    HandOn("'Gross Loss B/F'," + basic::NumberText(loss) + ", ' ', 0,'P'");
    return "<tr><td></td><td></td><td><u>Gross Loss : </u></td> <td align  = 'right'>" + Money(loss) +
           "</td></tr><tr><td></td><td><hr></td><td></td><td><hr></td></tr>" +
           TotalsRow(" </td><td align  = 'right'> ", totals.Dr, totals.Cr + loss) + Rules +
           "<tr><td align = 'lEFT'>Gross Loss B/F</td><td align = 'right'>" + Money(loss) +
           "</td><td><td></td></td></tr>";
}

// The tag "ht" is none: it has always stood there. Kept 72.
std::string GrossProfitFoot(const Totals& totals) {
    const double profit = totals.Cr - totals.Dr;
    HandOn("' ',0 , 'Gross Profit B/F'," + basic::NumberText(profit) + ",'P'");
    return "<tr><td><u>Gross Profit</u></td><td align  = 'right'>" + Money(profit) +
           "</td></tr><tr><td></td><td><hr></td><td></td><td><ht></td></tr>" +
           TotalsRow(Plain, profit + totals.Dr, totals.Cr) + Rules +
           "<tr><td></td><td></td><td align = 'lEFT'>Gross Profit B/F</td><td align = 'right'>" +
           Money(profit) + "</td></tr>";
}

// Printed on the left, though the excess of debits is balanced on the right. Kept 76.
std::string NetLossFoot(const Totals& totals) {
    const double loss = totals.Dr - totals.Cr;
    HandOn("'Net Loss Trf From P & L'," + basic::NumberText(loss) + ", ' ', 0,'B'");
    return "<tr><td><u>Net Loss  </u></td><td align  = 'right'>" + Money(loss) +
           "</td></tr><tr><td></td><td><hr></td><td></td> <td><hr></td></tr>" +
           TotalsRow(Plain, totals.Dr, loss + totals.Cr) + Rules;
}

std::string NetProfitFoot(const Totals& totals) {
    const double profit = totals.Cr - totals.Dr;
    HandOn("' ',0 , 'Net Profit Trf From P & L'," + basic::NumberText(profit) + ",'B'");
    return "<tr><td><u>Net Profit</u></td><td align  = 'right'>" + Money(profit) + "</td></tr>" + Rules +
           TotalsRow(Plain, profit + totals.Dr, totals.Cr) +
           "<tr><td></td><td><hr></td> <td></td><td><hr></td></tr>";
}

// A difference is no error: it is a line on the short side, both totals then read alike, and no entry is made
// anywhere. One under the second decimal is made up for without a line. Kept 77.
std::string BalanceFoot(Totals totals) {
    const auto both = [&totals] { return TotalsRow(Plain, totals.Cr, totals.Dr); };
    if (totals.Dr == totals.Cr)
        return "<tr><td></td><td><hr></td><td></td><td><hr></td></td>" + both() + Rules;
    const double roundedDr = basic::Round(totals.Dr, 2), roundedCr = basic::Round(totals.Cr, 2);
    std::string foot;
    if (roundedDr > roundedCr) {
        foot = "<tr><td><u>Difference In Opening</u></td><td align  = 'right'>" +
               Money(totals.Dr - totals.Cr) + "</td></tr>";
        totals.Cr = (totals.Dr - totals.Cr) + totals.Cr;
        return foot + "<tr><td></td><td><hr></td><td></td> <td><hr></td></tr>" + both() +
               "<tr><td></td><td><hr></td><td></td><td><hr> </td></tr>";
    }
    if (roundedDr < roundedCr)
        foot = "<tr><td></td><td></td><td><u>Difference In Opening</u></td><td align  = 'right'>" +
               Money(totals.Cr - totals.Dr) + "</td></tr>";
    totals.Dr = (totals.Cr - totals.Dr) + totals.Dr;
    return foot + Rules + both() + "<tr><td></td><td><hr></td><td></td><td><hr><td> </tr>";
}

std::string Foot(char section, const Totals& totals) {
    switch (section) {
        case 'T':
            return totals.Dr > totals.Cr ? GrossLossFoot(totals) : GrossProfitFoot(totals);
        case 'P':
            return totals.Dr > totals.Cr ? NetLossFoot(totals) : NetProfitFoot(totals);
        default:
            return BalanceFoot(totals);
    }
}

void Open(ado::Recordset& lines, const char* sql) {
    lines.Open(sql, shared().Connection, ado::adOpenForwardOnly, ado::adLockReadOnly, ado::adCmdText);
}

std::string HeadCell(const char* tag, const char* caption) {
    return std::string("<td width='25%' height='31'") + tag + "><b>" + caption + "</b></td>";
}

// The rows below the captions of a statement's columns.
constexpr const char* BelowHeads =
    "</tr><tr><td width='100%' height='1' colspan='4'><hr></td></tr><tr><td width='25%' height='12'></td>"
    "<td width='25%' height='12'></td><td width='25%' height='12'></td><td width='25%' "
    "height='12'></td></tr>";

void AddTemplateRows(ado::Recordset& ledgers) {
    ado::Recordset lines;
    lines.Open("tblsysTPL", shared().Connection, ado::adOpenDynamic, ado::adLockOptimistic, -1);
    lines.Close();  // nobody looks through it at what is added
    ado::Together(Conn(), [&] {
        for (; !ledgers.Eof(); ledgers.MoveNext()) {
            const double closing = basic::ToDouble(ledgers["closing_Bal"]);
            const bool debit = closing > 0;
            // The other side keeps its defaults.
            ado::AddRow(Conn(), "tblsysTPL",
                        {{debit ? "ParticularDr" : "ParticularCr", ledgers["Name"]},
                         {debit ? "amtdr" : "amtCr", debit ? closing : -closing},
                         {"Type", ledgers["grpType"]}});
        }
    });
}

}  // namespace

void FinalResults::BuildResults() {
    ado::Recordset groups;
    groups.Open("Select * from group_head_master  Where Parent_id =0", shared().Connection,
                ado::adOpenDynamic, ado::adLockOptimistic, -1);
    for (; !groups.Eof(); groups.MoveNext()) {
        const ado::RecordsetPtr ledgers = Conn().Execute(
            "Select name ,'" + basic::TextOrEmpty(groups["grpType"]) +
            "' as grpType , closing_bal  from ledger_details, Ledger_master where fnncl_yr = " +
            shared().FinYear + " and  ledger_details.ledger_id = Ledger_master.ledger_id and primarygrp= '" +
            basic::TextOrEmpty(groups["Group_head_name"]) + "' And closing_bal<>0");
        AddTemplateRows(*ledgers);
    }
}

std::string FinalResults::Period() const {
    return "</tr><tr><td width='100%' colspan='4'><p align='center'><font size='4'><b>for the period "
           "ending " +
           basic::Format(upto_, DateMask) + "</b></font></p><hr></td></tr><tr>";
}

// Each line of the set ends a line of the text, printed or not.
std::string FinalResults::PrintSection(char section, ado::Recordset& lines) {
    Totals totals;
    std::string text;
    for (; !lines.Eof(); lines.MoveNext()) {
        text += "\r\n";
        text += section == 'B' ? LiabilityAndAsset(lines) : DebitAndCredit(lines);
        totals.Dr += basic::ToDouble(lines["amtdr"]);
        totals.Cr += basic::ToDouble(lines["amtCr"]);
    }
    return text + Foot(section, totals);
}

// Without a line of trading or of profit and loss the page is the Balance Sheet alone, and no document is
// begun.
std::string FinalResults::PrintResults() const {
    ado::Recordset trading, profit, balance;
    Open(trading, "Select * from tblsysTpl where Type ='T'");
    Open(profit, "Select * from tblsysTpl where Type ='P'");
    Open(balance, "Select * from tblsysTpl where Type ='B'");
    std::string page;
    if (!trading.Eof() || !profit.Eof()) {
        page =
            "<html><head><title>TRADING PROFIT</title></head><body><table width='100%' border = '0'>"
            "<tr><td width='100%' colspan='4' height='27'><p align='center'><font size='5'><b>TRADING "
            "PROFIT &amp; LOSS ACCOUNT</b></font></td>" +
            Period() + HeadCell("align='lEFT'", "Particulars") + HeadCell("align='Right'", "Amount (Rs.)") +
            HeadCell(" align='lEFT'", "Particulars") + HeadCell(" align='Right'", "Amount (Rs.)") +
            BelowHeads;
        page += PrintSection('T', trading);
        profit.Requery();
        page += PrintSection('P', profit) + "</table>";
        balance.Requery();
    }
    page +=
        "<br><br><table width='100%'><tr><td width='100%' colspan='4' height='27'><p align='center'>"
        "<font size='5'><b>BALANCE SHEET</b></font></td>" +
        Period() + HeadCell(" align='lEFT'", "Liabilities") + HeadCell(" align='Right'", "Amount (Rs.)") +
        HeadCell(" align='lEFT'", "Assets") + HeadCell(" align='Right'", "Amount (Rs.)") + BelowHeads;
    return page + PrintSection('B', balance) + "</table></body></html>";
}

}  // namespace qm
