#include <chrono>
#include <csignal>
#include <functional>
#include <thread>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include "platform/ado/Constants.h"
#include "platform/ado/Together.h"
#include "platform/ado/store/Engine.h"
#include "tests/platform/ado/TestStore.h"
#include "tests/support/DiskCalls.h"

namespace ado {
namespace {

using test::Affected;
using test::ErrorOf;
using test::Rows;
using test::TestStore;

constexpr const char* names = "Select Remark From Small";

void Add(const ConnectionPtr& connection, const std::string& remark) {
    connection->Execute("Insert Into Small (Remark) Values ('" + remark + "')");
}

// Another program that writes, and holds the write lock until it is told to go on.
class SecondProgram {
  public:
    explicit SecondProgram(const TestStore& store) {
        int ready[2], go[2];
        if (pipe(ready) != 0 || pipe(go) != 0) throw std::runtime_error("no pipe");
        child_ = fork();
        if (child_ == 0) {
            const ConnectionPtr other = store.Connect();
            other->BeginTrans();
            other->Execute("Insert Into Small (Remark) Values ('other')");
            char byte = 'x';
            (void)!write(ready[1], &byte, 1);
            (void)!read(go[0], &byte, 1);
            std::this_thread::sleep_for(std::chrono::milliseconds(200));
            other->CommitTrans();
            _exit(0);
        }
        char byte = 0;
        (void)!read(ready[0], &byte, 1);
        go_ = go[1];
    }
    ~SecondProgram() {
        kill(child_, SIGKILL);
        waitpid(child_, nullptr, 0);
    }
    void CommitSoon() const { (void)!write(go_, "x", 1); }

  private:
    pid_t child_;
    int go_;
};

TEST(TransactionsTest, WaitsForAnotherProgramThatWrites) {
    TestStore store;
    const SecondProgram other(store);
    const ConnectionPtr c = store.Connect();
    EXPECT_EQ(Rows(c, names), "");  // reading does not wait
    other.CommitSoon();
    Add(c, "mine");
    EXPECT_EQ(Rows(c, names), "other mine");
}

TEST(TransactionsTest, GivesUpWithAClearErrorWhenItLastsTooLong) {
    TestStore store;
    const SecondProgram other(store);
    SetLockWait(std::chrono::milliseconds(100));
    const ConnectionPtr c = store.Connect();
    EXPECT_EQ(ErrorOf([&] { Add(c, "mine"); }), error::Locked);
    // A server tells it with the first statement inside.
    EXPECT_EQ(ErrorOf([&] {
                  c->BeginTrans();
                  Add(c, "mine");
              }),
              error::Locked);
    while (c->TransDepth() > 0) c->RollbackTrans();
    const std::string text = test::TextOfError([&] { Add(c, "mine"); });
    EXPECT_NE(text.find("Another program is writing"), std::string::npos) << text;
    EXPECT_EQ(Rows(c, names), "");
    SetLockWait(std::chrono::seconds(5));
}

// Told at once or with what follows: what stands before the failing one stays, what is behind it is not done.
TEST(TransactionsTest, AWriteThatGoesAheadFailsBeforeAnythingIsToldAsDone) {
    constexpr std::int32_t none = 77;
    constexpr const char *noRow = "Update Small Set Id = 1 Where Remark = 'nobody'",
                         *tooBig = "Update Small Set Id = Id + 40000";
    const auto begin = [](Connection& c) { c.BeginTrans(); };
    const auto commit = [](Connection& c) { c.CommitTrans(); };
    const auto read = [](Connection& c) { c.Execute("Select Id From Small"); };
    const auto count = [](Connection& c) { c.Execute("Delete From Small Where Id = 9"); };
    const auto wrong = [](Connection& c) { c.Execute("Select Nothing From Nobody"); };
    ConnectionPtr on;
    const auto postponed = [&](Connection&) {
        Recordset list;  // is read with what comes next
        list.Open("Small", on, adOpenStatic, adLockReadOnly);
        on->CommitTrans();
    };
    const auto nothing = [](Connection&) {};
    const auto many = [](Connection& c) {
        for (int i = 0; i < 70; ++i) c.ExecuteAhead("Insert Into Small (Id) Values (3)");
    };
    const struct {
        std::function<void(Connection&)> before, tells;
        const char* fails;
        std::int32_t error;
    } cases[] = {
        {begin, postponed, noRow, none}, {begin, wrong, noRow, none},
        {begin, commit, noRow, none},    {begin, read, noRow, none},
        {begin, begin, noRow, none},     {begin, count, noRow, none},
        {begin, many, noRow, none},      {begin, commit, tooBig, 6},
        {nothing, read, tooBig, 6},      {nothing, begin, tooBig, 6},
        {nothing, count, tooBig, 6},     {nothing, many, tooBig, 6},
        {nothing, read, noRow, none},    {nothing, [](Connection& c) { c.Close(); }, tooBig, 6},
    };
    TestStore store;
    for (const auto& each : cases) {
        on = store.Connect();
        on->Execute("Delete From Small");
        const basic::Error ifNone(none, "");
        each.before(*on);
        const int depth = on->TransDepth();
        EXPECT_EQ(ErrorOf([&] {
                      on->ExecuteAhead("Insert Into Small (Id) Values (1)", &ifNone);
                      on->ExecuteAhead(each.fails, &ifNone);
                      on->ExecuteAhead("Insert Into Small (Id) Values (2)");
                      each.tells(*on);
                  }),
                  each.error)
            << &each - cases;
        if (on->State() == adStateClosed) continue;
        EXPECT_EQ(on->TransDepth(), depth);
        on->ExecuteAhead("Update Small Set Remark = 'after'", &ifNone);
        if (depth > 0) on->CommitTrans();
        EXPECT_EQ(Rows(on, "Select Id, Remark From Small"), "1|after") << &each - cases;
    }
    EXPECT_EQ(Rows(store.Connect(), "Select Id From Small"), "1");
}

// Written together or one by one: nobody can tell, whatever fails of it and wherever.
TEST(TransactionsTest, WritesTogetherLeaveWhatTheyLeaveOneByOne) {
    constexpr std::int32_t none = 77, own = 78;
    const basic::Error ifNone(none, "");
    const TestStore store;
    const ConnectionPtr c = store.Connect(), other = store.Connect();
    Recordset rows;
    const auto add = [&](const char* id) {
        c->ExecuteAhead("Insert Into Small (Id) Values (" + std::string(id) + ")", &ifNone);
    };
    const auto edit = [&] {
        for (; !rows.Eof(); rows.MoveNext()) rows.Fields("Remark").SetValue("new");
    };
    const struct {
        std::function<void()> then;
        std::int32_t error;
        const char* left;
    } cases[] = {
        {[&] { add("5"); }, 0, "1|old 2|old 3|old 4|- 5|-"},
        {[&] { add("50000"), add("5"); }, 6, "1|old 2|old 3|old 4|-"},
        {[&] { c->ExecuteAhead("Update Small Set Id = 1 Where Id = 9", &ifNone), add("5"); }, none,
         "1|old 2|old 3|old 4|-"},
        {[&] { throw basic::Error(own, ""); }, own, "1|old 2|old 3|old 4|-"},
        {[&] { add("50000"), throw basic::Error(own, ""); }, 6, "1|old 2|old 3|old 4|-"},
        {[&] {
             EXPECT_EQ(Rows(c, "Select Id From Small"), "1 2 3 4");
             add("5");
         },
         0, "1|old 2|old 3|old 4|- 5|-"},
        {[&] { c->Execute("Delete From Small Where Id < 4"), add("5"); }, 0, "4|- 5|-"},
        {[&] { c->BeginTrans(), add("5"), c->RollbackTrans(), add("6"); }, 0, "1|old 2|old 3|old 4|- 6|-"},
        {edit, 0, "1|new 2|new 3|new 4|-"},
        {[&] { other->Execute("Delete From Small Where Id = 2"), edit(); }, error::NoCurrentRecord,
         "1|new 3|old 4|-"},
    };
    for (const auto& each : cases) {
        c->Execute("Delete From Small");
        for (const char* id : {"1", "2", "3"})
            c->Execute("Insert Into Small (Id, Remark) Values (" + std::string(id) + ", 'old')");
        rows.Open("Small", c, adOpenDynamic, adLockOptimistic);
        EXPECT_EQ(ErrorOf([&] {
                      Together(*c, [&] {
                          add("4");
                          each.then();
                      });
                  }),
                  each.error)
            << &each - cases;
        rows.Close();
        EXPECT_EQ(Rows(other, "Select Id, Remark From Small"), each.left) << &each - cases;
    }
}

TEST(TransactionsTest, TellsWhetherAnotherProgramHasWritten) {
    TestStore store;
    const ConnectionPtr a = store.Connect(), b = store.Connect();
    const auto changed = [&](const auto& change) {
        change();
        return a->ChangedByOthers();
    };
    EXPECT_FALSE(changed([&] { Rows(b, names); }));
    EXPECT_TRUE(changed([&] { Add(b, "b"); }));
    EXPECT_FALSE(a->ChangedByOthers()) << "told once";
    EXPECT_FALSE(changed([&] { Add(a, "a"); })) << "its own";
    b->BeginTrans();
    Add(b, "undone");
    EXPECT_FALSE(changed([&] { b->RollbackTrans(); }));
    b->BeginTrans();
    EXPECT_FALSE(changed([&] { Add(b, "c"); })) << "not yet";
    EXPECT_TRUE(changed([&] { b->CommitTrans(); }));
}

TEST(TransactionsTest, AReadInsideDoesNotMakeTheWriteFailWhenAnotherWrote) {
    TestStore store;
    const ConnectionPtr a = store.Connect(), b = store.Connect();
    Recordset open;
    open.Open("Small", a, adOpenKeyset, adLockOptimistic);
    EXPECT_TRUE(open.Eof());
    Add(b, "b");
    Add(a, "a");
    a->BeginTrans();
    EXPECT_EQ(Rows(a, names), "b a");
    Add(a, "c");
    a->CommitTrans();
    EXPECT_EQ(Rows(b, names), "b a c");
}

// No room for the file to grow from here on. The signal would end the process before the library sees the
// error.
void FillUpDisk(const TestStore& store) {
    std::signal(SIGXFSZ, SIG_IGN);
    const auto size = static_cast<rlim_t>(std::filesystem::file_size(store.Path())) + 8192;
    const rlimit limit{size, size};
    setrlimit(RLIMIT_FSIZE, &limit);
}

constexpr const char* big = "a remark that is long enough to fill the disk before long, and again and again";

std::int32_t FillUntilFull(const ConnectionPtr& c) {
    return ErrorOf([&] {
        for (int i = 0; i < 2000; ++i) Add(c, big);
    });
}

TEST(DiskFullTest, OutsideATransactionTheStatementFailsAndTheRestStands) {
    QM_FILE_ONLY("the limit is one of files");
    TestStore store;
    EXPECT_EQ(test::InChild([&] {
                  const ConnectionPtr c = store.Connect();
                  Add(c, "before");
                  FillUpDisk(store);
                  return FillUntilFull(c) == error::DiskFull ? 0 : 1;
              }),
              0);
    EXPECT_EQ(Rows(store.Connect(), "Select Remark From Small Where Remark = 'before'"), "before");
}

// At each depth: either the writing or the commit fails with "disk full", each level can be rolled back, none
// reports success, nothing is written in between, and afterwards all is as before.
class DiskFullInTransaction : public testing::TestWithParam<int> {};

TEST_P(DiskFullInTransaction, LosesAllLevelsAndNeverReportsSuccess) {
    QM_FILE_ONLY("the limit is one of files");
    TestStore store;
    const int depth = GetParam();
    EXPECT_EQ(test::InChild([&] {
                  const ConnectionPtr c = store.Connect();
                  Add(c, "before");
                  FillUpDisk(store);
                  for (int i = 0; i < depth; ++i) c->BeginTrans();
                  std::int32_t failure = FillUntilFull(c);
                  for (int i = 1; i < depth && failure == 0; ++i) c->CommitTrans();
                  if (failure == 0) failure = ErrorOf([&] { c->CommitTrans(); });
                  if (failure != error::DiskFull) return 1;
                  if (c->TransDepth() == 0) return 2;
                  if (ErrorOf([&] { c->CommitTrans(); }) == 0) return 3;
                  if (ErrorOf([&] { Add(c, "stray"); }) == 0) return 4;
                  c->BeginTrans();  // a routine that did not notice keeps its own pair
                  if (ErrorOf([&] { c->CommitTrans(); }) == 0) return 5;
                  while (c->TransDepth() > 0) c->RollbackTrans();
                  return Rows(c, names) == "before" ? 0 : 6;
              }),
              0);
    EXPECT_EQ(Rows(store.Connect(), names), "before");
}
INSTANTIATE_TEST_SUITE_P(Depths, DiskFullInTransaction, testing::Values(1, 2, 3));

TEST(DurabilityTest, WhatIsCommittedOutlivesAKilledProcess) {
    TestStore store;
    EXPECT_EQ(test::InChild([&] {
                  const ConnectionPtr c = store.Connect();
                  Add(c, "loose");
                  c->BeginTrans();
                  Add(c, "committed");
                  c->CommitTrans();
                  c->BeginTrans();
                  Add(c, "open");
                  kill(getpid(), SIGKILL);
                  return 0;
              }),
              255);
    EXPECT_EQ(Rows(store.Connect(), names), "loose committed");
}

// The disk does not confirm the commit, and perhaps not its undoing either; then the power goes.
TEST(DurabilityTest, WhatWasToldAsFailedDoesNotComeBackAfterACrash) {
    QM_FILE_ONLY("its log");
    const std::pair<int, const char*> cases[] = {
        {1, "The disk could not be read or written (Input/output error). The change was undone."},
        {1000,
         "The disk could not be read or written (Input/output error). It is not certain that the change "
         "was undone: close all programs, open the books and look."}};
    for (const auto& [syncs, text] : cases) {
        TestStore store;
        EXPECT_EQ(
            test::InChild([&, syncs = syncs, text = text] {
                const ConnectionPtr c = store.Connect();
                Add(c, "before");
                c->BeginTrans();
                Add(c, "lost");
                ::test::WatchDisk([left = syncs](const auto&, const auto&) mutable { return --left < 0; });
                const std::string told = test::TextOfError([&] { c->CommitTrans(); });
                ::test::WatchDisk({});
                kill(getpid(), told == text ? SIGKILL : SIGTERM);
                return 0;
            }),
            255);
        EXPECT_EQ(Rows(store.Connect(), names), "before");
    }
}

}  // namespace
}  // namespace ado
