#pragma once

#include "platform/ado/Recordset.h"
#include "platform/com/Automation.h"

namespace qm {

// A record set as hosts hold it, late bound, with one reference: forward-only and read-only, whatever the set
// below can do. clQm.idl has its members.
IDispatch* NewRecordsetObject(ado::RecordsetPtr rows);

}  // namespace qm
