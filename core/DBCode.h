#pragma once

#include <string>
#include <vector>

#include "platform/ado/Recordset.h"
#include "platform/basic/Value.h"

namespace qm {

// The file that holds the books, in the folder dataPath, and its password.
inline constexpr const char* BooksFile = "QmAccount.mdb";
inline constexpr const char* BooksPassword = "quintel";

// Opens the shared connection on dataPath followed directly by the file name. Does nothing while it is open.
// A failure is raised unchanged.
void OpenConnection(const std::string& fileName);

// Reads the year with the flag into the current year string. On books with no current year it seeds
// "2001-2002" and makes tb_Ledger2001; where only the flag was lost, the table exists and the error goes to
// the caller with the row inserted.
void LoadCurrentYear();

// dataPath and the file name with a "/" between them unless dataPath already ends in one.
std::string BuildDataFilePath(const std::string& fileName);

// Field 0 of each row of a select, in row order.
std::vector<basic::Value> FetchFirstColumn(const std::string& sql);

ado::RecordsetPtr ExecuteRecordset(const std::string& sql);
void ExecuteNoRecords(const std::string& sql);

// Builds and runs an insert or update of the fields, a value for each: a value of only blanks is written as
// NULL for every type; type letters "N" (number) and "B" (boolean) go in as they stand, any other trimmed and
// quoted, single quotes doubled. Each always tells the count in a message box. The arrays count from 0 and
// are equally long. Failures are raised.
void InsertRecord(const std::string& table, const std::vector<std::string>& fields,
                  const std::vector<std::string>& values, const std::vector<std::string>& types);
void UpdateRecords(const std::string& table, const std::vector<std::string>& fields,
                   const std::vector<std::string>& values, const std::vector<std::string>& types,
                   const std::string& where);

// Climbs from a group to its primary group and leaves that name and id in the shared state; "" and 0 for a
// name that no row bears. Raises 6 "Overflow" for an id beyond 16 bits.
void GetPrimaryGroup(const std::string& groupName);

// A date gives its day number (whole days since 01/01/1900: 01-Apr-2001 is 36980), a number gives the date of
// that day number, anything else 0. A failure is logged as "DBCode" and gives Null.
basic::Value DateNumber(const basic::Value& value);

}  // namespace qm
