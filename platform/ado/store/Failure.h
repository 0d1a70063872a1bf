#pragma once

#include <chrono>
#include <cstdint>
#include <string>

// The texts of failures that both stores know.
namespace ado {

// What goes wrong in a store: a number of ado::error and what the user is shown.
struct Failure {
    std::int32_t number;
    std::string text;
};

// How long a statement waits for another program before it gives up.
std::chrono::milliseconds LockWait();

Failure Locked();  // another program held the books for that long
Failure WasCancelled();
Failure OutOfRoom();  // on the disk
Failure TableMissing(const std::string& table);
Failure ValueRefused(const std::string& reason);  // by a field, for a reason in the store's words

}  // namespace ado
