#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/ado/store/Engine.h"
#include "platform/ado/store/SoleUse.h"
#include "platform/ado/store/SqlCipherCatalog.h"
#include "platform/ado/store/SqlCipherNumbers.h"
#include "platform/ado/store/SqlCipherSql.h"
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
    void KeepAtMost(int kb) override;
    void RefuseWrites() override;
    void ForgetPages() override;
    std::unique_ptr<EngineStatement> Prepare(const std::string& sql) override;
    const StoreSql& Sql() const override { return sql_; }
    std::int64_t Changes() const override;
    std::int64_t LastRow() const override;
    bool UndoesFailedStatements() const override { return false; }
    std::vector<std::string> Tables() override { return sqlcipher::Tables(store_); }
    std::unique_ptr<TableInfo> Describe(std::string_view table) override {
        return sqlcipher::Describe(store_, table);
    }
    SchemaTable Definition(const std::string& table) override { return sqlcipher::Definition(store_, table); }
    void CopyTable(const std::string& source, const std::string& target) override {
        sqlcipher::CopyTable(store_, source, target);
    }
    std::vector<std::string> CheckPages() override;
    void SetNumbers(const KeyedNumbers& numbers) override {
        sqlcipher::SetNumbers(store_, numbers_, numbers);
    }
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
    bool ChangedByOthers() override;
    void Cancel() override;
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
    void DropPages();

    std::optional<OwnUse> use_;
    const KeyedNumbers* numbers_ = nullptr;  // while SetNumbers runs
    SqlHandle store_;
    SqlCipherSql sql_;
    std::string notice_;
    int kept_ = 65536;           // KB of the file in memory: reports read the same pages again and again
    bool waits_ = false;         // a commit waits until it is on disk
    bool looseWritten_ = false;  // writes outside transactions may still be on their way to the disk
    int changesAtBegin_ = 0;
    std::string version_;  // of the file's data, which another program's commit raises
    bool undone_ = false;  // a level inside the transaction was rolled back
};

}  // namespace ado
