#pragma once

#include <cstdint>

// The numbers of the errors that the data layer raises; docs/errors.md gives each text with its cause and
// cure.
namespace ado::error {
inline constexpr std::int32_t NoCurrentRecord = 3021;  // reading at EOF, MoveNext at EOF, MovePrevious at BOF
inline constexpr std::int32_t BadArgument = 3001;      // a condition or an option that is not supported
inline constexpr std::int32_t ItemNotFound = 3265;     // a field or property name that is not there
inline constexpr std::int32_t ObjectClosed = 3704;     // the operation needs an open object
inline constexpr std::int32_t ObjectOpen = 3705;       // the operation needs a closed object
inline constexpr std::int32_t NotUpdatable = 3251;     // editing a record set that was not opened for it
inline constexpr std::int32_t CannotGoBack = -2147217884;  // going back in a set that goes forward only
inline constexpr std::int32_t Statement = -2147217900;     // the statement does not read
inline constexpr std::int32_t NoSuchTable = -2147217865;   // a table that the books do not hold
inline constexpr std::int32_t UnknownName = -2147217904;  // a field name that no table of the statement bears
inline constexpr std::int32_t BadValue = -2147217913;     // a value that the field's type refuses
inline constexpr std::int32_t WrongPassword = -2147217843;  // the password, or no books file at all
inline constexpr std::int32_t NotABooksFile = -2147467258;  // the file is no database
inline constexpr std::int32_t FileNotFound = -2147467257;   // nothing stands at the path
inline constexpr std::int32_t Locked = -2147217887;    // another program held the books for more than 5 s
inline constexpr std::int32_t Damaged = -2147467256;   // a page of the file does not check out
inline constexpr std::int32_t DiskFull = -2147467255;  // no room for the change
inline constexpr std::int32_t ReadOnly = -2147467254;  // the file or its folder cannot be written
inline constexpr std::int32_t ConnectionLost = -2147467253;  // the server went away
inline constexpr std::int32_t Cancelled = -2147217842;       // Connection::Cancel stopped the statement
inline constexpr std::int32_t Unspecified = -2147467259;     // whatever else the library reports
inline constexpr std::int32_t NoTransaction = -2147168242;  // CommitTrans or RollbackTrans without BeginTrans
}  // namespace ado::error
