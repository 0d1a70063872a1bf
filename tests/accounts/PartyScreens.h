#pragma once

#include "reports/frmPartyLedger.h"
#include "tests/reports/ReportScreens.h"

// The pieces of which the texts of the statements and the trial balance are made, tags as they are printed.
namespace ledgertext {

inline const std::string Open =
    "<html><head><title></title></head><body><table border = '0' width='100%' style = 'font size = 12' "
    "cellspacing = '0' cellpadding =0 >";
inline const std::string End = "</table></body></html>";
inline const std::string Heads =
    "<tr><td width = '15%' height='31'><b>Date</b></td><td width = '25%' height='31'><b>Particulars</b></td>"
    "<td width = '10%' height='31'><b>TrnType</b></td><td width = '15%' height='31' align = 'right'><b>Dr. "
    "Amount</b></td><td width = '15%' height='31' align = 'right'><b>Cr. Amount</b></td><td width = '20%' "
    "height='31' align = 'right'><b>Balance</b></td></tr><tr><td width='100%' height='1' "
    "colspan='6'><hr></td></tr>";
inline const std::string Rule =
    "<tr><td></td><td></td><td></td><td colspan = '3' width = '100%'><hr></td></tr>";

inline std::string Begin(const std::string& name) {
    return "<tr><td width = '100%' colspan = '2'><b>" + name +
           "</b></td></tr><tr><td width='100%' colspan = '6'><hr></td></tr>" + Heads;
}
inline std::string Right(const std::string& text) {
    return "<td align = 'right'>" + text + "</td>";
}
inline std::string Row(const std::string& date, const std::string& narration, const std::string& type,
                       const std::string& debit, const std::string& credit, const std::string& balance) {
    return "<tr><td>" + date + "</td><td>" + narration + "</td><td>" + type + "</td>" + Right(debit) +
           Right(credit) + Right(balance) + "</tr>";
}
// The balance reads as it is printed: "100.00Dr " with its blank, "100.00Cr" without.
inline std::string Opening(const std::string& date, const std::string& balance) {
    const std::string amount = Right(balance.substr(0, balance.find_first_of("DC")));
    const std::string sides = balance.back() == ' ' ? amount + "<td></td>" : "<td></td>" + amount;
    return "<tr><td>" + date + "</td><td>Opening Balance</td><td></td>" + sides + Right(balance) +
           "<td></td></tr>";
}
inline std::string Further(const std::string& narration) {
    return "<tr><td>" + narration + "</td></tr>";
}
inline std::string Close(const std::string& debits, const std::string& credits, const std::string& balance) {
    return Rule + "<tr><td></td><td></td><td></td>" + Right(debits) + Right(credits) + Right(balance) +
           "</td>" + Rule + "<tr><td colspan = '6' width = '100%'><hr></td></tr>";
}

// The trial balance from its heading to its end: the from date, what the to date and the ledgers' rows are.
inline std::string Trial(const std::string& from, const std::string& upto, const std::string& rows,
                         const std::string& totals) {
    const std::string rule = "<tr><td></td><td></td><td colspan = '4' width = '100%' ><hr></td></tr>";
    return Open +
           "<tr><td width='100%' colspan='6' height='27'><p align='center'><font size='5'><b>Trial Balance"
           "</b></font></td></tr><tr><td width='100%' colspan='6'><p align='center'><font size='4'><b>(" +
           from + " To " + upto +
           ")</b></font></p><hr></td></tr><tr><td width='100%' colspan = '6'><hr></td></tr>"
           "<td width = '30%' height='31'><b>Particulars</b></td><td width = '10%' "
           "height='31'><b>Opening</b></td><td width = '15%' height='31' align = 'right'><b>Dr. Txn. "
           "Amount</b></td><td width = '15%' height='31' align = 'right'><b>Cr. Txn. Amount</b></td><td "
           "width = '15%' height='31' align = 'right'><b>Closing Dr.</b></td><td width = '15%' height='31' "
           "align = 'right'><b>Closing Cr.</b></td></tr><tr><td width='100%' height='1' "
           "colspan='6'><hr></td></tr>" +
           rows + rule + "<tr><td></td><td></td>" + totals + "</tr>" + rule + End;
}

}  // namespace ledgertext

// What the tests of the party ledger's screen share.
class PartyLedgerTest : public ReportScreensTest {
  protected:
    ~PartyLedgerTest() override {
        screen.Unload();
        forms::Default<qm::frmLedger>().SetFromDate({});  // other tests see the zero date
    }

    static void Post(int ledger, int day, const std::string& debit, const std::string& credit,
                     const std::string& narration = "'n'", const std::string& type = "Journal") {
        Run("Insert Into tb_Ledger2001 (LedgerTrnNo, LedgerCode, LedgerTxnDate, LedgerTrnType, LedgerDrAmt, "
            "LedgerCrAmt, LedgerNarration) Values (1, " +
            std::to_string(ledger) + ", " + Day(day) + ", '" + type + "', " + debit + ", " + credit + ", " +
            narration + ")");
    }
    void OpenScreen() {
        screen.Show();
        BringToFront(screen);
    }
    // The statements of all ledgers, in the order of their names.
    std::string Statements() {
        OpenScreen();
        Click(screen.ui().optDetail);
        Click(screen.ui().ucPartyLedger->ui().optAll);
        return Printed([&] { Click(screen.ui().ucPartyLedger->ui().cmdOk); });
    }
    std::string TrialBalance() {
        return Printed([&] {
            screen.ui().ucPartyLedger->ui().optAll->Click.Fire();
            Click(screen.ui().ucPartyLedger->ui().cmdOk);
        });
    }
    qm::frmPartyLedger& screen = forms::Default<qm::frmPartyLedger>();
};
