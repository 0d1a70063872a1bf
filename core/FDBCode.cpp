#include "core/FDBCode.h"

#include "core/CountedExecution.h"
#include "core/DBCode.h"
#include "core/ErrorModule.h"
#include "core/Quoting.h"
#include "core/modGeneral.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Number.h"

namespace qm {
namespace {

// Any other code leaves the statement short of a value, and it fails. Kept 3.
std::string TypeWord(std::int32_t typeCode) {
    switch (typeCode) {
        case Journal:
            return "\"Journal\", ";
        case Payment:
            return "\"Payment\", ";
        case Receipt:
            return "\"Receipt\", ";
        case Contra:
            return "\"Contra\", ";
        default:
            return "";
    }
}

std::string Amounts(std::int32_t sideCode, double amount) {
    switch (sideCode) {
        case Debit:
            return basic::NumberText(amount) + ", 0";
        case Credit:
            return "0, " + basic::NumberText(amount);
        default:
            return "";
    }
}

}  // namespace

std::int32_t PostVoucherRow(std::int32_t voucherNo, const basic::Value& date, std::int32_t typeCode,
                            std::int32_t sideCode, const std::string& narration, double amount,
                            std::int32_t ledgerCode, const std::string& ledgerName) {
    try {
        const std::string sql = "Insert Into tb_Ledger" + shared().FinYear +
                                " (LedgerTrnNo, LedgerCode, LedgerName, LedgerTxnDate, LedgerNarration, "
                                "LedgerTrnType, LedgerDrAmt, "
                                "LedgerCrAmt   ) Values (" +
                                basic::NumberText(voucherNo) + ", " + basic::NumberText(ledgerCode) + ", " +
                                Quoted(ledgerName) + ", " + basic::TextOrEmpty(DateNumber(date)) + ", " +
                                Quoted(narration) + ", " + TypeWord(typeCode) + Amounts(sideCode, amount) +
                                ")";
        Conn().BeginTrans();
        const std::int64_t count = Affected(sql);
        Conn().CommitTrans();  // also when no record was affected
        return count > 0 ? voucherNo : 0;
    } catch (const basic::Error& error) {
        RollbackOpen();
        LogError("Module-FDBCode", error);
        return 0;
    }
}

void ReverseVoucher(const std::int32_t& voucherNo, ado::Connection& connection) {
    const std::string ofVoucher = " Where LedgerTrnNo = " + basic::NumberText(voucherNo);
    const ado::RecordsetPtr rows =
        connection.Execute("Select * from tb_Ledger" + shared().FinYear + ofVoucher);
    for (; !rows->Eof(); rows->MoveNext()) {
        const std::string ledgerCode = basic::TextOrEmpty((*rows)["ledgerCode"]);
        const basic::Value debit = (*rows)["LedgerDrAmt"], credit = (*rows)["LedgerCrAmt"];
        // "Not Null, or not 0": a Null makes the whole test Null and is passed over, a 0 runs as "- 0".
        // Kept 4.
        if (!debit.IsNull())
            connection.Execute(
                "Update Ledger_Details Set LedDetDrTxnTot = ( IIf( IsNull(LedDetDrTxnTot), 0, "
                "LedDetDrTxnTot) - " +
                basic::ToText(debit) + ") Where Ledger_Id = " + ledgerCode);
        if (!credit.IsNull())
            connection.Execute(
                "Update Ledger_Details Set LedDetCrTxnTot = (IIf(IsNull(LedDetCrTxnTot), 0, "
                "LedDetCrTxnTot) - " +
                basic::ToText(credit) + ") Where Ledger_Id = " + ledgerCode);
    }
    rows->Close();
    connection.Execute("Delete * from tb_Ledger" + shared().FinYear + ofVoucher);
}

}  // namespace qm
