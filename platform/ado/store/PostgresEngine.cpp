#include "platform/ado/store/PostgresEngine.h"

#include <charconv>
#include <utility>

#include "platform/ado/Errors.h"
#include "platform/ado/store/Failure.h"
#include "platform/ado/store/PostgresFunctions.h"
#include "platform/ado/store/PostgresStatement.h"
#include "platform/basic/Error.h"

namespace ado {
namespace {

// Around each statement inside a transaction.
constexpr const char* Guard = "SAVEPOINT qm_statement";
constexpr const char* Unguard = "RELEASE qm_statement";
constexpr const char* Undone = "ROLLBACK TO qm_statement";

// The books' lock: a database holds one set of books.
constexpr const char* Lock = "SELECT pg_advisory_xact_lock(29037)";

std::string Level(int level) {
    return "qm_level_" + std::to_string(level);
}

[[noreturn]] void RefuseBooks(const std::string& text) {
    throw basic::Error(error::NotABooksFile, text, "ado.Engine");
}

}  // namespace

void PostgresEngine::Open(const std::string& source, const std::string&) {
    Connect(ReadServerAddress(source));
    try {
        RequireBooks();
    } catch (...) {
        flight_.Disconnect();
        throw;
    }
}

void PostgresEngine::Connect(const ServerAddress& address) {
    address_ = address;
    try {
        flight_.Connect(address_);
        Configure();
    } catch (...) {
        flight_.Disconnect();
        throw;
    }
}

// What the server was told to wait for at a commit is what ours wait for: at the least its own disk.
void PostgresEngine::Configure() {
    const std::string waits =
        Ask("SELECT current_setting('synchronous_commit'), set_config('synchronous_commit', 'off', FALSE), "
            "set_config('lock_timeout', '" +
            std::to_string(LockWait().count()) +
            "', FALSE), set_config('jit', 'off', FALSE), "
            "set_config('max_parallel_workers_per_gather', '0', FALSE)");
    flush_ = "SELECT set_config('synchronous_commit', '" + (waits == "off" ? "on" : waits) +
             "', TRUE), pg_logical_emit_message(TRUE, 'qm', '')::text";
}

void PostgresEngine::RequireBooks() {
    if (Ask("SELECT coalesce(to_regproc('qm_version')::text, '')").empty())
        RefuseBooks("The database at '" + address_.shown + "' holds no books.");
    const std::string version = Ask("SELECT qm_version()::text");
    if (version != std::to_string(ServerFunctionsVersion))
        RefuseBooks("The books at '" + address_.shown + "' were made for version " + version +
                    " of the server's functions, and this program needs version " +
                    std::to_string(ServerFunctionsVersion) + ".");
}

std::string PostgresEngine::Ask(const std::string& sql, int column) {
    PostgresStatement statement(*this, sql);
    return statement.Step() && statement.Kind(column) == CellKind::Text ? std::string(statement.Text(column))
                                                                        : "";
}

void PostgresEngine::Close() {
    try {
        Flush();
    } catch (...) {
        flight_.Disconnect();
        throw;
    }
    flight_.Disconnect();
}

std::unique_ptr<EngineStatement> PostgresEngine::Prepare(const std::string& sql) {
    return std::make_unique<PostgresStatement>(*this, sql);
}

// Only one answer at a time is on its way.
void PostgresEngine::MakeRoom() {
    if (reading_ != nullptr) std::exchange(reading_, nullptr)->KeepRest();
}

void PostgresEngine::Launch(const PostgresStatement& statement) {
    if (inTransaction_) flight_.Add(Guard);
    if (loosely_) flight_.Add(Lock);
    flight_.Add(statement.Sql(), statement.Values(), true);
    if (inTransaction_) flight_.Add(Unguard);
    flight_.Send();
}

Flight::Row PostgresEngine::FirstRow(PostgresStatement& statement) {
    MakeRoom();
    Launch(statement);
    reading_ = &statement;
    Flight::Row row = NextRow();
    if (statement.Reads()) return row;
    // An insert may tell the row that it made; no other statement that writes gives any.
    wrote_ = true;
    if (row) {
        const char* bytes = Libpq::Get().PQgetvalue(row.get(), 0, 0);
        lastRow_ = 0;
        for (int at = 0; at < 8; ++at) lastRow_ = lastRow_ << 8 | static_cast<unsigned char>(bytes[at]);
    }
    while (row) row = NextRow();
    return row;
}

Flight::Row PostgresEngine::NextRow() {
    try {
        Flight::Row row = flight_.Next();
        if (!row) reading_ = nullptr;
        return row;
    } catch (const basic::Error&) {
        reading_ = nullptr;
        Undo();
        throw;
    }
}

// A failed statement leaves the transaction as it was before it; a lost connection loses all of it.
void PostgresEngine::Undo() {
    if (!inTransaction_) return;
    if (flight_.IsUp())
        flight_.Run({Undone, Unguard});
    else
        inTransaction_ = false;
}

void PostgresEngine::Run(const std::vector<std::string>& statements) {
    MakeRoom();
    try {
        flight_.Run(statements);
    } catch (const basic::Error&) {
        if (!flight_.IsUp()) inTransaction_ = false;
        throw;
    }
}

void PostgresEngine::CopyTable(const std::string& source, const std::string& target) {
    for (const std::string& script : postgres::CopyOf(*this, source, target)) Script(script);
}

void PostgresEngine::Script(const std::string& sql) {
    MakeRoom();
    flight_.Script(sql);
    wrote_ = true;
}

void PostgresEngine::Begin() {
    inTransaction_ = true;
    wrote_ = false;
    try {
        Run({"BEGIN", Lock});
    } catch (const basic::Error&) {
        if (inTransaction_) Rollback();
        throw;
    }
}

void PostgresEngine::Commit() {
    const bool waits = wrote_ || looseWritten_;
    std::vector<std::string> statements{"COMMIT"};
    if (waits) statements.push_back(flush_);
    Run(statements);
    inTransaction_ = looseWritten_ = false;
}

void PostgresEngine::Rollback() {
    inTransaction_ = false;
    Run({"ROLLBACK"});
}

void PostgresEngine::Savepoint(int level) {
    Run({"SAVEPOINT " + Level(level)});
}

void PostgresEngine::Release(int level) {
    Run({"RELEASE " + Level(level)});
}

void PostgresEngine::RollbackTo(int level) {
    Run({"ROLLBACK TO " + Level(level), "RELEASE " + Level(level)});
}

// The moment is fixed by the first question, not by BEGIN.
void PostgresEngine::BeginRead() {
    Run({"BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY", "SELECT 1"});
    inTransaction_ = true;
    wrote_ = false;
}

void PostgresEngine::EndRead() {
    inTransaction_ = false;
    Run({"COMMIT"});
}

void PostgresEngine::CopyTo(const std::string&, const std::string&) {
    throw basic::Error(error::BadArgument, "Books on a server are copied row by row, not as a file.",
                       "ado.Engine");
}

void PostgresEngine::WriteLoosely(const std::function<void()>& write) {
    loosely_ = looseWritten_ = true;
    try {
        write();
    } catch (...) {
        loosely_ = false;
        throw;
    }
    loosely_ = false;
}

void PostgresEngine::Flush() {
    if (!looseWritten_ || inTransaction_) return;
    Run({flush_});
    looseWritten_ = false;
}

}  // namespace ado
