#include "platform/ado/store/SqlCipherEngine.h"

#include <cerrno>
#include <charconv>
#include <cstring>
#include <string_view>
#include <utility>

#include <sqlcipher/sqlite3.h>

#include "platform/ado/Errors.h"
#include "platform/ado/store/BooksFile.h"
#include "platform/ado/store/SqlFailure.h"
#include "platform/ado/store/SqlFunctions.h"

namespace ado {
namespace {

constexpr const char* source = "ado.Engine";

class SqlStatement final : public EngineStatement {
  public:
    SqlStatement(sqlite3* store, std::optional<basic::Error>& raised, const std::string& sql)
        : store_(store), raised_(raised) {
        Check(sqlite3_prepare_v2(store, sql.c_str(), static_cast<int>(sql.size()) + 1, &statement_, nullptr));
    }
    SqlStatement(const SqlStatement&) = delete;
    SqlStatement& operator=(const SqlStatement&) = delete;
    ~SqlStatement() override { sqlite3_finalize(statement_); }

    void BindNull(int index) override { Check(sqlite3_bind_null(statement_, index)); }
    void BindInteger(int index, std::int64_t value) override {
        Check(sqlite3_bind_int64(statement_, index, value));
    }
    void BindReal(int index, double value) override { Check(sqlite3_bind_double(statement_, index, value)); }
    void BindText(int index, std::string_view text) override {
        Check(sqlite3_bind_text64(statement_, index, text.data() == nullptr ? "" : text.data(), text.size(),
                                  SQLITE_TRANSIENT, SQLITE_UTF8));
    }

    bool Step() override {
        const int code = sqlite3_step(statement_);
        if (code == SQLITE_ROW) return true;
        if (code == SQLITE_DONE) return false;
        basic::Error failure = FailureOf(store_, raised_);
        Reset();
        throw failure;
    }
    void Reset() override { sqlite3_reset(statement_); }

    int ColumnCount() const override { return sqlite3_column_count(statement_); }
    CellKind Kind(int column) const override {
        switch (sqlite3_column_type(statement_, column)) {
            case SQLITE_INTEGER:
                return CellKind::Integer;
            case SQLITE_FLOAT:
                return CellKind::Real;
            case SQLITE_NULL:
                return CellKind::Null;
            default:
                return CellKind::Text;
        }
    }
    std::int64_t Integer(int column) const override { return sqlite3_column_int64(statement_, column); }
    double Real(int column) const override { return sqlite3_column_double(statement_, column); }
    std::string_view Text(int column) const override {
        const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
        return {bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement_, column))};
    }

  private:
    void Check(int code) {
        if (code != SQLITE_OK) throw FailureOf(store_, raised_);
    }

    sqlite3* store_;
    std::optional<basic::Error>& raised_;
    sqlite3_stmt* statement_ = nullptr;
};

std::string Quoted(std::string_view text) {
    std::string quoted = "'";
    for (char c : text) quoted.append(c == '\'' ? 2 : 1, c);
    return quoted + "'";
}

std::string Level(int level) {
    return "qm_level_" + std::to_string(level);
}

[[noreturn]] void RefuseFile(FileLook look, const std::string& path) {
    if (look == FileLook::Missing)
        throw basic::Error(error::FileNotFound, "Could not find the books file '" + path + "'.", source);
    if (look == FileLook::NotReadable)
        throw basic::Error(error::ReadOnly, "The books file '" + path + "' cannot be written to.", source);
    throw basic::Error(error::NotABooksFile, "The file '" + path + "' is no books file.", source);
}

}  // namespace

SqlCipherEngine::~SqlCipherEngine() {
    if (store_ != nullptr) sqlite3_close_v2(store_);
}

void SqlCipherEngine::Open(const std::string& path, const std::string& password) {
    if (const FileLook look = LookAt(path, false); look != FileLook::Encrypted) RefuseFile(look, path);
    // Never SQLITE_OPEN_CREATE: a path that is wrong must not leave an empty file behind.
    const int code =
        sqlite3_open_v2(path.c_str(), &store_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    try {
        if (code != SQLITE_OK) Fail();
        sqlite3_busy_timeout(store_, static_cast<int>(LockWait().count()));
        Unlock(path, password);
        Configure();
    } catch (...) {
        sqlite3_close_v2(std::exchange(store_, nullptr));
        throw;
    }
}

void SqlCipherEngine::GiveKey(const std::string& password) {
    Run("PRAGMA key = " + Quoted(password));
    const std::string version = Ask("PRAGMA cipher_version");
    if (version.empty())
        throw basic::Error(
            error::Unspecified,
            "A database library without encryption is loaded in this program and stands in the "
            "way of the books' own.",
            source);
    int major = 0;
    std::from_chars(version.data(), version.data() + version.size(), major);
    if (major >= 4) Run("PRAGMA cipher_compatibility = 3");
}

// Gives the key and tries it on the first page: the library itself takes any key and says nothing.
void SqlCipherEngine::Unlock(const std::string& path, const std::string& password) {
    GiveKey(password);
    try {
        Ask("SELECT count(*) FROM sqlite_master");
    } catch (const basic::Error&) {
        if ((sqlite3_errcode(store_) & 0xff) != SQLITE_NOTADB) throw;
        if (const FileLook look = LookAt(path, true); look != FileLook::Encrypted) RefuseFile(look, path);
        throw basic::Error(error::WrongPassword,
                           "Not a valid password for '" + path + "', or its first page is damaged.", source);
    }
}

void SqlCipherEngine::Configure() {
    if (sqlite3_db_readonly(store_, "main") == 1)
        throw basic::Error(error::ReadOnly, "The books file or its folder cannot be written to.", source);
    InstallFunctions(store_, raised_);
    if (Ask("PRAGMA journal_mode") != "wal") Ask("PRAGMA journal_mode = WAL");
    Run("PRAGMA synchronous = NORMAL");
    waits_ = false;
    Run("PRAGMA cache_size = -65536");  // KiB
    Run("PRAGMA foreign_keys = OFF");
    Run("PRAGMA temp_store = MEMORY");
}

void SqlCipherEngine::Close() {
    Flush();
    sqlite3_close_v2(std::exchange(store_, nullptr));
}

std::unique_ptr<EngineStatement> SqlCipherEngine::Prepare(const std::string& sql) {
    return std::make_unique<SqlStatement>(store_, raised_, sql);
}

std::int64_t SqlCipherEngine::Changes() const {
    return sqlite3_changes(store_);
}

bool SqlCipherEngine::InTransaction() const {
    return sqlite3_get_autocommit(store_) == 0;
}

// The write lock at once: a read followed by a write inside a deferred transaction fails without waiting as
// soon as another program has written in between.
void SqlCipherEngine::Begin() {
    WaitForDisk(true);
    Run("BEGIN IMMEDIATE");
    changesAtBegin_ = sqlite3_total_changes(store_);
    undone_ = false;
}

void SqlCipherEngine::Commit() {
    Run("COMMIT");
    // A commit that wrote nothing waits for nothing; what was written loosely before must not stay behind it.
    if (undone_ || sqlite3_total_changes(store_) == changesAtBegin_) Flush();
    looseWritten_ = false;
}

void SqlCipherEngine::Rollback() {
    Run("ROLLBACK");
}

void SqlCipherEngine::Savepoint(int level) {
    Run("SAVEPOINT " + Level(level));
}

void SqlCipherEngine::Release(int level) {
    Run("RELEASE " + Level(level));
}

void SqlCipherEngine::RollbackTo(int level) {
    undone_ = true;  // the count of changes no longer tells whether anything is left to write
    Run("ROLLBACK TO " + Level(level));
    Release(level);
}

void SqlCipherEngine::BeforeLooseWrite() {
    WaitForDisk(false);
    looseWritten_ = true;
}

void SqlCipherEngine::Flush() {
    if (!looseWritten_ || InTransaction()) return;
    SyncLog();
    looseWritten_ = false;
}

// A checkpoint would not do: beside a reader of an older moment it may sync nothing.
void SqlCipherEngine::SyncLog() {
    sqlite3_file* log = nullptr;
    sqlite3_file_control(store_, "main", SQLITE_FCNTL_JOURNAL_POINTER, &log);
    if (log == nullptr || log->pMethods == nullptr) return;  // no log: nothing was written
    if (log->pMethods->xSync(log, SQLITE_SYNC_NORMAL) != SQLITE_OK)
        throw basic::Error(
            error::Unspecified,
            std::string("The disk could not be read or written (") + std::strerror(errno) + ").", source);
}

// The moment is fixed by the first read, not by BEGIN.
void SqlCipherEngine::BeginRead() {
    Run("BEGIN");
    Ask("SELECT count(*) FROM sqlite_master");
}

void SqlCipherEngine::EndRead() {
    Run("COMMIT");
}

void SqlCipherEngine::CopyTo(const std::string& file, const std::string& password) {
    SqlCipherEngine copy;
    const int code =
        sqlite3_open_v2(file.c_str(), &copy.store_,
                        SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX, nullptr);
    if (code != SQLITE_OK) copy.Fail();
    copy.GiveKey(password);
    sqlite3_backup* backup = sqlite3_backup_init(copy.store_, "main", store_, "main");
    if (backup == nullptr) copy.Fail();
    sqlite3_backup_step(backup, -1);
    if (sqlite3_backup_finish(backup) != SQLITE_OK) copy.Fail();
}

// Switched only when the other kind of write comes, so that a stream of either kind pays nothing for it.
void SqlCipherEngine::WaitForDisk(bool wait) {
    if (wait == waits_) return;
    Run(wait ? "PRAGMA synchronous = FULL" : "PRAGMA synchronous = NORMAL");
    waits_ = wait;
}

void SqlCipherEngine::Run(const std::string& sql) {
    if (sqlite3_exec(store_, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) Fail();
}

std::string SqlCipherEngine::Ask(const std::string& sql) {
    SqlStatement statement(store_, raised_, sql);
    return statement.Step() && statement.Kind(0) != CellKind::Null ? std::string(statement.Text(0)) : "";
}

void SqlCipherEngine::Fail() {
    throw FailureOf(store_, raised_);
}

}  // namespace ado
