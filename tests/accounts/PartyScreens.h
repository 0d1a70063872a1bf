#pragma once

#include "reports/frmPartyLedger.h"
#include "tests/reports/ReportScreens.h"
#include "tests/support/Golden.h"

// What the tests of the party ledger's screen share.
class PartyLedgerTest : public ReportScreensTest {
  protected:
    PartyLedgerTest() { forms::Default<qm::frmLedger>().SetFromDate({}); }  // the zero date, as at first
    ~PartyLedgerTest() override {
        screen.Unload();
        forms::Default<qm::frmLedger>().SetFromDate({});
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
