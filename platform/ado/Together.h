#pragma once

#include <functional>

#include "platform/ado/Connection.h"

namespace ado {

// Runs `writes`. What it gives to ExecuteAhead, to AddRow or, by its moves, to record sets is done as one
// write where all of that passes; else one by one up to the first that fails, which is raised. What is asked
// or written in it otherwise finds done what stands before. Inside a transaction each is done when it is
// told.
void Together(Connection& connection, const std::function<void()>& writes);

}  // namespace ado
