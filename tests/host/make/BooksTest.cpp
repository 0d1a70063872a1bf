#include <csignal>
#include <fstream>
#include <optional>

#include <gmock/gmock.h>
#include <sys/resource.h>

#include "host/make/Books.h"
#include "host/make/BooksStore.h"
#include "platform/basic/Error.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/InChild.h"
#include "tests/support/TempFolder.h"

namespace {

using test::Bytes;
using test::TempFolder;
namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::UnorderedElementsAre;
using Texts = std::vector<std::string>;

Texts Ask(const fs::path& folder, const std::string& sql) {
    return host::BooksStore(folder / host::BooksFile).Run(sql);
}

Texts Names(const fs::path& folder) {
    Texts names;
    for (const auto& entry : fs::directory_iterator(folder)) names.push_back(entry.path().filename());
    return names;
}

const std::string YearTables =
    "SELECT name FROM sqlite_master WHERE type = 'table' AND name GLOB '*20[0-9][0-9]' ORDER BY name";

TEST(CreateBooks, DeliversTheFirstYearForTheFirstStartToFinish) {
    const TempFolder folder;
    host::CreateBooks(folder);
    EXPECT_THAT(Names(folder), ElementsAre(host::BooksFile));
    EXPECT_THAT(Ask(folder, "SELECT 1 FROM Fnncl_Yr_Mstr"), IsEmpty());
    EXPECT_THAT(Ask(folder, YearTables),
                ElementsAre("ItemMaster2001", "tblBills2001", "tblItemLed2001", "tblPO2001", "tblPODet2001"));
    EXPECT_THAT(Ask(folder, "SELECT vchrmstType || vchrmstFinYear || vchrmstLastNo FROM tblvchrmst"),
                ElementsAre("Journal20010", "Payment20010", "Receipt20010", "Contra20010"));
    EXPECT_THAT(Ask(folder, "SELECT 1 FROM Ledger_Master, Ledger_Details, tblError, tblsysTPL"), IsEmpty());
}

TEST(CreateBooks, LaysDownAGivenYearAsTheCurrentOne) {
    const TempFolder folder;
    host::CreateBooks(folder / "a/b/", 1999);
    EXPECT_THAT(Ask(folder / "a/b", "SELECT Fnncl_Yr || Crrnt_Yr_Flg FROM Fnncl_Yr_Mstr"),
                ElementsAre("1999-20001"));
    EXPECT_THAT(Ask(folder / "a/b", "SELECT DISTINCT vchrmstFinYear FROM tblvchrmst"), ElementsAre("1999"));
    EXPECT_THAT(
        Ask(folder / "a/b",
            "SELECT name FROM sqlite_master WHERE type = 'table' AND name LIKE '%1999' ORDER BY name"),
        ElementsAre("ItemMaster1999", "tb_Ledger1999", "tblBills1999", "tblItemLed1999", "tblPO1999",
                    "tblPODet1999"));
    EXPECT_THAT(Ask(folder / "a/b", YearTables), IsEmpty());
}

TEST(CreateBooks, RefusesWhereBooksStandAndLeavesThemAlone) {
    const TempFolder folder;
    std::ofstream(folder / host::BooksFile) << "someone's books";
    EXPECT_THAT(test::TextOfError([&] { host::CreateBooks(folder); }), HasSubstr("stands there already"));
    EXPECT_EQ(Bytes(folder / host::BooksFile), "someone's books");
    EXPECT_THAT(Names(folder), ElementsAre(host::BooksFile));

    // Also where they appear while the new ones are being made.
    const TempFolder late;
    const auto appear = [&](const fs::path&) { std::ofstream(late / host::BooksFile) << "someone's books"; };
    EXPECT_THAT(test::TextOfError([&] { host::CreateBooks(late, {}, appear); }),
                HasSubstr("stands there already"));
    EXPECT_EQ(Bytes(late / host::BooksFile), "someone's books");
    EXPECT_THAT(Names(late), ElementsAre(host::BooksFile));
}

TEST(CreateBooks, RefusesAYearThatHasNoShortForm) {
    const TempFolder folder;
    for (const int year : {-1, 0, 99, 1899, 9999, 20011}) {
        EXPECT_THAT(test::TextOfError([&] { host::CreateBooks(folder, year); }), HasSubstr("is not one of"))
            << year;
    }
    EXPECT_TRUE(folder.IsEmpty());
}

TEST(CreateBooks, LeavesNothingBehindWhenFillingFails) {
    const TempFolder folder;
    const auto fail = [](const fs::path& staging) {
        EXPECT_TRUE(fs::exists(staging / host::BooksFile));
        throw basic::Error(5, "no", "test");
    };
    EXPECT_EQ(test::TextOfError([&] { host::CreateBooks(folder / "a/b", {}, fail); }), "no");
    EXPECT_TRUE(folder.IsEmpty());
}

TEST(CreateBooks, LeavesNothingBehindWhereItCannotWrite) {
    const TempFolder folder;
    std::ofstream(folder / "file") << "x";
    EXPECT_THAT(test::TextOfError([&] { host::CreateBooks(folder / "file/books"); }),
                HasSubstr("cannot make the folder"));
    EXPECT_THAT(test::TextOfError([&] { host::CreateBooks(folder / "file"); }),
                HasSubstr("cannot write in the folder"));
    EXPECT_THAT(test::TextOfError([&] { host::CreateBooks("/proc/self/books"); }),
                HasSubstr("cannot make the folder"));
    EXPECT_THAT(Names(folder), ElementsAre("file"));
}

// A limit on file sizes stands for a full disk; it is set in a process of its own.
TEST(CreateBooks, LeavesNothingBehindOnAFullDisk) {
    const TempFolder folder;
    for (const rlim_t room : {0, 2000, 20000}) {
        EXPECT_EQ(test::InChild([&] {
                      std::signal(SIGXFSZ, SIG_IGN);
                      const rlimit limit{room, room};
                      setrlimit(RLIMIT_FSIZE, &limit);
                      return test::TextOfError([&] { host::CreateBooks(folder / "books"); }).empty() ? 0 : 1;
                  }),
                  1)
            << room;
        EXPECT_TRUE(folder.IsEmpty()) << room;
    }
}

TEST(CreateBooks, WritesNothingReadable) {
    const TempFolder folder;
    host::CreateBooks(folder);
    const std::string bytes = Bytes(folder / host::BooksFile);
    EXPECT_GT(bytes.size(), 10000u);
    for (const char* text : {"SQLite", "CREATE", "Ledger", "Debtors", "Journal", "quintel"})
        EXPECT_THAT(bytes, Not(HasSubstr(text)));
}

// What a crash or a kill left in the folder harms nothing and is not mixed up with the new books.
TEST(CreateBooks, SetsALogWithoutBooksAsideAndSweepsAfterAKilledOne) {
    const TempFolder folder;
    std::ofstream(folder / "QmAccount.mdb-wal") << "a log";
    std::ofstream(folder / "QmAccount.mdb-shm") << "its index";
    fs::create_directory(folder / ".new-books-killed");
    std::ofstream(folder / ".new-books-killed" / host::BooksFile) << "half of them";
    std::vector<fs::path> setAside;
    // Two at once: neither sweeps the other's away.
    const auto another = [&](const fs::path& staging) {
        setAside = host::CreateBooks(folder);
        EXPECT_TRUE(fs::exists(staging / host::BooksFile));
    };
    EXPECT_THAT(test::TextOfError([&] { host::CreateBooks(folder, {}, another); }),
                HasSubstr("stands there already"));
    ASSERT_EQ(setAside.size(), 1u);
    EXPECT_EQ(Bytes(setAside[0]), "a log");
    EXPECT_THAT(Names(folder), UnorderedElementsAre(host::BooksFile, setAside[0].filename().string()));
    EXPECT_THAT(Ask(folder, "PRAGMA integrity_check"), ElementsAre("ok"));
}

TEST(CreateBooks, FailsWhereTheLastOfTheLogWasNotTakenIn) {
    const TempFolder folder;
    std::optional<host::BooksStore> open;  // while another holds them, no closing takes the log in
    const auto leave = [&](const fs::path& staging) {
        open.emplace(staging / host::BooksFile);
        open->Run("DELETE FROM tblError");
        open->Run("SELECT count(*) FROM tblvchrmst");
    };
    EXPECT_THAT(test::TextOfError([&] { host::CreateBooks(folder, {}, leave); }),
                HasSubstr("could not be closed"));
    EXPECT_TRUE(folder.IsEmpty());
}

// Whoever holds the password can read the books without this program.
TEST(CreateBooks, OpensInTheStockShell) {
    const TempFolder folder;
    host::CreateBooks(folder, 2001);
    const std::string command = "sqlcipher " + (folder / host::BooksFile).string() +
                                " \"PRAGMA key = 'quintel'; PRAGMA integrity_check; PRAGMA journal_mode; "
                                "SELECT count(*) FROM Group_Head_Master WHERE Parent_Id = 0;\" 2>&1";
    FILE* shell = popen(command.c_str(), "r");
    ASSERT_NE(shell, nullptr);
    char text[200] = {};
    const std::size_t length = fread(text, 1, sizeof text - 1, shell);
    EXPECT_EQ(pclose(shell), 0);
    EXPECT_EQ(std::string(text, length), "ok\nwal\n16\n");
}

}  // namespace
