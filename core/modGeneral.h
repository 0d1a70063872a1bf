#pragma once

#include <cstdint>
#include <string>

#include "platform/ado/Connection.h"

namespace qm {

// The state that the class and all screens share: one copy for the whole process. It outlives every class
// instance, but for the connection, which the instance that ends closes.
struct Shared {
    // The folder as the host gave it, a plain prefix: ends in "/" or the names run together.
    std::string DataPath;
    ado::ConnectionPtr Connection;  // the one connection; null until OpenConnection
    // Short form of the current year, such as "2001"; the per-year tables end in it. Set only by
    // LoadCurrentYear.
    std::string FinYear;
    std::string PrimaryGroupName;  // results of GetPrimaryGroup
    std::int16_t PrimaryGroupId = 0;
};

Shared& shared();

// The shared connection; raises 91 "Object variable not set" before the first OpenConnection.
ado::Connection& Conn();

// The first act of every failure step: rolls back the innermost open transaction, whoever began it, and does
// nothing where none is open.
void RollbackOpen();

// Every posting statement's count is a test: fewer than 1 record raises an error with number 0 and no
// description, which the routine's own failure step takes.
void RequireRecords(std::int64_t recordsAffected);

}  // namespace qm
