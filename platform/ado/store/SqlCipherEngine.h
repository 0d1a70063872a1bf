#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/ado/store/Engine.h"
#include "platform/basic/Error.h"

struct sqlite3;

namespace ado {

// The embedded, encrypted store: one file, kept in write-ahead mode. One connection, used from one thread.
class SqlCipherEngine final : public Engine {
  public:
    SqlCipherEngine() = default;
    SqlCipherEngine(const SqlCipherEngine&) = delete;
    SqlCipherEngine& operator=(const SqlCipherEngine&) = delete;
    ~SqlCipherEngine() override;

    void Open(const std::string& source, const std::string& password) override;
    void Close() override;
    std::unique_ptr<EngineStatement> Prepare(const std::string& sql) override;
    std::int64_t Changes() const override;
    bool InTransaction() const override;
    void Begin() override;
    void Commit() override;
    void Rollback() override;
    void Savepoint(int level) override;
    void Release(int level) override;
    void RollbackTo(int level) override;
    void BeginRead() override;
    void EndRead() override;
    void CopyTo(const std::string& file, const std::string& password) override;
    void BeforeLooseWrite() override;
    void Flush() override;

  private:
    void GiveKey(const std::string& password);
    void Unlock(const std::string& source, const std::string& password);
    void Configure();
    void Run(const std::string& sql);
    std::string Ask(const std::string& sql);  // the first value of the first row as text, else ""
    void WaitForDisk(bool wait);
    void SyncLog();
    [[noreturn]] void Fail();

    sqlite3* store_ = nullptr;
    std::optional<basic::Error> raised_;  // by a function of ours, on its way out through the library
    bool waits_ = false;                  // a commit waits until it is on disk
    bool looseWritten_ = false;           // writes outside transactions may still be on their way to the disk
    int changesAtBegin_ = 0;
    bool undone_ = false;  // a level inside the transaction was rolled back
};

}  // namespace ado
