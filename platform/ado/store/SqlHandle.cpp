#include "platform/ado/store/SqlHandle.h"

#include <charconv>
#include <string_view>
#include <thread>
#include <utility>

#include <sqlcipher/sqlite3.h>

#include "platform/ado/Errors.h"
#include "platform/ado/store/Failure.h"
#include "platform/ado/store/SqlFailure.h"

namespace ado {
namespace {

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
    void BindBoolean(int index, bool value) override { BindInteger(index, value ? 1 : 0); }
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

}  // namespace

// Never SQLITE_OPEN_CREATE: a path that is wrong must not leave an empty file behind.
void SqlHandle::Open(const std::string& path) {
    const int code =
        sqlite3_open_v2(path.c_str(), &store_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    if (code != SQLITE_OK) Fail();
    sqlite3_busy_handler(store_, WaitForOthers, this);
}

// The library's own wait soon looks but ten times a second: beside a program that posts without a pause a
// second one would hardly ever meet the moment in which the lock is free.
int SqlHandle::WaitForOthers(void* handle, int looks) {
    SqlHandle& waiting = *static_cast<SqlHandle*>(handle);
    const auto now = std::chrono::steady_clock::now();
    if (looks == 0) waiting.waitingSince_ = now;
    if (now - waiting.waitingSince_ >= LockWait()) return 0;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
    return 1;
}

void SqlHandle::GiveKey(const std::string& password) {
    Run("PRAGMA key = " + Quoted(password));
    const std::string version = Ask("PRAGMA cipher_version");
    if (version.empty())
        throw basic::Error(
            error::Unspecified,
            "A database library without encryption is loaded in this program and stands in the "
            "way of the books' own.",
            "ado.Engine");
    int major = 0;
    std::from_chars(version.data(), version.data() + version.size(), major);
    if (major >= 4) Run("PRAGMA cipher_compatibility = 3");
}

void SqlHandle::Close() noexcept {
    kept_.clear();
    sqlite3_close_v2(std::exchange(store_, nullptr));
}

std::unique_ptr<EngineStatement> SqlHandle::Prepare(const std::string& sql) {
    return std::make_unique<SqlStatement>(store_, raised_, sql);
}

void SqlHandle::Run(const std::string& sql) {
    if (sqlite3_exec(store_, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) Fail();
}

void SqlHandle::RunAgain(std::string_view sql) {
    auto kept = kept_.find(sql);
    if (kept == kept_.end()) kept = kept_.emplace(sql, Prepare(std::string(sql))).first;
    kept->second->Step();
    kept->second->Reset();
}

std::string SqlHandle::Ask(const std::string& sql) {
    SqlStatement statement(store_, raised_, sql);
    return statement.Step() && statement.Kind(0) != CellKind::Null ? std::string(statement.Text(0)) : "";
}

void SqlHandle::Fail() {
    throw FailureOf(store_, raised_);
}

}  // namespace ado
