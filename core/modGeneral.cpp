#include "core/modGeneral.h"

#include "platform/basic/Error.h"

namespace qm {

Shared& shared() {
    static Shared state;
    return state;
}

ado::Connection& Conn() {
    if (!shared().Connection) basic::Raise(basic::error::ObjectNotSet, "core");
    return *shared().Connection;
}

void RollbackOpen() {
    if (shared().Connection && shared().Connection->TransDepth() > 0) shared().Connection->RollbackTrans();
}

void RequireRecords(std::int64_t recordsAffected) {
    if (recordsAffected <= 0) throw basic::Error(0, "");
}

}  // namespace qm
