#include "core/VoucherReversal.h"

#include <string>

#include "core/modGeneral.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Number.h"

namespace qm {

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
