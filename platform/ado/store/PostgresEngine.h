#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ado/store/Engine.h"
#include "platform/ado/store/Flight.h"
#include "platform/ado/store/Outbox.h"
#include "platform/ado/store/PostgresCatalog.h"
#include "platform/ado/store/PostgresNumbers.h"
#include "platform/ado/store/PostgresSql.h"
#include "platform/ado/store/ServerAddress.h"

namespace ado {

class PostgresStatement;

// Books on a server, a database of their own. They behave as those in a file do:
// - One program writes at a time. Begin and each loose write take the books' lock, which ends with their
//   transaction; so nothing dead-locks and no number is drawn twice inside one.
// - A commit is on the server's disk, and on that of a standby that it waits for, when Commit returns. The
//   lock is given back before: the commit itself waits for nothing, a second small one behind it does, for
//   both.
// - A connection that is lost is made anew where no transaction is open. Each write leaves a mark of its
//   host, so what became of a commit whose answer never came can be told; a server's own numbers of
//   transactions lie after another one has taken over.
// - A statement that fails inside a transaction leaves nothing behind: each goes out with a savepoint around
//   it, in one packet.
// - What needs no answer at once waits in the outbox: the beginning of a transaction and of its levels, and
//   what SendAhead takes. It goes out in front of what asks next, in the same packet.
class PostgresEngine final : public Engine {
  public:
    PostgresEngine() = default;
    PostgresEngine(const PostgresEngine&) = delete;
    PostgresEngine& operator=(const PostgresEngine&) = delete;

    void Open(const std::string& source, const std::string& password) override;
    void Close() override;
    void RefuseWrites() override;
    std::unique_ptr<EngineStatement> Prepare(const std::string& sql) override;
    const StoreSql& Sql() const override { return sql_; }
    std::int64_t Changes() const override { return flight_.Matched(); }
    std::int64_t LastRow() const override { return lastRow_; }
    bool UndoesFailedStatements() const override { return true; }
    std::vector<std::string> Tables() override { return postgres::Tables(*this); }
    std::unique_ptr<TableInfo> Describe(std::string_view table) override {
        return postgres::Describe(*this, table);
    }
    SchemaTable Definition(const std::string& table) override { return postgres::DefinitionOf(*this, table); }
    void SetNumbers(const KeyedNumbers& numbers) override { postgres::SetNumbers(*this, numbers); }
    void CopyTable(const std::string& source, const std::string& target) override;
    std::vector<std::string> CheckPages() override { return postgres::CheckPages(*this); }
    bool InTransaction() const override { return inTransaction_; }
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
    void SendAhead(EngineStatement& statement, const basic::Error* none) override;
    bool SendsAhead() const override { return true; }
    void TellAhead() override;
    void WriteTogether(const std::function<void()>& writes) override;
    std::string Notice() const override { return ""; }
    void Flush() override;
    bool ChangedByOthers() override;
    void Cancel() override { flight_.Cancel(); }

    // Open without the books: for those that are being made.
    void Connect(const ServerAddress& address);
    // Of the functions that were installed with the books; raises NotABooksFile where there were none when it
    // was connected.
    int FunctionsVersion();
    // Several statements in one text, without parameters.
    void Script(const std::string& sql);

    // For the statements: sends one and gives its first row, then the others; null behind the last one.
    Flight::Row FirstRow(PostgresStatement& statement);
    Flight::Row NextRow();

  private:
    void Configure();
    std::string Marks();
    void Start();
    void Reconnect();
    void RequireConnection();
    void PutBegin();
    void PutLooseCommit();
    void PutMark();
    bool MarkStands();
    bool ChangeStands();
    Flight::Row Repeat(PostgresStatement& statement, const basic::Error& lost);
    void RequireBooks();
    void MakeRoom();
    void Launch(const PostgresStatement& statement);
    void Send();
    void Deliver();
    void Settle();
    void Confirm(const std::function<void()>& send);
    void Run(const std::vector<std::string>& statements);
    basic::Error Undo(const basic::Error& failure);
    void Forsake();
    std::string Ask(const std::string& sql, int column = 0);

    ServerAddress address_;
    Flight flight_;
    Outbox outbox_;
    PostgresSql sql_;
    PostgresStatement* reading_ = nullptr;  // whose rows are on their way
    std::string flush_;                     // the statement whose own commit waits for the disk
    bool inTransaction_ = false;
    bool begun_ = false;         // on the server, too
    int ahead_ = 0;              // writes that SendAhead took
    bool loosely_ = false;       // within WriteLoosely
    bool together_ = false;      // within WriteTogether
    bool wrote_ = false;         // the transaction, so far
    bool looseWritten_ = false;  // commits may still be on their way to the disk
    std::int64_t lastRow_ = 0;
    std::string host_;           // by which the server knows this connection's marks
    std::int64_t mark_ = 0;      // of the last write
    bool onlyReads_ = false;     // see RefuseWrites
    bool started_ = false;       // the books have been seen: what is lost is asked again
    bool missed_ = false;        // what others wrote while there was no connection
    bool hears_ = false;         // is notified of changes; else they show by all hosts' marks
    bool hasFunctions_ = false;  // when it was connected
    std::string marks_;
};

}  // namespace ado
