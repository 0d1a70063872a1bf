#pragma once

#include <string>

#include "tests/support/Shell.h"

using test::Outcome;
using test::Shell;

// Runs qmhost as it is called from a shell.
inline Outcome Qmhost(const std::string& arguments) {
    return Shell(QMHOST " " + arguments);
}
