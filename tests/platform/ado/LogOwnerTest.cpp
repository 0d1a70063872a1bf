// What a crash leaves beside a store, and what opening makes of it.
#include <gmock/gmock.h>

#include "platform/ado/Maintenance.h"
#include "platform/ado/store/CrashLog.h"
#include "tests/platform/ado/TestStore.h"
#include "tests/support/TempFolder.h"

namespace ado {
namespace {

using ::test::Bytes;
using test::ErrorOf;
using test::InChild;
using test::Rows;
using test::TestStore;
using testing::HasSubstr;
namespace fs = std::filesystem;

void Write(const ConnectionPtr& connection, int from, int rows) {
    for (int i = from; i < from + rows; ++i) {
        if (i % 10 == 0) connection->BeginTrans();
        connection->Execute("Insert Into Small (Id, Remark) Values (" + std::to_string(i) +
                            ", 'a remark that takes some room in the pages of the store')");
        if (i % 10 == 0) connection->CommitTrans();
    }
}

// A program that writes rows and is ended in the middle: the store is never closed.
void Crash(const TestStore& store, int from, int rows) {
    ASSERT_EQ(InChild([&] {
                  const ConnectionPtr connection = store.Connect();
                  Write(connection, from, rows);
                  _exit(7);
                  return 0;
              }),
              7);
    ASSERT_TRUE(fs::exists(store.Path() + "-wal"));
}

// The same by another tool, which knows of no marks.
void CrashOfAnotherTool(const TestStore& store, const std::string& statements) {
    ASSERT_EQ(InChild([&] {
                  sqlite3* plain = nullptr;
                  sqlite3_open(store.Path().c_str(), &plain);
                  const std::string script = "PRAGMA key = 'it''s a secret'; " + statements;
                  _exit(sqlite3_exec(plain, script.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK ? 7 : 1);
                  return 0;
              }),
              7);
}

int Count(const ConnectionPtr& connection) {
    return std::stoi("0" + Rows(connection, "Select Max(Id) From Small"));
}

class LogOwner : public testing::Test {
  protected:
    LogOwner() { Live(1, 40); }
    void Live(int from, int rows) { Write(store.Connect(), from, rows); }
    void Keep() { kept = Bytes(store.Path()); }
    void PutBack() { std::ofstream(store.Path(), std::ios::binary) << kept; }
    std::string Log() const { return store.Path() + "-wal"; }

    // Opened as it is, with the log set aside whole or taken in.
    void ExpectRows(int last, bool setAside) {
        const std::string log = Bytes(Log());
        const ConnectionPtr connection = store.Connect();
        EXPECT_EQ(Count(connection), last);
        EXPECT_TRUE(CheckIntegrity(*connection).empty());
        if (!setAside) {
            EXPECT_EQ(connection->Notice(), "");
            return;
        }
        EXPECT_THAT(connection->Notice(), HasSubstr("belonged to another file"));
        const std::string notice = connection->Notice(), mark = "set aside as '";
        const std::size_t from = notice.find(mark) + mark.size();
        EXPECT_EQ(Bytes(notice.substr(from, notice.rfind('\'') - from)), log);
    }

    TestStore store;
    std::string kept;
};

// From a log that was never in the file to one that was begun anew several times.
TEST_F(LogOwner, TheFilesOwnLogIsTakenInWhateverItsAge) {
    QM_FILE_ONLY("its log");
    int last = 40;
    for (const int rows : {1, 2, 30, 600, 7}) {
        Crash(store, last + 1, rows);
        last += rows;
        ExpectRows(last, false);
        Crash(store, last + 1, 5);  // and again before anything was closed in order
        Crash(store, last + 6, 5);
        last += 10;
    }
    ExpectRows(last, false);
}

TEST_F(LogOwner, ALogOfTheFileThatACopyReplacedIsSetAside) {
    QM_FILE_ONLY("its log");
    for (const int rows : {1, 30, 600}) {
        Keep();
        Crash(store, 41, rows);
        PutBack();
        ExpectRows(40, true);
        Live(41, 10);
        ExpectRows(50, false);
        PutBack();
    }
    // After more than one log's life, and with a copy that has a key of its own.
    Keep();
    Live(41, 100);
    Crash(store, 141, 30);
    PutBack();
    ExpectRows(40, true);
    const std::string copy = store.Path() + ".copy";
    BackUp(*store.Connect(), copy);
    Crash(store, 41, 30);
    fs::copy_file(copy, store.Path(), fs::copy_options::overwrite_existing);
    ExpectRows(40, true);
}

TEST_F(LogOwner, ALogWithoutAMarkIsTriedOnACopyFirst) {
    QM_FILE_ONLY("its log");
    const std::string many =
        "WITH RECURSIVE n(i) AS (SELECT 41 UNION ALL SELECT i + 1 FROM n WHERE i < 240) INSERT INTO Small "
        "SELECT i, hex(randomblob(50)) FROM n; CREATE INDEX ix ON Small (Remark);";
    CrashOfAnotherTool(store, many);
    ExpectRows(240, false);
    Keep();
    Live(241, 200);
    CrashOfAnotherTool(store, "UPDATE Small SET Remark = 'x' || Remark; INSERT INTO Small VALUES (9000, '')");
    PutBack();
    ExpectRows(240, true);
}

TEST_F(LogOwner, NothingIsTouchedWhereTheFirstPageCannotBeRead) {
    QM_FILE_ONLY("its log");
    Keep();
    Live(41, 100);
    Crash(store, 141, 30);
    const std::string log = Bytes(Log());
    PutBack();
    EXPECT_EQ(ErrorOf([&] { store.Connect("wrong"); }), error::WrongPassword);
    EXPECT_EQ(Bytes(store.Path()), kept);
    store.Flip(100);
    store.Flip(900);
    EXPECT_EQ(ErrorOf([&] { store.Connect(); }), error::WrongPassword);
    EXPECT_EQ(Bytes(Log()), log);
    PutBack();
    ExpectRows(40, true);
}

// A power cut while the log is brought into the file: the first page is half of the old, half of the new.
TEST_F(LogOwner, ATornFirstPageIsHealedByItsLog) {
    QM_FILE_ONLY("its log");
    Crash(store, 41, 30);
    const std::string log = Bytes(Log());
    std::string page;
    for (std::size_t at = 32; at < log.size(); at += 24 + PageSize)
        if (log.compare(at, 4, std::string("\0\0\0\1", 4)) == 0) page = log.substr(at + 24, PageSize);
    std::fstream(store.Path(), std::ios::in | std::ios::out | std::ios::binary) << page.substr(0, 512);
    ExpectRows(70, false);
}

TEST_F(LogOwner, TheLogOfAProgramThatIsAtWorkIsLeftAlone) {
    QM_FILE_ONLY("its log");
    const ConnectionPtr here = store.Connect();
    Write(here, 41, 30);
    EXPECT_EQ(InChild([&] {
                  const ConnectionPtr there = store.Connect();
                  return Count(there) == 70 && there->Notice().empty() ? 0 : 1;
              }),
              0);
    Write(here, 71, 30);
    EXPECT_EQ(Count(store.Connect()), 100);
}

}  // namespace
}  // namespace ado
