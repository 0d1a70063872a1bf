#include "platform/ado/store/Session.h"

#include <algorithm>
#include <utility>

#include "platform/ado/Errors.h"
#include "platform/ado/dialect/Scope.h"
#include "platform/ado/store/Conversion.h"
#include "platform/basic/Error.h"

namespace ado {
namespace {

std::vector<basic::Value> LiteralValues(const Shape& shape, const Plan& plan) {
    std::vector<basic::Value> values;
    values.reserve(plan.parameters.size());
    for (const Parameter& parameter : plan.parameters)
        values.push_back(LiteralValue(shape.literals.at(parameter.literal), parameter, plan.table));
    return values;
}

// Our own functions can stop a statement halfway, and the store would keep the half.
bool MayStopHalfway(const std::string& sql) {
    return sql.find("qm_") != std::string::npos;
}

}  // namespace

Session::Session(std::unique_ptr<Engine> engine, const std::string& source, const std::string& password)
    : engine_(std::move(engine)), catalog_(*engine_), transactions_(*engine_) {
    engine_->Open(source, password);
    open_ = true;
}

Session::~Session() {
    try {
        Close();
    } catch (const basic::Error&) {
        // Nobody is left to be told; the store repairs itself at the next Open.
    }
}

void Session::Close() {
    if (!std::exchange(open_, false)) return;
    cache_.Clear();
    transactions_.RollbackAll();
    engine_->Close();
}

// A failure of what went ahead stands before that of this step.
template <class Step>
auto Session::InOrder(const Step& step) {
    try {
        return step();
    } catch (const basic::Error&) {
        engine_->TellAhead();
        throw;
    }
}

BoundStatement Session::Ready(std::string_view statement, const PlanOptions& options) {
    return InOrder([&] { return Translated(statement, options); });
}

BoundStatement Session::Translated(std::string_view statement, const PlanOptions& options) {
    const Shape shape = ShapeOf(statement, options.hostCondition);
    std::string key = shape.key;
    if (options.rowid) key += "\nrowid";
    if (options.hostCondition) key += "\nhost";
    PreparedStatementPtr prepared = cache_.Find(key);
    if (!prepared) prepared = cache_.Add(std::move(key), Translate(shape, catalog_, options));
    std::vector<basic::Value> values = LiteralValues(shape, *prepared->plan);
    return {std::move(prepared), std::move(values)};
}

BoundStatement Session::Narrowed(const BoundStatement& base, const std::string& condition,
                                 const std::vector<basic::Value>& values) {
    std::vector<basic::Value> all = base.values;
    all.insert(all.end(), values.begin(), values.end());
    const auto narrow = [&](Plan& plan) {
        constexpr std::string_view word = " WHERE ";
        plan.where = plan.where.empty()
                         ? std::string(word) + condition
                         : std::string(word) + "(" + plan.where.substr(word.size()) + ") AND " + condition;
    };
    return Changed(base, "filter " + condition, narrow, std::move(all));
}

BoundStatement Session::Changed(const BoundStatement& base, const std::string& mark,
                                const std::function<void(Plan&)>& change, std::vector<basic::Value> values) {
    std::string key = base.prepared->key + "\n" + mark;
    PreparedStatementPtr prepared = cache_.Find(key);
    if (!prepared) {
        Plan plan = base.plan();
        change(plan);
        prepared = cache_.Add(std::move(key), std::move(plan));
    }
    return {std::move(prepared), std::move(values)};
}

BoundStatement Session::Own(std::string sql, std::vector<basic::Value> values) {
    std::string key = "\nown " + sql;
    PreparedStatementPtr prepared = cache_.Find(key);
    if (!prepared) {
        Plan plan;
        plan.kind = StatementKind::Update;
        plan.head = std::move(sql);
        prepared = cache_.Add(std::move(key), std::move(plan));
    }
    return {std::move(prepared), std::move(values)};
}

PreparedStatement::Copy Session::Start(const BoundStatement& statement) {
    WriteGathered();
    PreparedStatement::Copy running = statement.prepared->Take(*engine_);
    int index = 0;
    InOrder([&] {
        for (const basic::Value& value : statement.values) Bind(*running, ++index, value);
    });
    return running;
}

std::int64_t Session::Execute(const BoundStatement& statement) {
    ReadPostponed();
    if (statement.plan().kind == StatementKind::SelectInto) {
        MakeTable(statement.plan());
        return 0;
    }
    const bool whole = !engine_->UndoesFailedStatements() && MayStopHalfway(statement.prepared->sql);
    transactions_.Write(whole, [&] { Start(statement)->Step(); });
    return engine_->Changes();
}

void Session::ExecuteMatching(const BoundStatement& statement, const basic::Error* none) {
    if (!Gather(statement, none) && Execute(statement) == 0 && none != nullptr) throw basic::Error(*none);
}

void Session::ExecuteAhead(const BoundStatement& statement, const basic::Error* none) {
    if (!Gather(statement, none)) GoAhead(statement, none);
}

void Session::GoAhead(const BoundStatement& statement, const basic::Error* none) {
    if (engine_->SendsAhead() && statement.plan().kind != StatementKind::SelectInto) {
        ReadPostponed();
        transactions_.Ahead(*Start(statement), statement.plan().givesOneRow ? nullptr : none);
    } else if (Execute(statement) == 0 && none != nullptr) {
        throw basic::Error(*none);
    }
}

bool Session::Gather(const BoundStatement& statement, const basic::Error* none) {
    if (!gathers_ || TransDepth() > 0 || statement.plan().kind == StatementKind::SelectInto) return false;
    if (!postponed_.empty()) ReadPostponed();
    const bool mayMiss = none != nullptr && !statement.plan().givesOneRow;
    gathered_.push_back({statement, mayMiss ? std::optional(*none) : std::nullopt});
    return true;
}

// What was gathered before a failure of `writes` is done, as it is one by one; its own failure stands before.
void Session::Together(const std::function<void()>& writes) {
    gathers_ = true;
    try {
        writes();
    } catch (...) {
        gathers_ = false;
        WriteGathered();
        throw;
    }
    gathers_ = false;
    WriteGathered();
}

void Session::WriteGathered() {
    if (gathered_.empty()) return;
    const std::vector<Gathered> writes = std::exchange(gathered_, {});
    ReadPostponed();
    if (writes.size() > 1 && WrittenAtOnce(writes)) return;
    for (const Gathered& write : writes) GoAhead(write.statement, write.None());
    engine_->TellAhead();
}

// False where none of it is done: one of them fails, which then shows one by one.
bool Session::WrittenAtOnce(const std::vector<Gathered>& writes) {
    try {
        transactions_.Together([&] {
            for (const Gathered& write : writes) transactions_.Ahead(*Start(write.statement), write.None());
        });
    } catch (const basic::Error& failure) {
        // Of these the first one by one would fail, too, or it is not to be done again.
        for (const std::int32_t ends : {error::Locked, error::ConnectionLost, error::Cancelled})
            if (failure.Number == ends) throw;
        return false;
    }
    return true;
}

const TableInfo& Session::Table(const std::string& name) {
    return RequireTable(catalog_, name);
}

void Session::SetNumbers(KeyedNumbers numbers) {
    ReadPostponed();
    const TableInfo& table = Table(numbers.table);
    numbers.table = table.name;
    for (std::string* name : {&numbers.key, &numbers.where}) *name = RequireColumn(table, *name).name;
    for (std::string& name : numbers.columns) name = RequireColumn(table, name).name;
    transactions_.Write(!engine_->UndoesFailedStatements(), [&] { engine_->SetNumbers(numbers); });
}

void Session::MakeTable(const Plan& plan) {
    catalog_.Forget();
    if (catalog_.Table(plan.into) != nullptr)
        throw basic::Error(error::Statement, "Table '" + plan.into + "' already exists.", "ado.Statement");
    transactions_.Atomic([&] { engine_->CopyTable(plan.table, plan.into); });
    catalog_.Forget();
}

int Session::BeginTrans() {
    ReadPostponed();
    return transactions_.Begin();
}

void Session::CommitTrans() {
    ReadPostponed();
    transactions_.Commit();
}

void Session::RollbackTrans() {
    try {
        ReadPostponed();
    } catch (const basic::Error&) {
        // What failed ahead is undone by this.
        ReadPostponed();
    }
    transactions_.Rollback();
    // What was told of a table that was made inside the transaction is no longer true.
    catalog_.Forget();
    cache_.Clear();
}

void Session::Postpone(PostponedRead& read) {
    postponed_.push_back(&read);
}

void Session::Forget(PostponedRead& read) {
    std::erase(postponed_, &read);
}

// Their own failures are told where they are looked at, so none may take that of a write along.
void Session::ReadPostponed() {
    WriteGathered();
    if (!postponed_.empty()) engine_->TellAhead();
    while (!postponed_.empty()) {
        PostponedRead* read = postponed_.back();
        postponed_.pop_back();
        read->ReadNow();
    }
}

}  // namespace ado
