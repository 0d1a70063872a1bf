#pragma once

#include <cstddef>
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

    // Makes a name known that the books do not hold yet; its number is 0.
    void Expect(const std::string& name);

  private:
    std::map<std::int32_t, Entry> byId_;  // those that are expected below 0
    std::size_t expected_ = 0;
    std::multimap<std::string, std::int32_t> byFoldedName_;
};

}  // namespace host
