#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "platform/basic/Error.h"

namespace ado {

class Recordset;
class Session;
using RecordsetPtr = std::shared_ptr<Recordset>;

// Named settings of a connection, found without regard to case.
class PropertyBag {
  public:
    std::string& operator()(std::string_view name);  // made empty at first use
    std::string Get(std::string_view name) const;    // "" if never set

  private:
    std::map<std::string, std::string> byFoldedName_;
};

// A connection to one store. All calls come from one thread. Errors are basic::Error with a number of
// ado::error.
class Connection {
  public:
    Connection();
    ~Connection();  // closes, rolling back what is open
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    std::string Provider;
    // "Data Source" (a file path picks the embedded store) and "Jet OlEDB:Database Password"; where it is
    // set, "Jet OLEDB:Max Buffer Size": how many KB of a file are kept in memory at most, else 65536.
    // "Mode", where it is "Read": what would change the store raises ReadOnly.
    PropertyBag Properties;

    // Opens the store that Properties name; the arguments are accepted for the callers' sake and must be
    // empty. Never creates a file. Raises ObjectOpen, FileNotFound, NotABooksFile, WrongPassword, Damaged,
    // ReadOnly, Locked.
    void Open(std::string_view connectionString = {}, std::string_view user = {},
              std::string_view password = {}, int options = -1);
    // Rolls back what is open, makes what was written outside transactions durable, and closes. Raises
    // ObjectClosed.
    void Close();
    int State() const;  // adStateOpen or adStateClosed
    // What the user should know of the last Open, such as a log set aside; else "".
    std::string Notice() const;

    // Runs one statement. `recordsAffected` takes the rows that an insert, update or delete matched, 0 for
    // all else. A select gives its rows as a forward-only, read-only record set; other statements give a
    // closed one. Outside a transaction the statement is atomic at once and on disk at the next commit or at
    // Close.
    RecordsetPtr Execute(std::string_view statement, std::int64_t* recordsAffected = nullptr,
                         int options = -1);

    // Runs an insert, update or delete whose records nobody asks for at once. On a server it may go out with
    // what follows, to spare a trip: its failure is then raised by the next statement that reads or counts,
    // the next call on a transaction, or Close, and of what follows it none is done. So all of these stand
    // within one trap, and no box between them. `none`, if any: raised where no record is matched.
    void ExecuteAhead(std::string_view statement, const basic::Error* none = nullptr);

    // Gives the new depth, from 1; inner ones are savepoints; waits up to 5 s for another program, on
    // a server with the first statement.
    int BeginTrans();
    void CommitTrans();      // the outermost is on disk when it returns; raises NoTransaction
    void RollbackTrans();    // undoes the innermost only; raises NoTransaction
    int TransDepth() const;  // how many are open, levels that the store lost by itself included

    // Whether another program has written since Open, or since this was last asked. Raises ObjectClosed.
    bool ChangedByOthers();

    // From any thread, while the connection is open: the statement that it runs raises Cancelled; where none
    // runs, nothing. The only call that may come from elsewhere.
    void Cancel();

    const std::shared_ptr<Session>& Opened();  // for this layer: the open store; raises ObjectClosed

  private:
    std::shared_ptr<Session> session_;  // record sets hold it weakly: with Close it is gone for them
};

using ConnectionPtr = std::shared_ptr<Connection>;

}  // namespace ado
