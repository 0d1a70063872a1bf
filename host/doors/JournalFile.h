#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "host/doors/Faults.h"

namespace host {

struct JournalPosting {
    int line = 0;
    std::string account;
    std::int64_t paise = 0;  // debit positive
    std::string narration;
};

// An amount without its side, and without decimals where it has none.
std::string FigureText(std::int64_t paise);

struct JournalTransaction {
    int line = 0;
    std::string date;       // as written
    std::string code;       // in the parentheses behind the date
    std::string type;       // its tag; "" where it has none
    std::string narration;  // its tag, or the description
    std::vector<JournalPosting> postings;
    bool broken = false;  // a line of it was blamed
};

struct JournalAccount {
    int line = 0;
    std::string account;
    std::string name;  // its tag; "" where it has none
};

// What is read of a file in the journal format of plain-text accounting: what `export` writes, and the plain
// part that other programs write: accounts that are declared, transactions with dates, marks, codes,
// descriptions and comments, postings in one commodity, one of which may go without its amount. All that
// would change the figures (prices, lots, assertions, virtual postings, rules, includes) is a fault.
struct JournalFile {
    bool own = false;  // `export` wrote it
    std::vector<JournalAccount> accounts;
    std::vector<JournalTransaction> transactions;
    Faults faults;
};

// Raises basic::Error for a file that cannot be read.
JournalFile ReadJournal(const std::filesystem::path& file);

}  // namespace host
