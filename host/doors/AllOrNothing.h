#pragma once

#include <functional>

namespace host {

// Runs `work` within one transaction on the shared connection, begun below the class, whose own ones become
// savepoints in it. Commits where `work` says True, and says so; else, and where it raises or the commit
// fails, which is raised on, everything is undone but the error log: rows that were written there meanwhile
// are written again. Raises where the transaction cannot begin, since another program writes.
bool AllOrNothing(const std::function<bool()>& work);

}  // namespace host
