#include "platform/ado/Connection.h"

#include <utility>

#include "platform/ado/Command.h"
#include "platform/ado/Constants.h"
#include "platform/ado/Errors.h"
#include "platform/ado/Recordset.h"
#include "platform/ado/RecordsetImpl.h"
#include "platform/ado/store/Session.h"
#include "platform/basic/Text.h"
#include "platform/basic/Value.h"

namespace ado {
namespace {

constexpr const char* source = "ado.Connection";

}  // namespace

std::string& PropertyBag::operator()(std::string_view name) {
    return byFoldedName_[basic::FoldCase(name)];
}

std::string PropertyBag::Get(std::string_view name) const {
    const auto found = byFoldedName_.find(basic::FoldCase(name));
    return found == byFoldedName_.end() ? "" : found->second;
}

Connection::Connection() = default;
Connection::~Connection() = default;

void Connection::Open(std::string_view connectionString, std::string_view user, std::string_view password,
                      int) {
    if (session_)
        throw basic::Error(error::ObjectOpen, "Operation is not allowed when the object is open.", source);
    if (!connectionString.empty() || !user.empty() || !password.empty())
        throw basic::Error(error::BadArgument, "The store is named by the connection's properties alone.",
                           source);
    const std::string file = Properties.Get("Data Source");
    session_ =
        std::make_shared<Session>(EngineFor(file), file, Properties.Get("Jet OLEDB:Database Password"));
    if (const std::string kept = Properties.Get("Jet OLEDB:Max Buffer Size"); !kept.empty())
        session_->engine().KeepAtMost(basic::ToLong(basic::Value(kept)));
    if (Properties.Get("Mode") == "Read") session_->engine().RefuseWrites();
}

void Connection::Close() {
    Opened();
    std::exchange(session_, nullptr)->Close();
}

int Connection::State() const {
    return session_ ? adStateOpen : adStateClosed;
}

std::string Connection::Notice() const {
    return session_ ? session_->engine().Notice() : "";
}

RecordsetPtr Connection::Execute(std::string_view statement, std::int64_t* recordsAffected, int) {
    if (recordsAffected != nullptr) *recordsAffected = 0;
    const std::shared_ptr<Session>& session = Opened();
    auto result = std::make_shared<Recordset>();
    const BoundStatement ready = session->Ready(statement);
    if (ready.plan().kind == StatementKind::Select) {
        result->Internals().OpenOn(session, statement);
    } else {
        const std::int64_t affected = session->Execute(ready);
        if (recordsAffected != nullptr) *recordsAffected = affected;
    }
    return result;
}

void Connection::ExecuteAhead(std::string_view statement, const basic::Error* none) {
    const std::shared_ptr<Session>& session = Opened();
    const BoundStatement ready = session->Ready(statement);
    if (ready.plan().kind == StatementKind::Select)
        throw basic::Error(error::BadArgument, "A select does not go ahead.", source);
    session->ExecuteAhead(ready, none);
}

int Connection::BeginTrans() {
    return Opened()->BeginTrans();
}

void Connection::CommitTrans() {
    Opened()->CommitTrans();
}

void Connection::RollbackTrans() {
    Opened()->RollbackTrans();
}

int Connection::TransDepth() const {
    return session_ ? session_->TransDepth() : 0;
}

bool Connection::ChangedByOthers() {
    return Opened()->engine().ChangedByOthers();
}

void Connection::Cancel() {
    Opened()->engine().Cancel();
}

const std::shared_ptr<Session>& Connection::Opened() {
    if (!session_)
        throw basic::Error(error::ObjectClosed, "Operation is not allowed when the object is closed.",
                           source);
    return session_;
}

RecordsetPtr Command::Execute(std::int64_t* recordsAffected) const {
    if (!ActiveConnection)
        throw basic::Error(error::ObjectClosed, "The command has no connection.", "ado.Command");
    return ActiveConnection->Execute(CommandText, recordsAffected, CommandType);
}

}  // namespace ado
