#include <gmock/gmock.h>

#include "queries/Search.h"
#include "tests/queries/QueryBooks.h"

using namespace testing;

namespace {

TEST(Search, FindsNumbersNamesAndNarrations) {
    test::QueryBooks books;
    const int rent = books.AddLedger("Shop 14 Rent", "Expenditure(Indirect)"),
              cash = books.AddLedger("Cash", "Cash In Hand");
    books.AddLedger("Rent Deposit", "Current Asset");
    books.Run(
        "Insert Into ItemMaster2001 (Item_ID, Item_Name, Item_Type) Values (3, 'Ball Pen 14', 'General')");
    books.Run("Insert Into tblBills2001 (BillID, BillTxnID, BillVchrNo) Values ('A-14', 5, 14)");
    books.Run(
        "Insert Into tblBills2001 (BillID, BillTxnID, BillVchrNo, ISPoBill, InstrumentID) Values ('B 14', 6, "
        "15, True, 3)");
    books.Run("Insert Into tblPO2001 (poNumber, poSupplierName) Values (14, 'Acme')");
    books.Run("Insert Into tblPO2001 (poNumber, poSupplierName, poCancelled) Values (15, 'Acme', True)");
    for (const int ledger : {rent, cash}) books.Post(14, ledger, 36990, 1, "Payment", "The rent of April");
    for (const int ledger : {rent, cash})
        books.Post(15, ledger, 37020, 1, "Payment", "Rent of May, as of 14");
    queries::Reading reading(books.DataPath());
    const struct {
        const char* text;
        std::vector<std::string> hits;
    } cases[] = {
        {"14",
         {"0 14 Voucher 14 (11-Apr-2001, Payment)",
          "1 " + std::to_string(rent) + " Shop 14 Rent (Expenditure(Indirect))", "2 3 Ball Pen 14 (General)",
          "3 5 A-14 (14)", "4 3 B 14 (15)", "5 14 Order 14 (Acme)",
          "6 15 Rent of May, as of 14 (11-May-2001, Payment)"}},
        {"15", {"0 15 Voucher 15 (11-May-2001, Payment)"}},
        {" rent ",
         {"1 " + std::to_string(cash + 1) + " Rent Deposit (Current Asset)",
          "1 " + std::to_string(rent) + " Shop 14 Rent (Expenditure(Indirect))",
          "6 15 Rent of May, as of 14 (11-May-2001, Payment)",
          "6 14 The rent of April (11-Apr-2001, Payment)"}},
        {"april RENT", {"6 14 The rent of April (11-Apr-2001, Payment)"}},
        {"  ", {}},
        {"99999999999", {}},
        {"it's [a] \"quote\"", {}},
    };
    for (const auto& [text, hits] : cases) {
        std::vector<std::string> found;
        for (const queries::SearchHit& hit : queries::Search(reading, text))
            found.push_back(std::to_string(static_cast<int>(hit.kind)) + " " + std::to_string(hit.number) +
                            " " + hit.text + " (" + hit.detail + ")");
        EXPECT_EQ(found, hits) << text;
    }
    EXPECT_EQ(queries::Search(reading, "rent", 1).size(), 2u);
}

}  // namespace
