#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "core/clQm.h"

namespace host {

// The ledgers that can be posted to in the year in force, by number and by name without regard to case.
class LedgerBook {
  public:
    explicit LedgerBook(qm::clQm& books);

    struct Entry {
        std::int32_t id = 0;
        std::string name;
    };
    // What a cell of a file names: a ledger's number, or its name. nullptr with a reason if it names none, or
    // two.
    const Entry* Find(const std::string& cell, std::string& reason) const;

  private:
    std::map<std::int32_t, Entry> byId_;
    std::multimap<std::string, std::int32_t> byFoldedName_;
};

}  // namespace host
