#include <utility>

#include "platform/ado/Errors.h"
#include "platform/ado/RecordsetImpl.h"
#include "platform/basic/Text.h"

namespace ado {
namespace {

constexpr const char* origin = "ado.Recordset";

// A source of one word, or of one bracketed name, is a table.
bool IsTableName(std::string_view source) {
    if (source.starts_with('[')) return source.find(']') == source.size() - 1;
    return !source.empty() && source.find_first_of(" \t\r\n(*,;'\"=") == std::string_view::npos;
}

std::string StatementOf(std::string_view source) {
    std::string trimmed = basic::Trim(source);
    if (!IsTableName(trimmed)) return std::string(source);
    return trimmed.starts_with('[') ? "Select * From " + trimmed : "Select * From [" + trimmed + "]";
}

}  // namespace

void RefuseNoRecord() {
    throw basic::Error(
        error::NoCurrentRecord,
        "Either BOF or EOF is True, or the current record has been deleted. The operation needs a "
        "current record.",
        origin);
}

Recordset::Impl::~Impl() {
    Forget();
}

void Recordset::Impl::OpenOn(const std::shared_ptr<Session>& openSession, std::string_view statement) {
    session = openSession;
    source = statement;
    terms.clear();
    filter.clear();
    Run();
    open = true;
}

// Alike rows are told apart from all the others of a Distinct, so those are kept whole.
void Recordset::Impl::EachOf(const std::shared_ptr<Session>& openSession, std::string_view statement,
                             const std::function<void()>& row) {
    session = openSession;
    source = statement;
    const BoundStatement ready = Statement(*openSession);
    plan = ready.prepared->plan;
    open = true;
    const auto running = openSession->Start(ready);
    for (bool more = true; more;) {
        rows = std::make_shared<RowStore>(*plan);
        more = plan->distinct ? rows->Fill(*running) : rows->Fill(*running, RowStore::Part);
        const std::int64_t count = Count();
        for (position = 0; position < count; ++position) row();
    }
}

void Recordset::Impl::Run() {
    Forget();
    const std::shared_ptr<Session> on = OpenSession();
    plan = Statement(*on).prepared->plan;
    namesMet_.clear();
    if (MayPostpone()) {
        on->Postpone(*this);
    } else {
        Read();
    }
    position = 0;
}

void Recordset::Impl::Forget() {
    if (const std::shared_ptr<Session> on = session.lock()) on->Forget(*this);
    edit = {};
    rows.reset();
    failure.reset();
    visible.reset();
    filteredByStore = false;
}

void Recordset::Impl::RefuseClosed() const {
    if (open) return;
    throw basic::Error(error::ObjectClosed, "Operation is not allowed when the object is closed.", origin);
}

std::shared_ptr<Session> Recordset::Impl::OpenSession() const {
    if (std::shared_ptr<Session> on = session.lock()) return on;
    throw basic::Error(error::ObjectClosed, "The connection of the record set is closed.", origin);
}

BoundStatement Recordset::Impl::Statement(Session& on) const {
    PlanOptions options;
    options.rowid = lockType != adLockReadOnly;
    options.hostCondition = hostCondition;
    BoundStatement ready = on.Ready(StatementOf(source), options);
    if (ready.plan().kind != StatementKind::Select)
        throw basic::Error(error::BadArgument, "A record set opens on a select or a table.", origin);
    return ready;
}

// Lists over a whole table open static and read-only and set their Filter next; sets for new rows open
// dynamic for editing, and often nobody looks at them. Nothing can go wrong with the values of such a select,
// so its errors still come at Open.
bool Recordset::Impl::MayPostpone() const {
    const bool lists = cursorType == adOpenStatic && lockType == adLockReadOnly;
    const bool takesRows = cursorType == adOpenDynamic && lockType == adLockOptimistic;
    return (lists || takesRows) && MayBeNarrowed();
}

bool Recordset::Impl::MayBeNarrowed() const {
    if (plan->table.empty() || plan->aggregate || !plan->where.empty()) return false;
    for (const Output& output : plan->outputs)
        if (output.column.empty()) return false;
    return true;
}

// The source with the Filter as a further condition, if all of it means the same to the store.
std::optional<BoundStatement> Recordset::Impl::WithFilter(Session& on, const BoundStatement& base) const {
    if (terms.empty() || !MayBeNarrowed()) return {};
    std::string condition;
    std::vector<basic::Value> values;
    for (const FilterTerm& term : terms) {
        const Output& output = Outputs()[term.field];
        const auto sql = ComparisonSql(on.engine().Sql(), term.comparison, output,
                                       Session::ParameterFrom(base) + values.size());
        if (!sql) return {};
        condition += (condition.empty() ? "" : " AND ") + *sql;
        values.push_back(ComparedValue(term.comparison, output));
    }
    return on.Narrowed(base, condition, values);
}

void Recordset::Impl::Read() {
    const std::shared_ptr<Session> on = OpenSession();
    BoundStatement ready = Statement(*on);
    plan = ready.prepared->plan;
    if (auto narrowed = WithFilter(*on, ready)) {
        ready = *std::move(narrowed);
        filteredByStore = true;
    }
    const auto fresh = std::make_shared<RowStore>(*plan);
    fresh->Fill(*on->Start(ready));
    rows = fresh;
    ApplyFilter();
}

void Recordset::Impl::ReadNow() noexcept {
    try {
        if (!rows) Read();
    } catch (const basic::Error& error) {
        failure = error;
    }
}

RowStore& Recordset::Impl::Rows() {
    if (failure) throw basic::Error(*failure);
    if (!rows) {
        OpenSession()->Forget(*this);
        Read();
    }
    return *rows;
}

std::int64_t Recordset::Impl::Count() {
    RefuseClosed();
    const RowStore& all = Rows();
    return static_cast<std::int64_t>(visible ? visible->size() : all.Rows());
}

std::size_t Recordset::Impl::RowAt(std::int64_t at) {
    const auto index = static_cast<std::size_t>(at);
    return visible ? (*visible)[index] : index;
}

void Recordset::Impl::ApplyFilter() {
    visible.reset();
    position = 0;
    if (terms.empty() || filteredByStore) return;
    visible = std::make_shared<std::vector<std::uint32_t>>();
    for (std::size_t row = 0; row < rows->Rows(); ++row) {
        bool meets = true;
        for (const FilterTerm& term : terms) {
            if (term.comparison.orElse && meets) break;
            meets = (meets || term.comparison.orElse) && term.comparison.Meets(*rows, row, term.field);
        }
        if (meets) visible->push_back(static_cast<std::uint32_t>(row));
    }
}

std::size_t Recordset::Impl::CurrentRow() {
    if (position < 0 || position >= Count()) RefuseNoRecord();
    return RowAt(position);
}

std::size_t Recordset::Impl::FieldAt(std::string_view name) {
    RefuseClosed();
    for (const auto& [met, field] : namesMet_)
        if (met == name) return field;
    const auto found = FindOutput(Outputs(), name);
    if (!found)
        throw basic::Error(error::ItemNotFound, "The record set has no field '" + std::string(name) + "'.",
                           origin);
    namesMet_.emplace_back(name, *found);
    return *found;
}

}  // namespace ado
