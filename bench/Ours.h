#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include <benchmark/benchmark.h>

#include "core/clQm.h"
#include "core/modGeneral.h"

namespace bench {

// The class on books, as a host has it.
class Ours {
  public:
    explicit Ours(const std::string& place) {  // a folder or a database's URI, without the "/" behind it
        host_.dataPath(place + "/");
        host_.StartDataConn();
    }
    qm::clQm& Host() { return host_; }
    ado::Connection& Conn() { return qm::Conn(); }

  private:
    qm::clQm host_;
};

// One posting: its ledger and side, the same on both sides of a figure.
struct Posting {
    static constexpr std::int64_t Batch = 200;  // per measured iteration
    static constexpr double Amount = 1234.5;
    static constexpr const char* Narration = "Posted by the benchmark";

    std::int64_t ledger = 0;
    bool isDebit = false;
};

// Posts batch after batch; the first is not measured, so that both sides meet the pages that they touch in
// memory. `post` posts one row.
void PostBatches(benchmark::State& state, const std::function<void(const Posting&)>& post);

// Through the class.
void PostOurs(benchmark::State& state, const std::string& place);

// Through a record set: the statement of each turn, from 0.
using StatementOfTurn = std::function<std::string(int)>;
void ReadOurs(benchmark::State& state, const std::string& place, const StatementOfTurn& statement);
std::string OneLedgerStatement(int turn);

}  // namespace bench
