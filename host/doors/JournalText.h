#pragma once

#include <string>

// The words of the journal format that plain-text accounting programs read, as the books are written in it
// and read from it.
namespace host::journal {

// The first line of a journal that `export` wrote: the numbers of its vouchers are kept when it comes in.
inline constexpr const char* OwnMark = "; qmhost journal 1";

// Comments that say more of an account or a transaction: "; type: Payment".
inline constexpr const char* NameTag = "name: ";  // the ledger's name, where the account's differs
inline constexpr const char* TypeTag = "type: ";  // of the voucher
inline constexpr const char* NarrationTag =
    "narration: ";                                     // where the description cannot bear it as it stands
inline constexpr const char* OpeningType = "Opening";  // the transaction of the opening balances
inline constexpr const char* Commodity = "INR";

// A text within double quotes that holds every character, in letters that no program takes for a tag, a date
// or a line's end; and back. What is not so quoted is given as it stands.
std::string QuotedText(const std::string& text);
std::string UnquotedText(const std::string& quoted);

// A text as a part of an account's name, or as a description, can bear it: without line ends, runs of blanks,
// what begins a comment and, in an account, the colon that parts its levels.
std::string AccountPart(const std::string& name);
std::string Description(const std::string& narration);

}  // namespace host::journal
