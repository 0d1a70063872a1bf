#pragma once

#include <cstdlib>
#include <fstream>
#include <string>

namespace test {

// The server that tests may use, as a URI that ends in "/": what QM_TEST_SERVER names, or the private one
// that ctest starts (tests/support/server); "" where there is none.
inline std::string ServerUri() {
    const char* named = std::getenv("QM_TEST_SERVER");
    if (named != nullptr) return std::string(named) == "none" ? "" : named;
    std::string uri;
    std::getline(std::ifstream(SERVER_FILE) >> std::ws, uri);
    return uri;
}

}  // namespace test

#define QM_NEEDS_SERVER() \
    if (::test::ServerUri().empty()) GTEST_SKIP() << "skipped: no server"
