#pragma once

#include <string>

namespace ado {

// Puts this program's functions into books on a server that an older one made, in one transaction; rows stay
// as they are. False where they are this program's already. Raises NotABooksFile where no books stand or a
// newer program made them, ReadOnly for one who does not own them.
bool RenewServer(const std::string& source);

}  // namespace ado
