#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ado/store/Engine.h"
#include "platform/ado/store/Flight.h"
#include "platform/ado/store/Libpq.h"
#include "platform/basic/Error.h"

namespace ado {

class PostgresEngine;

// A statement on a server. It goes out at its first Step; a select's rows come one by one from then on,
// anything else runs to its end at once. Where another statement goes out meanwhile, the rest of the rows is
// kept here.
class PostgresStatement final : public EngineStatement {
  public:
    PostgresStatement(PostgresEngine& engine, std::string sql);
    PostgresStatement(const PostgresStatement&) = delete;
    PostgresStatement& operator=(const PostgresStatement&) = delete;
    ~PostgresStatement() override { Reset(); }

    void BindNull(int index) override;
    void BindInteger(int index, std::int64_t value) override;
    void BindReal(int index, double value) override;
    void BindBoolean(int index, bool value) override;
    void BindText(int index,
                  std::string_view text) override;  // raises BadValue for what a server does not keep
    bool Step() override;
    void Reset() override;
    int ColumnCount() const override;
    CellKind Kind(int column) const override;
    std::int64_t Integer(int column) const override;
    double Real(int column) const override;
    std::string_view Text(int column) const override;

    // For the engine.
    const std::string& Sql() const { return sql_; }
    const ServerValues& Values() const { return values_; }
    bool Reads() const { return reads_; }
    void KeepRest() noexcept;  // takes all rows that are still to come

  private:
    enum class State { Ready, Reading, Kept };

    ServerValue& At(int index);
    void NoteKinds();

    PostgresEngine& engine_;
    const Libpq& pq_ = Libpq::Get();
    const std::string sql_;
    const bool reads_;
    ServerValues values_;
    State state_ = State::Ready;
    Flight::Row row_;
    std::vector<CellKind> kinds_;  // of the columns, where they are not Null
    std::deque<Flight::Row> rest_;
    std::optional<basic::Error> failure_;  // behind the rest
};

}  // namespace ado
