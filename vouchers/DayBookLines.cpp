#include "vouchers/DayBookLines.h"

#include "core/DBCode.h"
#include "core/Masks.h"
#include "platform/basic/Format.h"

namespace qm {
namespace {

bool IsAmount(const basic::Value& value) {
    return basic::NumberOrZero(value) != 0;
}

std::string Amount(const basic::Value& value) {
    return IsAmount(value) ? basic::Format(value, DayBookAmountMask) : "";
}

std::string Date(const basic::Value& dayNumber) {
    return dayNumber.IsNull() ? "" : basic::Format(DateNumber(dayNumber), DateMask);
}

}  // namespace

std::string DayBookLines::Text(int row, int column) const {
    const auto value = [&](Field field) { return rows_.ValueAt(row, field); };
    switch (column) {
        case DateCol:
            return Date(value(TxnDate));
        case LedgerCol:
            return basic::TextOrEmpty(value(Name));
        case VoucherNoCol:
            return basic::TextOrEmpty(value(TrnNo));
        case VoucherTypeCol:
            return basic::TextOrEmpty(value(TrnType));
        case DrAmountCol:
            return Amount(value(DrAmt));
        case CrAmountCol:
            return Amount(value(CrAmt));
        default:
            return basic::TextOrEmpty(value(McGenerated));
    }
}

std::string DayBookLines::Key(int row) const {
    return basic::TextOrEmpty(rows_.ValueAt(row, Code)) +
           (IsAmount(rows_.ValueAt(row, DrAmt)) ? "vD" : "vC") +
           basic::TextOrEmpty(rows_.ValueAt(row, TrnNo)) + "S" + std::to_string(row + 1);
}

std::int32_t VoucherOfKey(const std::string& key) {
    const std::size_t from = key.find('v') + 2;
    return basic::ToLong(basic::Value(key.substr(from, key.find('S') - from)));
}

}  // namespace qm
