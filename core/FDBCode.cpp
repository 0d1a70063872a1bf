#include "core/FDBCode.h"

#include "core/CountedExecution.h"
#include "core/DBCode.h"
#include "core/ErrorModule.h"
#include "core/LedgerSide.h"
#include "core/Quoting.h"
#include "core/VoucherType.h"
#include "core/modGeneral.h"
#include "platform/basic/Number.h"

namespace qm {
namespace {

// Any other code leaves the statement short of a value, and it fails. Kept 3.
std::string TypeWord(std::int32_t typeCode) {
    const auto type = TypeOfCode(typeCode);
    return type ? Quoted(WordOf(*type)) + ", " : "";
}

std::string Amounts(std::int32_t sideCode, double amount) {
    switch (LedgerSide{sideCode}) {
        case LedgerSide::Debit:
            return basic::NumberText(amount) + ", 0";
        case LedgerSide::Credit:
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

}  // namespace qm
