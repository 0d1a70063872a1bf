#pragma once

#include <memory>
#include <string>
#include <vector>

#include <libpq-fe.h>

// The server's bare library, used as well as it can be: statements prepared once, values bound, results in
// binary, nothing in between.
namespace bench {

class BareServer {
  public:
    using Result = std::unique_ptr<PGresult, decltype(&PQclear)>;

    explicit BareServer(const std::string& uri);
    ~BareServer() { PQfinish(connection_); }
    BareServer(const BareServer&) = delete;
    BareServer& operator=(const BareServer&) = delete;

    // Several statements in one text, each by itself where they are given so.
    void Run(const std::vector<std::string>& statements);
    void Prepare(const char* name, const std::string& sql);
    Result Execute(const char* name, const std::vector<std::string>& values = {});
    static double Real(const Result& row, int column);
    // Takes the rows as they come into plain columns; gives their number.
    std::int64_t ReadRows(const std::string& sql);

  private:
    Result Checked(PGresult* result);

    PGconn* connection_ = nullptr;
};

// Books on the server that QM_BENCH_SERVER names, a URI with "/" behind it; "" where there is none. The same
// books as BooksWith: `copy` tells apart those that are written to independently. The URI has no "/" behind
// it.
bool HasServer();
std::string ServerBooksWith(std::int64_t rows, int copy);

}  // namespace bench
