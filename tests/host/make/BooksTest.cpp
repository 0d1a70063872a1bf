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

using test::TempFolder;
namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
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

TEST(CreateBooks, RefusesWhereBooksStandAndLeavesThemAlone) {
    const TempFolder folder;
    std::ofstream(folder / host::BooksFile) << "someone's books";
    EXPECT_THAT(test::TextOfError([&] { host::CreateBooks(folder); }), HasSubstr("stands there already"));
    EXPECT_EQ(test::Bytes(folder / host::BooksFile), "someone's books");
    EXPECT_THAT(Names(folder), ElementsAre(host::BooksFile));

    // Also where they appear while the new ones are being made.
    const TempFolder late;
    const auto appear = [&](const fs::path&) { std::ofstream(late / host::BooksFile) << "someone's books"; };
    EXPECT_THAT(test::TextOfError([&] { host::CreateBooks(late, {}, appear); }),
                HasSubstr("stands there already"));
    EXPECT_EQ(test::Bytes(late / host::BooksFile), "someone's books");
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
    EXPECT_EQ(test::Bytes(setAside[0]), "a log");
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

}  // namespace
