#pragma once

#include <string>

namespace test {

// Compares a page with tests/golden/NAME, where each row of a table begins a line and a line break of the
// page is written as "¶". With QM_GOLDEN=write in the environment the file is written instead, and the test
// fails: whoever changes a page reads what changed and commits it.
void ExpectGolden(const std::string& name, std::string page);

}  // namespace test
