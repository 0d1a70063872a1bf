#pragma once

#include <cstddef>

#include "platform/ado/Recordset.h"
#include "platform/com/Automation.h"

namespace qm {

// The fields of a record set as hosts hold them, late bound, with one reference: clQm.idl has their members.
IDispatch* NewFieldsObject(ado::RecordsetPtr rows);

// The place of the field that a number from 0 or a name means; raises ItemNotFound.
std::size_t FieldPlace(ado::Recordset& rows, const VARIANT& index);

// What a read-only set refuses: raises NotUpdatable.
[[noreturn]] void RefuseUpdate();

}  // namespace qm
