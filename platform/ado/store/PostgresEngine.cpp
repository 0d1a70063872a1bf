#include "platform/ado/store/PostgresEngine.h"

#include <chrono>
#include <random>
#include <thread>
#include <utility>

#include "platform/ado/Errors.h"
#include "platform/ado/store/Failure.h"
#include "platform/ado/store/PostgresFunctions.h"
#include "platform/ado/store/PostgresStatement.h"
#include "platform/basic/Error.h"

namespace ado {
namespace {

// The books' lock: a database holds one set of books.
constexpr const char* Lock = "SELECT pg_advisory_xact_lock(29037)";

constexpr const char* MarkSql =
    "WITH mark AS (INSERT INTO qm_host VALUES ($1, $2, now()) ON CONFLICT (host) DO UPDATE SET last = $2, at "
    "= now()) "
    "SELECT pg_notify('qm_books', '')::text";
constexpr const char* ForgetMarks = "DELETE FROM qm_host WHERE at < now() - interval '1 day'";
constexpr const char* ForgetMark = "DELETE FROM qm_host WHERE host = $1";

// A failure is not told later than so many loose writes behind it.
constexpr int MostAhead = 64;

std::string Level(int level) {
    return "qm_level_" + std::to_string(level);
}

// A value that is another's meanwhile.
template <class Value>
class SetAside {
  public:
    explicit SetAside(Value& value) : value_(value), kept_(std::exchange(value, Value{})) {}
    SetAside(const SetAside&) = delete;
    SetAside& operator=(const SetAside&) = delete;
    ~SetAside() { value_ = std::move(kept_); }

  private:
    Value& value_;
    Value kept_;
};

[[noreturn]] void RefuseBooks(const std::string& text) {
    throw basic::Error(error::NotABooksFile, text, "ado.Engine");
}

}  // namespace

void PostgresEngine::Open(const std::string& source, const std::string&) {
    address_ = ReadServerAddress(source);
    std::random_device random;
    host_ = std::to_string(random()) + "." + std::to_string(random());
    try {
        Start();
    } catch (...) {
        flight_.Disconnect();
        throw;
    }
}

void PostgresEngine::Connect(const ServerAddress& address) {
    address_ = address;
    flight_.Connect(address_);
    Configure();
}

void PostgresEngine::Start() {
    {
        const SetAside first(started_);  // what is lost of the first words is not asked again
        Connect(address_);
        if (hears_) flight_.Add("LISTEN qm_books");  // goes out with the first question
        RequireBooks();
        if (!hears_) marks_ = Marks();
    }
    started_ = true;
}

// A server that is just being replaced by its standby, or started again, needs a moment.
void PostgresEngine::Reconnect() {
    reading_ = nullptr;
    begun_ = false;
    missed_ = true;
    // What waits to be sent is for the books, not for the first words to their server.
    const SetAside waiting(outbox_);
    const SetAside inside(inTransaction_), loosely(loosely_);
    constexpr std::chrono::milliseconds pause{100};
    for (const auto end = std::chrono::steady_clock::now() + LockWait();;) {
        try {
            return Start();
        } catch (const basic::Error& failure) {
            flight_.Disconnect();
            const bool mayPass =
                failure.Number == error::FileNotFound || failure.Number == error::ConnectionLost;
            if (!mayPass || std::chrono::steady_clock::now() >= end) throw;
        }
        std::this_thread::sleep_for(pause);
    }
}

// Before anything goes out that a server may have hung up on since.
void PostgresEngine::RequireConnection() {
    if (!begun_ && !flight_.IsOut() && !flight_.IsStillUp()) Reconnect();
}

// What the server was told to wait for at a commit is what ours wait for: at the least its own disk. What
// else is to be known of the server comes in the same trip; a standby takes no listeners.
void PostgresEngine::Configure() {
    PostgresStatement settings(
        *this,
        "SELECT current_setting('synchronous_commit'), pg_is_in_recovery(), to_regproc('qm_version') IS NOT "
        "NULL, set_config('synchronous_commit', 'off', FALSE), set_config('lock_timeout', '" +
            std::to_string(LockWait().count()) +
            "', FALSE), set_config('jit', 'off', FALSE), "
            "set_config('max_parallel_workers_per_gather', '0', FALSE)" +
            (onlyReads_ ? ", set_config('default_transaction_read_only', 'on', FALSE)" : ""));
    settings.Step();
    const std::string waits(settings.Text(0));
    hears_ = settings.Integer(1) == 0;
    hasFunctions_ = settings.Integer(2) != 0;
    flush_ = "SELECT set_config('synchronous_commit', '" + (waits == "off" ? "on" : waits) +
             "', TRUE), pg_logical_emit_message(TRUE, 'qm', '')::text";
}

void PostgresEngine::RefuseWrites() {
    onlyReads_ = true;  // for the next connection, too
    Run({"SET default_transaction_read_only = on"});
}

int PostgresEngine::FunctionsVersion() {
    if (!hasFunctions_) RefuseBooks("The database at '" + address_.shown + "' holds no books.");
    return std::stoi("0" + Ask("SELECT qm_version()::text"));
}

void PostgresEngine::RequireBooks() {
    const int version = FunctionsVersion();
    if (version == ServerFunctionsVersion) return;
    RefuseBooks(
        "The books at '" + address_.shown + "' were made for version " + std::to_string(version) +
        " of the server's functions, and this program needs version " +
        std::to_string(ServerFunctionsVersion) +
        (version < ServerFunctionsVersion ? ": renew them (qmhost renew)." : ": use the newer program."));
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
    try {
        if (mark_ > 0 && hears_ && flight_.IsStillUp()) {
            flight_.Add(ForgetMark, {TextValue(host_)});
            flight_.Send();
            flight_.Finish();
        }
    } catch (const basic::Error&) {
        // It stays for a day.
    }
    flight_.Disconnect();
}

std::unique_ptr<EngineStatement> PostgresEngine::Prepare(const std::string& sql) {
    return std::make_unique<PostgresStatement>(*this, sql);
}

// Sends what waits, in one packet.
void PostgresEngine::Send() {
    if (inTransaction_) RequireConnection();
    flight_.DropUnused();
    begun_ = inTransaction_;
    outbox_.PutInto(flight_);
    flight_.Send();
}

void PostgresEngine::Launch(const PostgresStatement& statement) {
    if (loosely_) outbox_.Put(Lock);
    outbox_.Put(
        {.sql = statement.Sql(), .values = statement.Values(), .main = true, .guarded = inTransaction_});
    if (loosely_) PutMark();
    Send();
}

// Only one answer at a time is on its way.
void PostgresEngine::MakeRoom() {
    if (reading_ != nullptr) std::exchange(reading_, nullptr)->KeepRest();
}

Flight::Row PostgresEngine::FirstRow(PostgresStatement& statement) {
    MakeRoom();
    Settle();
    const bool alone = !inTransaction_;
    Flight::Row row;
    try {
        Launch(statement);
        reading_ = &statement;
        row = flight_.Next();
        if (!row) reading_ = nullptr;
    } catch (const basic::Error& failure) {
        const basic::Error told = Undo(failure);
        if (told.Number != error::ConnectionLost || !alone || !started_) throw told;
        row = Repeat(statement, told);
    }
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

// A question is asked again. A write is not: it might be on its way still.
Flight::Row PostgresEngine::Repeat(PostgresStatement& statement, const basic::Error& lost) {
    if (!statement.Reads()) {
        if (std::exchange(loosely_, false) && ChangeStands())
            throw basic::Error(lost.Number, "The connection to the server was lost, but the change stands.",
                               lost.Source);
        throw basic::Error(lost);
    }
    Reconnect();
    Launch(statement);
    reading_ = &statement;
    return NextRow();
}

void PostgresEngine::PutMark() {
    if (++mark_ == 1) outbox_.Put(ForgetMarks);
    outbox_.Put({.sql = MarkSql, .values = {TextValue(host_), WholeValue(mark_)}});
}

// Under the lock: what was on its way has come to its end then. And on the disk, before it is told.
bool PostgresEngine::MarkStands() {
    PostgresStatement last(*this, "SELECT last FROM qm_host WHERE host = $1");
    last.BindText(1, host_);
    flight_.Run({Lock});
    const bool stands = last.Step() && last.Integer(0) == mark_;
    last.Reset();
    if (stands) Run({flush_});
    return stands;
}

// What became of a change whose answer never came.
bool PostgresEngine::ChangeStands() {
    try {
        Reconnect();
        return MarkStands();
    } catch (const basic::Error& failure) {
        throw basic::Error(
            error::ConnectionLost,
            "The connection to the server was lost, and whether the change stands is not known "
            "(" +
                failure.Description + "). Look before you repeat it.",
            "ado.Engine");
    }
}

Flight::Row PostgresEngine::NextRow() {
    try {
        Flight::Row row = flight_.Next();
        if (!row) reading_ = nullptr;
        return row;
    } catch (const basic::Error& failure) {
        throw Undo(failure);
    }
}

// What a failure leaves behind, by its kind:
//   a guarded statement is refused     the transaction goes back to the guard around it, and goes on
//   a write ahead matches no row       the same, if it is guarded; what is told is the write's own error
//   any other statement is refused     the transaction ends: levels, a commit, and loose writes have no guard
//   the connection is lost             the server has ended the transaction; it ends here, too
// What the packet held behind the failure has not run and is dropped. Those who called see to what a lost
// connection leaves in doubt: FirstRow asks a question outside a transaction again (Repeat); of a loose write
// and of a commit the mark tells whether they stand (ChangeStands, Confirm). Gives what is told.
basic::Error PostgresEngine::Undo(const basic::Error& failure) {
    reading_ = nullptr;
    const Outbox::Item* const failed = outbox_.Failed(flight_);
    const bool goesOn = failed != nullptr && failed->guarded;
    basic::Error told = failed != nullptr ? Outbox::Told(*failed, failure) : failure;
    outbox_.Clear();
    try {
        if (goesOn) Outbox::Undo(flight_);
    } catch (const basic::Error&) {
        Forsake();
    }
    if (!goesOn) Forsake();
    return told;
}

// Leaves whatever transaction the server has open. A connection that is lost has ended it already.
void PostgresEngine::Forsake() {
    outbox_.Clear();
    inTransaction_ = begun_ = false;
    try {
        if (flight_.InTransaction()) flight_.Run({"ROLLBACK"});
    } catch (const basic::Error&) {
        // So it is lost by now.
    }
}

// Sends what waits without anything behind it, and tells its failure.
void PostgresEngine::Deliver() {
    if (outbox_.Empty()) return;
    MakeRoom();
    try {
        Send();
        flight_.Finish();
    } catch (const basic::Error& failure) {
        throw Undo(failure);
    }
}

// Tells what became of the loose writes that went ahead.
void PostgresEngine::Settle() {
    if (inTransaction_ || outbox_.Empty()) return;
    RequireConnection();
    Confirm([&] { Deliver(); });
}

// Where the connection is lost in it, the mark tells whether what was sent stands all the same.
void PostgresEngine::Confirm(const std::function<void()>& send) {
    try {
        send();
    } catch (const basic::Error& failure) {
        if (failure.Number != error::ConnectionLost || mark_ == 0 || !ChangeStands()) throw;
    }
}

void PostgresEngine::Run(const std::vector<std::string>& statements) {
    MakeRoom();
    for (const std::string& statement : statements) outbox_.Put(statement);
    Deliver();
}

void PostgresEngine::CopyTable(const std::string& source, const std::string& target) {
    for (const std::string& script : postgres::CopyOf(*this, source, target)) Script(script);
}

void PostgresEngine::Script(const std::string& sql) {
    MakeRoom();
    Deliver();
    flight_.Script(sql);
    wrote_ = true;
}

void PostgresEngine::Begin() {
    Settle();
    PutBegin();
    inTransaction_ = true;
    wrote_ = false;
}

// One of which the server was told nothing has nothing to commit.
void PostgresEngine::Commit() {
    MakeRoom();
    if (!begun_ && !wrote_) {
        Rollback();
        return Flush();
    }
    if (wrote_) PutMark();
    outbox_.Put("COMMIT");
    if (wrote_ || looseWritten_) outbox_.Put(flush_);
    Confirm([&] { Deliver(); });
    inTransaction_ = begun_ = false;
    looseWritten_ = false;
}

void PostgresEngine::Rollback() {
    MakeRoom();
    Forsake();
}

// What failed before the level is told before it begins.
void PostgresEngine::Savepoint(int level) {
    TellAhead();
    outbox_.Put("SAVEPOINT " + Level(level));
}

void PostgresEngine::Release(int level) {
    Run({"RELEASE " + Level(level)});
}

void PostgresEngine::RollbackTo(int level) {
    if (outbox_.TakeBack("SAVEPOINT " + Level(level))) return;
    outbox_.Clear();
    try {
        Run({"ROLLBACK TO " + Level(level), "RELEASE " + Level(level)});
    } catch (const basic::Error& failure) {
        if (failure.Number != error::ConnectionLost) throw;  // what is lost is undone already
    }
}

// The moment is fixed by the first question, not by BEGIN.
void PostgresEngine::BeginRead() {
    Settle();
    RequireConnection();
    Run({"BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY", "SELECT 1"});
    inTransaction_ = begun_ = true;
    wrote_ = false;
}

// What is lost has ended, too: the next question connects anew.
void PostgresEngine::EndRead() {
    try {
        Run({"COMMIT"});
    } catch (const basic::Error&) {
        inTransaction_ = begun_ = false;
        throw;
    }
    inTransaction_ = begun_ = false;
}

void PostgresEngine::CopyTo(const std::string&, const std::string&) {
    throw basic::Error(error::BadArgument, "Books on a server are copied row by row, not as a file.",
                       "ado.Engine");
}

void PostgresEngine::WriteLoosely(const std::function<void()>& write) {
    Settle();
    RequireConnection();
    loosely_ = true;
    try {
        write();
    } catch (...) {
        loosely_ = false;
        throw;
    }
    loosely_ = false;
    looseWritten_ = true;
}

// Loose writes that go ahead are transactions of their own, in one packet: the first that fails stops those
// behind it.
void PostgresEngine::SendAhead(EngineStatement& statement, const basic::Error* none) {
    const auto& ahead = static_cast<const PostgresStatement&>(statement);
    const bool alone = !inTransaction_ && !together_;
    if (alone) PutBegin();
    outbox_.Put({.sql = ahead.Sql(),
                 .values = ahead.Values(),
                 .guarded = inTransaction_,
                 .none = none != nullptr ? std::optional(*none) : std::nullopt});
    if (alone) PutLooseCommit();
    wrote_ = true;
    if (!together_ && ++ahead_ % MostAhead == 0) TellAhead();
}

void PostgresEngine::PutBegin() {
    outbox_.Put("BEGIN");
    outbox_.Put(Lock);
}

void PostgresEngine::PutLooseCommit() {
    PutMark();
    outbox_.Put("COMMIT");
    looseWritten_ = true;
}

void PostgresEngine::WriteTogether(const std::function<void()>& writes) {
    Settle();
    PutBegin();
    together_ = true;
    try {
        writes();
    } catch (...) {
        together_ = false;
        outbox_.Clear();
        throw;
    }
    together_ = false;
    PutLooseCommit();
    Settle();
}

void PostgresEngine::TellAhead() {
    Settle();
    if (outbox_.HoldsGuarded()) Deliver();
}

bool PostgresEngine::ChangedByOthers() {
    Settle();
    RequireConnection();
    std::string marks = marks_;
    if (hears_)
        Run({"SELECT 1"});  // what was notified before comes with the answer
    else
        marks = Marks();
    const bool changed = flight_.Notified() || marks != marks_;
    marks_ = std::move(marks);
    return std::exchange(missed_, false) || changed;
}

// Each change bears its host's mark. A host that closes takes its mark away, which counts as a change, too.
std::string PostgresEngine::Marks() {
    return Ask("SELECT concat(sum(last), ' ', max(at)) FROM qm_host");
}

void PostgresEngine::Flush() {
    if (!looseWritten_ || inTransaction_) return;
    Settle();
    RequireConnection();
    Confirm([&] { Run({flush_}); });
    looseWritten_ = false;
}

}  // namespace ado
