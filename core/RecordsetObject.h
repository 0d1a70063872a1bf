#pragma once

#include "platform/ado/Recordset.h"
#include "platform/com/Automation.h"

namespace qm {

// A record set as hosts hold it, late bound, with one reference: EOF, BOF, MoveFirst, MoveNext, MovePrevious,
// RecordCount, Fields (the default member), State, Close. Its fields: Count, Item (the default member) by
// number from 0 or by name. A field: Name, Value (the default member).
IDispatch* NewRecordsetObject(ado::RecordsetPtr rows);

}  // namespace qm
