#include "platform/ado/store/Failure.h"

#include "platform/ado/Errors.h"
#include "platform/ado/store/Engine.h"
#include "platform/basic/Number.h"

namespace ado {
namespace {

std::chrono::milliseconds lockWait{5000};

}  // namespace

std::chrono::milliseconds LockWait() {
    return lockWait;
}

void SetLockWait(std::chrono::milliseconds wait) {
    lockWait = wait;
}

Failure Locked() {
    const double seconds = static_cast<double>(lockWait.count()) / 1000;
    return {error::Locked, "Another program is writing to the books. Waited " + basic::NumberText(seconds) +
                               " seconds for it to finish; please try again."};
}

Failure WasCancelled() {
    return {error::Cancelled, "The question was cancelled."};
}

Failure OutOfRoom() {
    return {error::DiskFull, "There is no room left on the disk for the change. Nothing of it was stored."};
}

Failure TableMissing(const std::string& table) {
    return {error::NoSuchTable, "The books hold no table '" + table + "'."};
}

Failure ValueRefused(const std::string& reason) {
    return {error::BadValue, "A value does not suit its field (" + reason + ")."};
}

}  // namespace ado
