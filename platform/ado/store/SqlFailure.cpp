#include "platform/ado/store/SqlFailure.h"

#include <cerrno>
#include <cstring>
#include <string>
#include <utility>

#include <sqlcipher/sqlite3.h>

#include "platform/ado/Errors.h"
#include "platform/ado/store/Failure.h"

namespace ado {
namespace {

Failure InputOutput(int systemError) {
    // A file that may not grow is reported as a plain write error, with the reason only in the system's
    // number.
    if (systemError == ENOSPC || systemError == EFBIG || systemError == EDQUOT) return OutOfRoom();
    std::string reason = systemError != 0 ? std::strerror(systemError) : "no reason given";
    return {error::Unspecified, "The disk could not be read or written (" + reason + ")."};
}

Failure PageDamaged() {
    return {
        error::Damaged,
        "The books file is damaged: a page of it does not check out. Nothing was changed; please restore a "
        "backup."};
}

// What is left under the library's general error code is told apart by its text. Without any reason of its
// own it is the decryption that failed: some reads of a damaged page end so, a copy of the whole file among
// them.
Failure General(const std::string& message) {
    constexpr std::string_view missing = "no such table: ";
    if (message.starts_with(missing)) return TableMissing(message.substr(missing.size()));
    if (message == sqlite3_errstr(SQLITE_ERROR)) return PageDamaged();
    if (message.starts_with("malformed database schema"))
        return {
            error::Damaged,
            "The books file is damaged: a page that tells what its tables are does not check out. Nothing "
            "was changed; please restore a backup."};
    return {error::Unspecified, "The store refused the statement: " + message + "."};
}

Failure Describe(int code, int systemError, const std::string& message) {
    switch (code) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
        case SQLITE_PROTOCOL:
            return Locked();
        case SQLITE_FULL:
            return OutOfRoom();
        case SQLITE_INTERRUPT:
            return WasCancelled();
        case SQLITE_IOERR:
            return InputOutput(systemError);
        case SQLITE_READONLY:
        case SQLITE_CANTOPEN:
        case SQLITE_PERM:
            return {error::ReadOnly, "The books file or its folder cannot be written to."};
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
            return PageDamaged();
        case SQLITE_CONSTRAINT:
        case SQLITE_MISMATCH:
            return ValueRefused(message);
        case SQLITE_ERROR:
            return General(message);
        default:
            return {error::Unspecified, "The store failed: " + message + "."};
    }
}

}  // namespace

basic::Error FailureOf(sqlite3* store, std::optional<basic::Error>& raised) {
    if (raised) return *std::exchange(raised, std::nullopt);
    const int code = sqlite3_errcode(store) & 0xff;
    auto [number, text] = Describe(code, sqlite3_system_errno(store), sqlite3_errmsg(store));
    return {number, std::move(text), "ado.Engine"};
}

}  // namespace ado
