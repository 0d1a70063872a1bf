#include "core/clQm.h"

#include "core/DBCode.h"
#include "core/GeneralUtils.h"
#include "core/Screens.h"
#include "core/modGeneral.h"
#include "platform/basic/Error.h"
#include "platform/basic/Text.h"

namespace qm {
namespace {

// Every list call hands the host an open record set, which the host closes. No order is asked for.
ado::RecordsetPtr OpenList(const std::string& sql, int options = ado::adCmdText) {
    auto rows = std::make_shared<ado::Recordset>();
    rows->Open(sql, shared().Connection, ado::adOpenForwardOnly, ado::adLockReadOnly, options);
    return rows;
}

}  // namespace

clQm::~clQm() {
    try {
        if (shared().Connection && shared().Connection->State() == ado::adStateOpen)
            shared().Connection->Close();
    } catch (const basic::Error&) {
        // A full disk, say. The host gave the class back and is not ended for it; what was written stays in
        // the books' log, and the next Open takes it in.
    }
    shared().Connection.reset();
}

void clQm::QmMainMenu() {
    ShowMainMenu();
}

const std::string& clQm::dataPath() const {
    return shared().DataPath;
}

void clQm::dataPath(const std::string& folder) {
    shared().DataPath = folder;
    if (!basic::Trim(folder).empty()) OpenConnection(BooksFile);
}

void clQm::StartDataConn() {
    OpenConnection(BooksFile);
    LoadCurrentYear();
}

bool clQm::FinYearValidate(basic::Date dt, std::int16_t Year) {
    return IsDateInFinYear(dt, Year);
}

// The condition is the host's own piece of SQL, appended as it stands.
ado::RecordsetPtr clQm::Ledgers(const std::string& sGrp) {
    if (basic::Trim(sGrp).empty()) return OpenList("Select Ledger_Id, Name From Ledger_Master");
    return OpenList(
        "Select Ledger_Master.Ledger_Id, Name From  Ledger_Master, Ledger_Details Where  "
        "(Ledger_Master.Ledger_Id = "
        "Ledger_Details.Ledger_Id  And Fnncl_Yr = " +
            shared().FinYear + ") And " + sGrp,
        ado::adHostCondition);
}

// Only this list and Ledgers with a condition leave out ledgers without a row in the year; none tests
// Deleted. Kept 16.
ado::RecordsetPtr clQm::GetSuppliers() {
    return OpenList(
        "Select Ledger_Master.Ledger_Id, Name, Ledger_Master.Deleted From  Ledger_Master, Ledger_Details "
        "Where "
        "Ledger_Master.Ledger_Id =  Ledger_Details.Ledger_Id And Fnncl_Yr = " +
        shared().FinYear +
        " And (Ledger_Master.PrimaryGrp =  'Suppliers' Or Ledger_Master.PrimaryGrp = 'Debtors')");
}

ado::RecordsetPtr clQm::GetPurchaseLedgers() {
    return OpenList("Select Ledger_ID, Name From Ledger_Master Where PrimaryGrp = 'Purchase'");
}

ado::RecordsetPtr clQm::GetDebitLedgers() {
    return OpenList(
        "Select Ledger_ID, Name From Ledger_Master Where PrimaryGrp In ('Cash In Hand', 'Bank', "
        "'Income(Direct)') ");
}

ado::RecordsetPtr clQm::GetCreditLedgers() {
    return OpenList("Select Ledger_ID, Name From Ledger_Master Where PrimaryGrp = 'Sales' ");
}

basic::Value clQm::GetVchrNoFromTxnNo(std::int32_t lTxnNo) {
    const auto numbers = FetchFirstColumn("Select ledgerVchrNo from tb_Ledger" + shared().FinYear +
                                          " Where ledgerTrnNo = " + std::to_string(lTxnNo));
    if (numbers.empty()) basic::Raise(basic::error::Subscript, "clQm");
    return numbers.front();
}

}  // namespace qm
