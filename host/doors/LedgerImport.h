#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "core/LedgerRows.h"
#include "host/doors/CsvTable.h"
#include "host/doors/Import.h"

namespace host {

// Checks new ledgers against the books, as they are at the beginning, and against each other.
class NewLedgers {
  public:
    NewLedgers();  // reads the groups and the names that are taken

    using Blame = std::function<void(qm::LedgerField, const std::string&)>;

    // By the tests of the ledger screen, in their order; gives the group the name that the books write. True
    // where nothing was blamed; the name is taken then.
    bool Check(qm::LedgerEntry& entry, int line, const Blame& blame);

    const std::string* PrimaryGroup(const std::string& name) const;  // as the books write it

  private:
    std::string GroupNames() const;  // with commas between
    std::string Refusal(const qm::LedgerEntry& entry) const;

    std::map<std::string, std::string> groups_;  // primary ones by their folded names
    std::map<std::string, int> taken_;           // folded names; the line of the file, 0 for the books
    int highest_ = 0;  // number of a group or a ledger, those that are to come included
};

// Writes a ledger as the ledger screen does. Raises where its name is taken by now.
void AddLedger(const qm::LedgerEntry& entry);

// A file of ledgers: name, group, opening and side, and the party's details by the fields that they go to.
const std::vector<Head>& LedgerHeads();
void CheckLedgers(CsvTable& table, qm::clQm&, ImportFile& file, const CheckProgress& progress);

}  // namespace host
