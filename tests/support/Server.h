#pragma once

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include <gtest/gtest.h>
#include <unistd.h>

#include "platform/ado/store/Flight.h"

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

// Whether the stores of this run are on the tests' server: each case runs once on a file and once there.
inline bool OnServer() {
    const char* named = std::getenv("QM_TEST_STORE");
    return named != nullptr && std::string(named) == "server";
}

#define QM_NEEDS_SERVER() \
    if (::test::ServerUri().empty()) GTEST_SKIP() << "skipped: no server"
// The reason is read behind "of the file alone: ". `make test` counts what was skipped by its reasons.
#define QM_FILE_ONLY(reason) \
    if (::test::OnServer()) GTEST_SKIP() << "skipped: of the file alone: " reason
#define QM_SERVER_ONLY() \
    if (!::test::OnServer()) GTEST_SKIP() << "skipped: of the server alone"

// A database of the tests' server, a copy of another, that goes with this object. Where there is no server
// the test's process ends as one that was skipped.
class ServerDatabase {
  public:
    explicit ServerDatabase(const std::string& pattern = "template0") {
        if (ServerUri().empty()) {
            std::puts("[  SKIPPED ] skipped: no server");
            std::exit(0);
        }
        static int made = 0;
        const std::string name = "books_" + std::to_string(getpid()) + "_" + std::to_string(++made);
        RunOn("postgres", "CREATE DATABASE " + name + " TEMPLATE " + pattern);
        name_ = name;
    }
    ~ServerDatabase() { RunOn("postgres", "DROP DATABASE " + name_ + " WITH (FORCE)"); }
    ServerDatabase(const ServerDatabase&) = delete;
    ServerDatabase& operator=(const ServerDatabase&) = delete;

    const std::string& Name() const { return name_; }
    std::string Uri() const { return ServerUri() + name_ + "/"; }
    void Run(const std::string& script) const { RunOn(name_, script); }

    static void RunOn(const std::string& database, const std::string& script) {
        ado::Flight flight;
        flight.Connect(ado::ReadServerAddress(ServerUri() + database + "/"));
        flight.Script(script);
        flight.Disconnect();
    }

  private:
    std::string name_;
};

}  // namespace test
