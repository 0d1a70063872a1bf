#include "host/make/BooksStore.h"

#define SQLITE_HAS_CODEC  // declares sqlite3_key
#include <cstring>
#include <memory>

#include <sqlite3.h>

#include "host/make/Books.h"
#include "host/make/Fail.h"

namespace host {

BooksStore::BooksStore(const std::filesystem::path& file) : name_(file.filename().string()) {
    const int opened =
        sqlite3_open_v2(file.c_str(), &store_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    try {
        Check(opened);
        Check(sqlite3_key(store_, BooksPassword, static_cast<int>(std::strlen(BooksPassword))));
        sqlite3_busy_timeout(store_, 5000);
    } catch (...) {
        sqlite3_close_v2(store_);
        throw;
    }
}

BooksStore::~BooksStore() {
    sqlite3_close_v2(store_);
}

std::vector<std::string> BooksStore::Run(const std::string& sql, const std::vector<std::string>& texts) {
    sqlite3_stmt* raw = nullptr;
    Check(sqlite3_prepare_v2(store_, sql.c_str(), -1, &raw, nullptr));
    const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> statement(raw, sqlite3_finalize);
    for (std::size_t i = 0; i < texts.size(); ++i)
        Check(sqlite3_bind_text(raw, static_cast<int>(i + 1), texts[i].data(),
                                static_cast<int>(texts[i].size()), SQLITE_TRANSIENT));
    std::vector<std::string> rows;
    int result = sqlite3_step(raw);
    for (; result == SQLITE_ROW; result = sqlite3_step(raw)) {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(raw, 0));
        rows.emplace_back(text ? text : "");
    }
    Check(result);
    return rows;
}

void BooksStore::RunAll(std::string_view script) {
    Check(sqlite3_exec(store_, std::string(script).c_str(), nullptr, nullptr, nullptr));
}

void BooksStore::Close() {
    Run("PRAGMA wal_checkpoint(TRUNCATE)");
    Check(sqlite3_close(store_));
    store_ = nullptr;
}

void BooksStore::Check(int result) {
    if (result != SQLITE_OK && result != SQLITE_DONE) Fail(name_ + ": " + sqlite3_errmsg(store_));
}

}  // namespace host
