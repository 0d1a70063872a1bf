#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "platform/ado/Connection.h"

// What an administrator may do with the embedded store beside running statements.
namespace ado {

// Reads every page and index of the store: a line for each fault, none if all is well.
std::vector<std::string> CheckIntegrity(Connection& connection);

// A text that the store holds and that is no UTF-8, as another program may have written it.
struct BadText {
    std::string table, column;
    std::int64_t row = 0;  // its place in the table, from 1
    std::string text;      // U+FFFD where the bytes do not read
};

std::vector<BadText> FindBadTexts(Connection& connection);

// Holds one moment of the store in view while it lives: what is read meanwhile is of that moment, while
// others go on writing. No transaction may be open.
class Snapshot {
  public:
    explicit Snapshot(Connection& connection);
    ~Snapshot();
    Snapshot(const Snapshot&) = delete;
    Snapshot& operator=(const Snapshot&) = delete;

  private:
    Connection& connection_;
};

// Waits until what was written outside transactions is on the disk, whoever else reads or writes. Within a
// transaction it does nothing: its commit waits. Raises what the disk raises.
void Flush(Connection& connection);

// Gives back the memory in which pages of a file are kept: what is read next is read anew.
void ForgetPages(Connection& connection);

// Copies the store into a new file under the same password, while others may go on writing; within a
// Snapshot, as of its moment. Books on a server are copied as by CopyBooks. Raises BadArgument where the file
// exists, and what reading or writing raises; a copy that failed is removed.
void BackUp(Connection& connection, const std::string& file);

// Who may use the copy on a server beside who makes it: nobody, or those of two roles that are made, too.
enum class CopyRoles { None, Make };

// Copies the books as of one moment (that of a Snapshot, within one) into new ones: a new file under the same
// password, or a database of a server, which is empty or made ("postgresql://host/name/"). Each row of the
// copy is compared, value by value. Nothing stands where it fails: raises BadArgument where books stand there
// already, and what reading and writing raises.
void CopyBooks(Connection& connection, const std::string& target, CopyRoles roles = CopyRoles::None);

// The same onto a server, in the place of books that may stand there: their database gets a dated name, which
// is given; "" where none stood. They are left as they are where it fails. Raises Locked where a program has
// them open.
std::string ReplaceBooks(Connection& connection, const std::string& server);

struct TableSums {
    std::string name;
    std::int64_t rows = 0;
    std::map<std::string, std::string> sums;  // of each column's numbers, written with 15 digits
};

// Rows and sums of every table, by name.
std::vector<TableSums> SumTables(Connection& connection);

}  // namespace ado
