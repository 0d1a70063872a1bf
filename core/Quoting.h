#pragma once

#include <string>

namespace qm {

// A text as it stands in a statement, between double quotes. A double quote inside is not doubled: its
// statement fails, and users know it so.
std::string Quoted(const std::string& text);

// The same between single quotes, those inside doubled: how the record helpers write a text.
std::string QuotedDoubled(const std::string& text);

}  // namespace qm
