#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/clQm.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/Server.h"
#include "tests/support/TempFolder.h"

namespace test {

// Books laid down for one test, in a folder or, where the run is on the server, in a database of their own,
// and a class instance on them. Without a year they are exactly the delivered books.
class FreshBooks {
  public:
    explicit FreshBooks(std::optional<int> year = 2001);
    ~FreshBooks();

    qm::clQm& Host() { return *host_; }
    std::string DataPath() const;  // ends in "/"
    void CloseHost() { host_.reset(); }
    void OpenHost();  // a new instance, dataPath set and StartDataConn called

    // A ledger under a primary group, with its row in the current year; gives its number.
    int AddLedger(const std::string& name, const std::string& group, double opening = 0,
                  const std::string& side = "D");

    // The rows of a select, fields joined by "|", Null as "Null".
    static std::vector<std::string> Rows(const std::string& sql);
    static std::string One(const std::string& sql);  // the first row of Rows, or "no row"
    static void Run(const std::string& sql);

  private:
    TempFolder folder_;
    std::unique_ptr<ServerDatabase> database_;
    std::unique_ptr<qm::clQm> host_;
};

}  // namespace test
