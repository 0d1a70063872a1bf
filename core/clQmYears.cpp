// The year calls of the class.
#include "core/CarryForward.h"
#include "core/DBCode.h"
#include "core/ErrorModule.h"
#include "core/Quoting.h"
#include "core/clQm.h"
#include "core/modGeneral.h"
#include "platform/ado/Together.h"
#include "platform/basic/Text.h"

namespace qm {
namespace {

const char* const YearFields = "Select Fnncl_Yr_Id, Fnncl_Yr, Crrnt_Yr_Flg From Fnncl_Yr_Mstr Where ";

void SetFlag(const char* flag, const basic::Value& yearId) {
    Conn().Execute("Update Fnncl_Yr_Mstr Set Crrnt_Yr_Flg = " + std::string(flag) +
                   " Where Fnncl_Yr_Id = " + basic::ToText(yearId));
}

// What the flag does for one present current row: gives the year then current, "" for an unknown one.
std::string MoveFlag(ado::Recordset& current, const std::string& sFinYear) {
    const basic::Value year = current["Fnncl_Yr"];  // a Null equals no year
    const std::string present = basic::Left(basic::TextOrEmpty(year), 4);
    if (!year.IsNull() && present == sFinYear) return present;
    std::string moved;
    ado::Recordset wanted;
    wanted.Open(YearFields + std::string(" Left(Fnncl_Yr, 4) = ") + Quoted(sFinYear), shared().Connection,
                ado::adOpenForwardOnly, ado::adLockReadOnly);
    if (!wanted.Eof()) {
        SetFlag("False", current["Fnncl_Yr_Id"]);
        SetFlag("True", wanted["Fnncl_Yr_Id"]);
        moved = basic::Left(basic::ToText(wanted["Fnncl_Yr"]), 4);
    }
    wanted.Close();
    return moved;
}

}  // namespace

std::string clQm::SetGetFinancialYear(const std::string& sFinYear) {
    std::string result;
    try {
        ado::Recordset current;
        current.Open(YearFields + std::string("Crrnt_Yr_Flg"), shared().Connection, ado::adOpenForwardOnly,
                     ado::adLockReadOnly);
        for (; !current.Eof(); current.MoveNext()) result = MoveFlag(current, sFinYear);
        current.Close();
    } catch (const basic::Error& error) {
        LogError("ClQm", error);
    }
    return result;
}

// No transaction stands around the statements, and a failure ends the routine silently with what ran left
// done: a second call for one year doubles its rows and folds the old year again before it fails at the table
// that exists. Kept 18.
bool clQm::SetFinancialYear(const std::string& sFinYear) {
    SkipOnError([&] {
        if (basic::Len(sFinYear) > 9) return;
        const std::string from = basic::Left(sFinYear, 4), to = basic::Right(sFinYear, 4);
        if (basic::Trim(from).empty() || basic::Trim(to).empty()) return;
        const std::string longForm = "'" + from + "-" + to + "'";
        // Asks a field of short forms for the long form: no row ever matches. Kept 20.
        ado::Recordset rows;
        rows.Open("Select * From Ledger_Details Where Fnncl_Yr = " + longForm, shared().Connection,
                  ado::adOpenForwardOnly, ado::adLockReadOnly);
        if (!rows.Eof()) {
            Conn().Execute("Update Fnncl_Yr_Mstr Set Crrnt_Yr_Flg= 0 ");
            Conn().Execute("Update Fnncl_Yr_Mstr Set Crrnt_Yr_Flg=1 Where Fnncl_Yr = " + longForm);
        } else {
            // The copies take the old openings and totals; the fold below rewrites the old year's rows, not
            // the copies. Kept 19.
            Conn().Execute(
                "INSERT INTO Ledger_Details SELECT Ledger_ID as Ledger_ID, '" + from +
                "' As Fnncl_Yr, Opening_Bal, Closing_Bal, Bal_type, LedDetDRTxnTot, LedDetCRTxnTot  FROM "
                "Ledger_Details Where Fnncl_Yr = " +
                shared().FinYear);
            CarryForwardBalances();
            Conn().Execute("Update Fnncl_Yr_Mstr Set Crrnt_Yr_Flg = 0 ");
            Conn().Execute("Insert Into Fnncl_Yr_Mstr (Fnncl_Yr, Crrnt_Yr_Flg) Values(" + longForm + ",1 )");
            Conn().Execute("SELECT * INTO tb_Ledger" + from + " From tblsysLedgerstr");
        }
        rows.Close();
        LoadCurrentYear();
    });
    return false;
}

void clQm::CarryForwardBalances() {
    ado::Recordset rows;
    rows.Open("Select * From Ledger_Details Where Fnncl_Yr = " + shared().FinYear, shared().Connection,
              ado::adOpenForwardOnly, ado::adLockOptimistic);
    if (!rows.Eof() && !rows.Bof()) rows.MoveFirst();
    // The move stores the edit; a Null total raises. Kept 21.
    ado::Together(Conn(), [&] {
        for (; !rows.Eof(); rows.MoveNext())
            FoldTotals(rows, basic::ToDouble(rows["LedDetDRTxnTot"]),
                       basic::ToDouble(rows["LedDetCRTxnTot"]));
    });
    rows.Close();
}

}  // namespace qm
