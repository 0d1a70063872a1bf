#include "core/NextNumber.h"

#include "core/modGeneral.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Number.h"

namespace qm {

double NumberAfter(const basic::Value& highest) {
    return basic::NumberOrZero(highest) + 1;
}

std::int32_t NextNumber(const std::string& highest) {
    ado::Recordset rows;
    rows.Open(highest, shared().Connection, ado::adOpenStatic, ado::adLockReadOnly);
    return basic::ToLong(NumberAfter(rows.Fields(0).Value()));
}

}  // namespace qm
