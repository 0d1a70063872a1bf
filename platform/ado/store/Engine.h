#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ado/dialect/StoreSql.h"
#include "platform/ado/store/KeyedNumbers.h"
#include "platform/ado/store/Schema.h"
#include "platform/basic/Error.h"

// The small face of a store that the data layer works against. Texts are UTF-8. All failures are basic::Error
// with a number of ado::error. The embedded store stands in SqlCipherEngine, a server's in PostgresEngine.
namespace ado {

enum class CellKind { Null, Integer, Real, Text };

class EngineStatement {
  public:
    virtual ~EngineStatement() = default;
    virtual void BindNull(int index) = 0;  // index from 1
    virtual void BindInteger(int index, std::int64_t value) = 0;
    virtual void BindReal(int index, double value) = 0;
    virtual void BindBoolean(int index, bool value) = 0;
    virtual void BindText(int index, std::string_view text) = 0;  // copied or kept until Reset
    virtual bool Step() = 0;                                      // True: a row stands
    virtual void Reset() = 0;                                     // ready to run again; never throws
    virtual int ColumnCount() const = 0;
    virtual CellKind Kind(int column) const = 0;  // column from 0
    virtual std::int64_t Integer(int column) const = 0;
    virtual double Real(int column) const = 0;
    virtual std::string_view Text(int column) const = 0;  // valid until the next Step
};

class Engine {
  public:
    virtual ~Engine() = default;
    virtual void Open(const std::string& source, const std::string& password) = 0;
    virtual void Close() = 0;
    // How much of the store an open connection keeps in memory at most, in KB; of a server, nothing.
    virtual void KeepAtMost(int /*kb*/) {}
    // From now on what would change the store raises ReadOnly, whoever asks for it.
    virtual void RefuseWrites() = 0;
    virtual void ForgetPages() {}  // all that is kept of it
    virtual std::unique_ptr<EngineStatement> Prepare(const std::string& sql) = 0;
    virtual const StoreSql& Sql() const = 0;   // the words that Prepare takes
    virtual std::int64_t Changes() const = 0;  // rows of the last insert, update or delete
    // The identity of the row that was inserted last, by a statement that ended in StoreSql::Returning.
    virtual std::int64_t LastRow() const = 0;
    // Whether a statement that fails inside a transaction leaves nothing behind, wherever it was stopped.
    virtual bool UndoesFailedStatements() const = 0;
    virtual std::vector<std::string> Tables() = 0;  // in the order of their names
    // Without regard to case; nullptr if there is none.
    virtual std::unique_ptr<TableInfo> Describe(std::string_view table) = 0;
    virtual SchemaTable Definition(const std::string& table) = 0;  // of one that stands
    // Makes the table `target` with the columns, types, defaults and indexes of `source`, and its rows in
    // their order. The caller sees to it that all of it happens or nothing.
    virtual void CopyTable(const std::string& source, const std::string& target) = 0;
    // Reads every page and index: a line for each fault.
    virtual std::vector<std::string> CheckPages() = 0;
    virtual void SetNumbers(const KeyedNumbers& numbers) = 0;  // names as the store spells them
    virtual bool InTransaction() const = 0;  // False also after the store rolled back by itself
    virtual void Begin() = 0;                // takes the write lock at once and makes its commit durable
    virtual void Commit() = 0;
    virtual void Rollback() = 0;
    virtual void Savepoint(int level) = 0;
    virtual void Release(int level) = 0;
    virtual void RollbackTo(int level) = 0;  // and releases it
    virtual void BeginRead() = 0;            // holds the present moment in view; others may go on writing
    virtual void EndRead() = 0;
    virtual void CopyTo(const std::string& file, const std::string& password) = 0;  // makes the file
    // Runs a write outside transactions: whole or not at all, and not at once on the disk.
    virtual void WriteLoosely(const std::function<void()>& write) = 0;
    // Takes an insert, update or delete whose outcome nobody needs at once: it runs at the latest before what
    // reads, counts, begins or ends a level, which tells its failure; what was taken behind one that failed
    // is not done, and a rollback takes back what has not run. `none`, if any: raised where it matches no
    // row. A store that does not SendsAhead runs it at once.
    virtual void SendAhead(EngineStatement& statement, const basic::Error* none);
    virtual bool SendsAhead() const { return false; }
    // Runs what `writes` gives to SendAhead as one loose write: all of it or nothing.
    virtual void WriteTogether(const std::function<void()>& writes) { WriteLoosely(writes); }
    virtual void TellAhead() {}              // raises what failed of it so far
    virtual std::string Notice() const = 0;  // what Open found and mended, for the user; "" if nothing
    // Whether another program has written since Open, or since this was last asked.
    virtual bool ChangedByOthers() = 0;
    // From any thread, while the store is open: the statement that runs fails with error::Cancelled; else
    // nothing.
    virtual void Cancel() = 0;
    virtual void Flush() = 0;  // loose writes are on the disk when it returns; in none, nothing
};

// By the form of the source: a file path gives the embedded store, "postgresql://" a server's; any other
// "://" raises ado::error::BadArgument.
std::unique_ptr<Engine> EngineFor(const std::string& source);

// How long a statement waits for another program from the next Open on: 5 s unless a test shortens it.
void SetLockWait(std::chrono::milliseconds wait);

}  // namespace ado
