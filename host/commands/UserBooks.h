#pragma once

#include <filesystem>

namespace host {

// Where the books stand of a user who names no folder: "qmaccounts" in $XDG_DATA_HOME, or in ~/.local/share.
// Raises where neither is known.
std::filesystem::path UserBooksFolder();

// The same, with books in it: where there are none, the user is asked in a box whether to lay down sample
// books, else new ones for today's financial year. False where the user wants neither; nothing is laid down
// then. Raises, and asks nothing, where there is no display to ask on.
bool UserBooksStand();

}  // namespace host
