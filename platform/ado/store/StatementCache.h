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

// A statement as its shape was translated and prepared, without values: with them it is a BoundStatement (see
// Session), and what runs is a Copy.
class PreparedStatement : public std::enable_shared_from_this<PreparedStatement> {
  public:
    PreparedStatement(std::string key, Plan plan);

    struct GiveBack {
        std::shared_ptr<PreparedStatement> to;
        void operator()(EngineStatement* copy) const;
    };
    using Copy = std::unique_ptr<EngineStatement, GiveBack>;
    // A copy that runs inside another of the same statement is one of its own; each comes back by itself.
    Copy Take(Engine& engine);

    // The shape's; a line break, which no shape holds, sets apart what this layer adds.
    const std::string key;
    const std::shared_ptr<const Plan> plan;
    const std::string sql;

  private:
    std::vector<std::unique_ptr<EngineStatement>> idle_;
};
using PreparedStatementPtr = std::shared_ptr<PreparedStatement>;

// The prepared statements by their key; those that were not used for the longest time make room.
class StatementCache {
  public:
    // In characters of SQL: what the store keeps of a prepared statement grows with them, at some 40 bytes
    // for each. So all of them together take 4 MB, be they 1,000 of a posting or 100 that name every field.
    static constexpr std::size_t Usual = 100'000;
    explicit StatementCache(std::size_t capacity = Usual) : capacity_(capacity) {}
    PreparedStatementPtr Find(std::string_view key);  // nullptr if it is not there
    PreparedStatementPtr Add(std::string key, Plan plan);
    void Clear();

  private:
    void DropLast();

    std::size_t capacity_, size_ = 0;
    std::list<PreparedStatementPtr> byUse_;  // the last used one first
    std::unordered_map<std::string_view, std::list<PreparedStatementPtr>::iterator> byKey_;
};

}  // namespace ado
