#pragma once

#include "core/clQm.h"
#include "core/qmcls.h"
#include "platform/com/Object.h"

namespace qm {

// The class as hosts hold it: each member turns its arguments, calls the same member of clQm and gives the
// outcome. Late-bound calls end in the same members, by the table. Declarations and table are
// made from clQm.idl: a new member is written there, in clQm.h and .cpp, and in clQmObject.cpp.
class clQmObject final : public com::Object<_clQm, _clQm> {
  public:
    clQmObject();

#include "clQmOverrides.h"

  private:
    clQm host_;
};

}  // namespace qm
