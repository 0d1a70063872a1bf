#pragma once

#include <vector>

#include "platform/ado/dialect/Tokens.h"

namespace ado {

// What the store's parser takes; beyond it these raise error::Statement in plain words, before any deep
// recursion of our own.
void CheckSize(const std::vector<Token>& tokens);  // of the statement as written
void CheckNesting(int depth);                      // of the brackets in its translation

}  // namespace ado
