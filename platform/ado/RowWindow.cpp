#include "platform/ado/RowWindow.h"

#include <algorithm>
#include <cstdint>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/ado/Errors.h"
#include "platform/ado/dialect/Scope.h"
#include "platform/ado/rows/RowStore.h"
#include "platform/ado/store/Session.h"

namespace ado {
namespace {

constexpr std::size_t KeysAtOnce = 128;  // of one statement, which is kept for all

bool IsOfFields(const Plan& plan) {
    return plan.kind == StatementKind::Select && plan.rowid &&
           std::all_of(plan.outputs.begin(), plan.outputs.end(), [&](const Output& output) {
               return !output.column.empty() && output.table == plan.table;
           });
}

BoundStatement Ready(Session& session, const std::string& select) {
    PlanOptions options;
    options.rowid = true;
    BoundStatement ready = session.Ready(select, options);
    if (!IsOfFields(ready.plan()))
        throw basic::Error(error::BadArgument, "A window opens on a select of the fields of one table.",
                           "ado.RowWindow");
    return ready;
}

std::string Rowid(const Plan& plan) {
    return QuotedName(plan.table) + ".rowid";
}

// What the condition leaves, seen by another list.
BoundStatement Listing(Session& session, const BoundStatement& base, const std::string& list, bool ordered) {
    const auto change = [&](Plan& plan) {
        plan.head = "SELECT " + list + " FROM " + QuotedName(plan.table);
        if (!ordered) plan.tail.clear();
    };
    return session.Changed(base, "list " + list, change, base.values);
}

// The same statement for few keys and for many: the last one fills it up.
BoundStatement ByKeys(Session& session, const BoundStatement& base, const RowKey* keys, std::size_t count) {
    const StoreSql& words = session.engine().Sql();
    const auto change = [&](Plan& plan) {
        plan.where = " WHERE " + Rowid(plan) + " IN (";
        for (std::size_t i = 1; i <= KeysAtOnce; ++i)
            plan.where += (i > 1 ? ", CAST(" : "CAST(") + words.Parameter(i) + " AS BIGINT)";
        plan.where += ")";
        plan.tail.clear();
    };
    std::vector<basic::Value> values;
    for (std::size_t i = 0; i < KeysAtOnce; ++i)
        values.emplace_back(static_cast<double>(keys[std::min(i, count - 1)]));
    return session.Changed(base, "keys", change, std::move(values));
}

}  // namespace

RowWindow::RowWindow(ConnectionPtr connection, std::string select)
    : connection_(std::move(connection)), select_(std::move(select)) {
    Ready(*connection_->Opened(), select_);
}

std::size_t RowWindow::Count() const {
    Session& session = *connection_->Opened();
    const auto count = session.Start(Listing(session, Ready(session, select_), "count(*)", false));
    count->Step();
    return static_cast<std::size_t>(count->Integer(0));
}

KeptRows RowWindow::From(std::size_t first, std::size_t count) const {
    Session& session = *connection_->Opened();
    const StoreSql& words = session.engine().Sql();
    const BoundStatement base = Ready(session, select_);
    std::vector<basic::Value> values = base.values;
    const std::size_t next = Session::ParameterFrom(base);
    const auto change = [&](Plan& plan) {
        plan.tail += " LIMIT CAST(" + words.Parameter(next) + " AS BIGINT) OFFSET CAST(" +
                     words.Parameter(next + 1) + " AS BIGINT)";
    };
    values.emplace_back(static_cast<double>(count));
    values.emplace_back(static_cast<double>(first));
    const BoundStatement page = session.Changed(base, "page", change, std::move(values));
    const auto rows = std::make_shared<RowStore>(page.plan());
    rows->Fill(*session.Start(page));
    return {rows, nullptr};
}

void RowWindow::Each(const std::function<void(const KeptRows&)>& take) const {
    Session& session = *connection_->Opened();
    const BoundStatement base = Ready(session, select_);
    const auto statement = session.Start(base);
    for (bool more = true; more;) {
        const auto rows = std::make_shared<RowStore>(base.plan());
        more = rows->Fill(*statement, RowStore::Part);
        take({rows, nullptr});
    }
}

RowKeys RowWindow::Keys() const {
    Session& session = *connection_->Opened();
    const BoundStatement base = Ready(session, select_);
    const auto rows = session.Start(Listing(session, base, Rowid(base.plan()), true));
    RowKeys keys;
    while (rows->Step()) keys.Add(rows->Integer(0));
    return keys;
}

KeptRows RowWindow::Of(const std::vector<RowKey>& keys) const {
    Session& session = *connection_->Opened();
    const BoundStatement base = Ready(session, select_);
    const auto rows = std::make_shared<RowStore>(base.plan());
    for (std::size_t at = 0; at < keys.size(); at += KeysAtOnce)
        rows->Fill(
            *session.Start(ByKeys(session, base, keys.data() + at, std::min(KeysAtOnce, keys.size() - at))));
    std::unordered_map<RowKey, std::uint32_t> places;
    for (std::size_t row = 0; row < rows->Rows(); ++row)
        places[rows->RowId(row)] = static_cast<std::uint32_t>(row);
    const auto order = std::make_shared<std::vector<std::uint32_t>>();
    for (const RowKey key : keys) {
        const auto place = places.find(key);
        order->push_back(place == places.end() ? KeptRows::Gone : place->second);
    }
    return {rows, order};
}

}  // namespace ado
