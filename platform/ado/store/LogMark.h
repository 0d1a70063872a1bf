#pragma once

#include <string>

#include "platform/ado/store/SqlHandle.h"

// What ties a write-ahead log to its books file. After a crash the log is taken into the file that stands
// beside it, page for page, whichever file that is; the library asks nothing. So the first transaction of
// each log puts a new mark into the store's first page, and beside it the mark that stood there before. A log
// belongs to a file that bears the mark before its first one, or a first page that the log itself holds.
namespace ado {

struct Mark {
    std::string before, own;  // random numbers; "0" where nothing was ever marked
};

enum class LogStart {
    No,     // the log holds what is not in the file yet: it goes on
    May,    // all that it held is in the file
    Empty,  // the same, and nothing was ever written to it
};

// Whether the transaction that has just begun may be the first of a log. The connection holds the write lock.
LogStart StartOfLog(const SqlHandle& store);

void WriteMark(SqlHandle& store);  // within a transaction
Mark ReadMark(SqlHandle& store);

// Cuts off what stands in the log behind the last transaction that counts, and brings that to the disk.
// Within a write transaction that has written nothing. False where the disk does not take it.
bool CutLog(const SqlHandle& store);

}  // namespace ado
