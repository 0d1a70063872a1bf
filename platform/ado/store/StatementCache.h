#pragma once

#include <cstddef>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/ado/dialect/Plan.h"
#include "platform/ado/store/Engine.h"

namespace ado {

// A translated statement with its prepared copies that are not in use at the moment.
struct CachedStatement {
    std::string key;  // the shape's; a line break, which no shape holds, sets apart what this layer adds
    std::string sql;
    std::shared_ptr<const Plan> plan;
    std::vector<std::unique_ptr<EngineStatement>> idle;
};
using CachedStatementPtr = std::shared_ptr<CachedStatement>;

// The translated statements by their key; the one that was not used for the longest time makes room.
class StatementCache {
  public:
    explicit StatementCache(std::size_t capacity = 512) : capacity_(capacity) {}
    CachedStatementPtr Find(std::string_view key);  // nullptr if it is not there
    CachedStatementPtr Add(std::string key, Plan plan);
    void Clear();

  private:
    std::size_t capacity_;
    std::list<CachedStatementPtr> byUse_;  // the last used one first
    std::unordered_map<std::string_view, std::list<CachedStatementPtr>::iterator> byKey_;
};

// A prepared copy while it runs. One that runs inside another of the same statement gets a copy of its own.
class RunningStatement {
  public:
    RunningStatement(Engine& engine, CachedStatementPtr cached);
    RunningStatement(RunningStatement&&) = default;
    ~RunningStatement();

    EngineStatement& operator*() const { return *statement_; }
    EngineStatement* operator->() const { return statement_.get(); }

  private:
    CachedStatementPtr cached_;
    std::unique_ptr<EngineStatement> statement_;
};

}  // namespace ado
