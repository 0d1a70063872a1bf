#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/ado/store/Engine.h"
#include "platform/ado/store/SoleUse.h"
#include "platform/ado/store/SqlHandle.h"

namespace ado {

// The embedded, encrypted store: one file, kept in write-ahead mode. One connection, used from one thread.
class SqlCipherEngine final : public Engine {
  public:
    SqlCipherEngine() = default;
    SqlCipherEngine(const SqlCipherEngine&) = delete;
    SqlCipherEngine& operator=(const SqlCipherEngine&) = delete;
    ~SqlCipherEngine() override { Leave(); }

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
    void WriteLoosely(const std::function<void()>& write) override;
    std::string Notice() const override { return notice_; }
    void Flush() override;

  private:
    bool OpenOnce(const std::string& source, const std::string& password);
    void Unlock(const std::string& source, const std::string& password);
    void Configure();
    void Leave();
    void BeginWriting();
    std::string TextOfLostCommit(const std::string& text);
    void WaitForDisk(bool wait);
    void SyncLog();

    std::optional<OwnUse> use_;
    SqlHandle store_;
    std::string notice_;
    bool waits_ = false;         // a commit waits until it is on disk
    bool looseWritten_ = false;  // writes outside transactions may still be on their way to the disk
    int changesAtBegin_ = 0;
    bool undone_ = false;  // a level inside the transaction was rolled back
};

}  // namespace ado
