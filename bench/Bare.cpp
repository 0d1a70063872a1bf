#include "bench/Bare.h"

#include <stdexcept>

#include <benchmark/benchmark.h>

#include "core/DBCode.h"

namespace bench {
namespace {

void Check(sqlite3* db, int code) {
    if (code != SQLITE_OK && code != SQLITE_DONE && code != SQLITE_ROW)
        throw std::runtime_error(std::string("bare library: ") + sqlite3_errmsg(db));
}

}  // namespace

BareStatement::BareStatement(sqlite3* db, const std::string& sql) {
    Check(db, sqlite3_prepare_v2(db, sql.c_str(), -1, &statement_, nullptr));
}

BareStatement& BareStatement::Bind(int index, std::int64_t value) {
    sqlite3_bind_int64(statement_, index, value);
    return *this;
}

BareStatement& BareStatement::Bind(int index, double value) {
    sqlite3_bind_double(statement_, index, value);
    return *this;
}

BareStatement& BareStatement::Bind(int index, const std::string& text) {
    sqlite3_bind_text(statement_, index, text.c_str(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
    return *this;
}

bool BareStatement::Step() {
    const int code = sqlite3_step(statement_);
    Check(sqlite3_db_handle(statement_), code);
    return code == SQLITE_ROW;
}

void BareStatement::Run() {
    while (Step()) continue;
    Reset();
}

std::int64_t ReadTexts(BareStatement& rows) {
    std::int64_t read = 0;
    for (; rows.Step(); ++read)
        for (int column = 0; column < rows.Columns(); ++column) {
            std::string text(reinterpret_cast<const char*>(rows.Text(column)));
            benchmark::DoNotOptimize(text);
        }
    rows.Reset();
    return read;
}

Bare::Bare(const std::filesystem::path& folder, bool durable) {
    const std::string file = (folder / qm::BooksFile).string();
    Check(db_, sqlite3_open_v2(file.c_str(), &db_, SQLITE_OPEN_READWRITE, nullptr));
    Run(std::string("PRAGMA key = '") + qm::BooksPassword + "'");
    Run("PRAGMA cache_size = -65536");
    Run(durable ? "PRAGMA synchronous = FULL" : "PRAGMA synchronous = NORMAL");
}

void Bare::Run(const std::string& sql) {
    Check(db_, sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, nullptr));
}

}  // namespace bench
