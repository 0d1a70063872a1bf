#include <gmock/gmock.h>

#include "host/make/Books.h"
#include "host/make/BooksStore.h"
#include "tests/host/commands/Qmhost.h"
#include "tests/support/TempFolder.h"

// The command as it is called from a shell.
namespace {

using test::TempFolder;
using ::testing::HasSubstr;
using ::testing::StartsWith;

TEST(Create, TellsTheThreeOutcomesApart) {
    const TempFolder folder;
    const std::string books = (folder / "books").string();
    EXPECT_EQ(Qmhost("create " + books).code, 0);
    const struct {
        std::string arguments;
        int code;
        std::string said;
    } cases[] = {
        {"create " + books, 1,
         "qmhost: " + books + "/QmAccount.mdb stands there already; nothing was changed\n"},
        {"create /proc/self/books", 1,
         "qmhost: cannot make the folder /proc/self/books: No such file or directory\n"},
        {"nonsense", 2, "qmhost: "},
        {"create", 2, "qmhost: DIR is required"},
        {"create x --year 1899", 2, "qmhost: --year: Value 1899 not in range"},
        {"create x --year next", 2, "qmhost: "},
        {"create x --size 3", 2, "qmhost: "},
        {"--help", 0, "Drives the accounts module"},
        {"create --help", 0, "Lay down new books in a folder"},
        {"--version", 0, "qmhost "},
    };
    for (const auto& [arguments, code, said] : cases) {
        const Outcome outcome = Qmhost(arguments);
        EXPECT_EQ(outcome.code, code) << arguments;
        EXPECT_THAT(outcome.said, StartsWith(said)) << arguments;
        const auto lines = std::count(outcome.said.begin(), outcome.said.end(), '\n');
        EXPECT_TRUE(code == 0 || lines == 1) << outcome.said;
    }
}

class SampleBooks : public ::testing::Test {
  protected:
    static void SetUpTestSuite() {
        folder_ = std::make_unique<TempFolder>();
        const Outcome outcome = Qmhost("create " + (*folder_ / "books").string() + " --sample --year 2023");
        ASSERT_EQ(outcome.code, 0) << outcome.said;
        EXPECT_THAT(outcome.said, HasSubstr("sample books for 2023-2024"));
    }
    static void TearDownTestSuite() { folder_.reset(); }

    std::string Ask(const std::string& sql) {
        std::string lines;
        for (const auto& row : host::BooksStore(*folder_ / "books" / host::BooksFile).Run(sql))
            lines += row + "\n";
        return lines;
    }

    static inline std::unique_ptr<TempFolder> folder_;
};

// The audit looks at the ledgers, the vouchers, the days and the totals.
TEST_F(SampleBooks, AreWhole) {
    EXPECT_EQ(Qmhost("check " + (*folder_ / "books").string()).said, "0 errors, 0 notes\n");
    EXPECT_EQ(
        Ask("SELECT count(DISTINCT LedgerTrnNo) || ' ' || min(LedgerTrnNo) || ' ' || max(LedgerTrnNo) || ' ' "
            "|| count(DISTINCT LedgerTrnType) || ' ' || min(LedgerMcGenerated) FROM tb_Ledger2023"),
        "60 1 60 4 1\n");
    EXPECT_EQ(Ask("SELECT max(LedgerTxnDate) FROM tb_Ledger2023"), "45380\n");  // the last of March 2024
    EXPECT_EQ(Ask("SELECT LedgerLedBal FROM tb_Ledger2023 WHERE LedgerTrnNo = 1"), "21000Cr\n142000Dr\n");
    EXPECT_EQ(Ask("SELECT DISTINCT LedgerNarration FROM tb_Ledger2023 WHERE LedgerTrnNo = 31"),
              "नवरात्रि से पहले की नकद बिक्री\n");
    EXPECT_EQ(Ask("SELECT count(*) FROM tblError"), "0\n");
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(*folder_ / "books")) files += entry.exists();
    EXPECT_EQ(files, 1);
}

TEST_F(SampleBooks, HoldLedgersAndItemsAsTheirScreensWriteThem) {
    EXPECT_EQ(Ask("SELECT count(*) FROM Ledger_Master WHERE substr(Company_name, 1, 1) <> ' ' OR "
                  "substr(Notes, 1, 1) <> ' ' OR Company_name IS NULL"),
              "0\n");
    EXPECT_EQ(
        Ask("SELECT sum(CASE Bal_Type WHEN 'D' THEN Opening_Bal ELSE -Opening_Bal END) FROM Ledger_Details"),
        "0.0\n");
    EXPECT_EQ(Ask("SELECT count(DISTINCT PrimaryGrp) FROM Ledger_Master"), "16\n")
        << "every group has a ledger";
    EXPECT_EQ(Ask("SELECT Name FROM Ledger_Master, Ledger_Details USING (Ledger_ID) WHERE LedDetDRTxnTot IS "
                  "NULL AND LedDetCRTxnTot IS NULL ORDER BY Name"),
              "Proprietor Capital\nRent Deposit\nStock of Goods\n");
    EXPECT_EQ(Ask("SELECT count(*) || ' ' || count(IssuedQty) || ' ' || sum(Open_Stock = Balance) || ' ' || "
                  "count(DISTINCT Item_Type) FROM ItemMaster2023"),
              "12 11 12 5\n");
    EXPECT_EQ(Ask("SELECT sum(Open_Stock * Unit_Price) = (SELECT Opening_Bal FROM Ledger_Master, "
                  "Ledger_Details USING (Ledger_ID) WHERE PrimaryGrp = 'Stock in Hand') FROM ItemMaster2023"),
              "1\n");
}

TEST(Create, LaysASampleIntoTodaysYear) {
    const TempFolder folder;
    const Outcome outcome = Qmhost("create " + (folder / "books").string() + " --sample");
    EXPECT_EQ(outcome.code, 0) << outcome.said;
    host::BooksStore store(folder / "books" / host::BooksFile);
    EXPECT_EQ(store
                  .Run("SELECT strftime('%Y', 'now', 'localtime', '-3 months') FROM Fnncl_Yr_Mstr WHERE "
                       "substr(Fnncl_Yr, 1, 4) = strftime('%Y', 'now', 'localtime', '-3 months')")
                  .size(),
              1u);
}

}  // namespace
