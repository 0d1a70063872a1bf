#include "accounts/LedgerVoucherLines.h"

#include "core/DBCode.h"
#include "core/Masks.h"
#include "platform/basic/Format.h"
#include "platform/basic/Text.h"

namespace qm {
namespace {

enum Column { Date, Narration, DrAmount, CrAmount, Balance, Number };

constexpr const char* FieldNames[] = {"LedgerTxnDate", "LedgerNarration", "LedgerDrAmt",
                                      "LedgerCrAmt",   "ledgerLedBal",    "LedgerTrnNo"};

std::size_t PlaceOf(ado::Recordset& rows, const char* name) {
    std::size_t place = 0;
    while (!basic::EqualText(rows.Fields(place).Name(), name)) ++place;
    return place;
}

}  // namespace

std::string ListAmount(const basic::Value& value) {
    return basic::Format(value, GroupAmountMask);
}

LedgerVoucherLines::LedgerVoucherLines(ado::Recordset& rows) : rows_(rows.Keep()) {
    for (std::size_t i = 0; i < fields_.size(); ++i) fields_[i] = PlaceOf(rows, FieldNames[i]);
}

std::string LedgerVoucherLines::Text(int row, int column) const {
    const basic::Value value = rows_.ValueAt(row, fields_[static_cast<std::size_t>(column)]);
    switch (column) {
        case Date:
            return basic::Format(DateNumber(value), DateMask);
        case Narration:
            return basic::TextOrEmpty(value);
        default:
            return ListAmount(value);
    }
}

std::string LedgerVoucherLines::Key(int row) const {
    return "V" + basic::TextOrEmpty(rows_.ValueAt(row, fields_[Number]));
}

}  // namespace qm
