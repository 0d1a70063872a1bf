#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ado/store/CatalogReader.h"
#include "platform/ado/store/Engine.h"
#include "platform/ado/store/StatementCache.h"
#include "platform/ado/store/Transactions.h"
#include "platform/basic/Value.h"

namespace ado {

// A prepared statement with the values of its literals.
struct BoundStatement {
    PreparedStatementPtr prepared;
    std::vector<basic::Value> values;
    const Plan& plan() const { return *prepared->plan; }
};

// A record set that has not read its rows yet. It reads them before anything on its connection changes.
class PostponedRead {
  public:
    virtual void ReadNow() noexcept = 0;

  protected:
    ~PostponedRead() = default;
};

// An open store: what stands behind a connection from Open to Close.
class Session {
  public:
    Session(std::unique_ptr<Engine> engine, const std::string& source, const std::string& password);
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    ~Session();
    void Close();  // rolls back what is open

    // Finds or translates a statement and converts its literals; raises all that is wrong with it so far.
    BoundStatement Ready(std::string_view statement, const PlanOptions& options = {});
    // A select with one more condition, in the store's SQL; its values are the parameters from
    // ParameterFrom(base).
    BoundStatement Narrowed(const BoundStatement& base, const std::string& condition,
                            const std::vector<basic::Value>& values);
    // A select changed in its plan, which is kept under its own key and `mark`; with all of its values.
    BoundStatement Changed(const BoundStatement& base, const std::string& mark,
                           const std::function<void(Plan&)>& change, std::vector<basic::Value> values);
    static std::size_t ParameterFrom(const BoundStatement& base) { return base.values.size() + 1; }

    // Bound and about to give its first row.
    PreparedStatement::Copy Start(const BoundStatement& statement);
    // Runs a statement that gives no rows; the rows that an insert, update or delete matched, else 0.
    std::int64_t Execute(const BoundStatement& statement);
    // The same where nobody asks for the rows at once: see Connection::ExecuteAhead.
    void ExecuteAhead(const BoundStatement& statement, const basic::Error* none);
    // At once, unless writes are gathered; raises `none`, if any, where no row is matched.
    void ExecuteMatching(const BoundStatement& statement, const basic::Error* none);
    // Gathers what goes ahead in `writes`: see ado::Together.
    void Together(const std::function<void()>& writes);
    const TableInfo& Table(const std::string& name);  // without regard to case; raises NoSuchTable
    // Sets numbers in the rows of a table, many at once; names are found without regard to case.
    void SetNumbers(KeyedNumbers numbers);
    // For what this layer writes in the store's own SQL: the values are bound in order.
    BoundStatement Own(std::string sql, std::vector<basic::Value> values);

    Engine& engine() { return *engine_; }  // for maintenance, beside running statements

    int BeginTrans();
    void CommitTrans();
    void RollbackTrans();
    int TransDepth() const { return transactions_.Depth(); }

    void Postpone(PostponedRead& read);
    void Forget(PostponedRead& read);

  private:
    struct Gathered {
        BoundStatement statement;
        std::optional<basic::Error> none;
        const basic::Error* None() const { return none ? &*none : nullptr; }
    };

    bool Gather(const BoundStatement& statement, const basic::Error* none);
    void WriteGathered();
    bool WrittenAtOnce(const std::vector<Gathered>& writes);
    void GoAhead(const BoundStatement& statement, const basic::Error* none);
    void ReadPostponed();
    template <class Step>
    auto InOrder(const Step& step);
    BoundStatement Translated(std::string_view statement, const PlanOptions& options);
    void MakeTable(const Plan& plan);

    std::unique_ptr<Engine> engine_;
    CatalogReader catalog_;
    StatementCache cache_;
    Transactions transactions_;
    std::vector<PostponedRead*> postponed_;
    std::vector<Gathered> gathered_;
    bool gathers_ = false;
    bool open_ = false;
};

}  // namespace ado
