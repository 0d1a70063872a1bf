#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/basic/Error.h"

namespace qm {

// The error routine of all saving procedures: shows "Formname: ..." in a box without a title of its own,
// waits for it, then adds a row to tblError if the shared connection is open. Only the description is cleaned
// of double quotes. Never throws: a failure to log is not reported.
void LogError(const std::string& formName, std::int32_t number, const std::string& description,
              const std::string& source);
void LogError(const std::string& formName, const basic::Error& error);

// What LogError was told last, as it was told, for a caller who got no more than a False. Number 0 and empty
// before the first, and for a count that failed.
const basic::Error& LastError();

// Runs one statement in skip-on-error mode: what it raises is dropped, the caller goes on. True if nothing
// was raised.
bool SkipOnError(const std::function<void()>& statement);

}  // namespace qm
