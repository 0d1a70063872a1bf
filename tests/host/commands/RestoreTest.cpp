#include <csignal>
#include <fstream>
#include <set>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "host/commands/Backup.h"
#include "host/commands/Restore.h"
#include "host/make/Books.h"
#include "host/make/BooksStore.h"
#include "tests/support/DiskCalls.h"
#include "tests/support/InChild.h"
#include "tests/support/TempFolder.h"

namespace {

namespace fs = std::filesystem;
using test::Bytes;
using test::TempFolder;

// At each call by which a file reaches the disk or gets its name.
TEST(Restore, KilledAtAnyStepLeavesBooksInTheirPlaceLosesNothingAndGoesAgain) {
    const TempFolder given;
    host::CreateBooks(given / "old", 2001);
    host::CreateBooks(given / "new", 2002);
    const fs::path backup = given / "new" / host::BooksFile;
    std::ofstream(given / "old" / "QmAccount.mdb-wal") << "the log of a crash";
    const std::string old = Bytes(given / "old" / host::BooksFile);
    for (int step = 1, ended = 255; ended != 0; ++step) {
        SCOPED_TRACE("step " + std::to_string(step));
        const TempFolder folder;
        const fs::path books = folder / "books";
        fs::copy(given / "old", books);
        ended = test::InChild([&] {
            test::WatchDisk([left = step](const auto&, const auto&) mutable {
                if (--left == 0) raise(SIGKILL);
                return true;
            });
            host::RestoreBooks(backup, books);
            return 0;
        });
        EXPECT_TRUE(fs::exists(books / host::BooksFile));
        host::RestoreBooks(backup, books);
        EXPECT_EQ(host::BooksStore(books / host::BooksFile).Run("SELECT Fnncl_Yr FROM Fnncl_Yr_Mstr"),
                  std::vector<std::string>{"2002-2003"});
        std::multiset<std::string> found;
        for (const auto& entry : fs::directory_iterator(books))
            found.insert(entry.is_regular_file() ? Bytes(entry.path()) : "a folder");
        EXPECT_GE(found.count(old), 1U);
        EXPECT_EQ(found.count("the log of a crash"), 1U);
        EXPECT_EQ(found.count("a folder"), 0U);
        ASSERT_LT(step, 50);
    }
    // Nor does it need a disk on which a file can bear two names.
    test::WatchDisk([](const std::string& call, const auto&) { return call != "link"; });
    EXPECT_EQ(host::RestoreBooks(backup, given / "old").size(), 2U);
    test::WatchDisk({});
    EXPECT_EQ(Bytes(given / "old" / host::BooksFile), Bytes(backup));
}

bool IsItsOwnersAlone(const fs::directory_entry& entry) {
    std::error_code gone;
    const fs::file_status status = entry.status(gone);
    return !fs::is_regular_file(status) || status.permissions() == fs::perms(0600);
}

// Looked at whenever something reaches the disk or gets its name.
TEST(Restore, BooksBackupsAndWhatStandsBesideThemAreTheirOwnersAloneWhateverTheMask) {
    for (const mode_t mask : {0, 0777}) {
        const TempFolder folder;
        fs::permissions(folder.Path(), fs::perms::all);
        EXPECT_EQ(test::AsNobody([&] {
                      umask(mask);
                      int looks = 0;
                      std::string open;
                      test::WatchDisk([&](const auto&, const auto&) {
                          for (const auto& entry : fs::recursive_directory_iterator(folder.Path())) {
                              ++looks;
                              if (!IsItsOwnersAlone(entry)) open += " " + entry.path().filename().string();
                          }
                          return true;
                      });
                      host::CreateBooks(folder, 2001);
                      host::BackUpBooks(folder.Path(), folder / "backup.mdb");
                      host::RestoreBooks(folder / "backup.mdb", folder.Path());
                      std::fputs(open.c_str(), stderr);
                      return looks > 20 && open.empty() ? 0 : 1;
                  }),
                  0)
            << mask;
    }
}

}  // namespace
