#pragma once

#include <set>
#include <string>
#include <vector>

#include "core/DBCode.h"
#include "tests/support/FreshBooks.h"

namespace test {

using PostedRows = std::multiset<std::string>;  // "voucher|ledger|debit|credit", as poster tells them

// Books with the two ledgers that the program poster posts to. They are closed: the programs that a test
// starts are alone with them, and each of the looks opens and closes them.
class PostedBooks {
  public:
    PostedBooks();

    FreshBooks& Fresh() { return books_; }
    std::string DataPath() const { return books_.DataPath(); }
    std::string File() const { return DataPath() + qm::BooksFile; }

    // The rows that stand. Fails the test unless the ledgers' totals are exactly their sums, and the audit
    // finds every voucher of one side and nothing else.
    PostedRows Look();

    int bank = 0, supplier = 0;  // the two ledgers

  private:
    void ExpectTotals(const PostedRows& rows);
    void ExpectAudit(const PostedRows& rows);

    FreshBooks books_{2001};
};

}  // namespace test
