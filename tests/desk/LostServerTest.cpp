// A server that goes away in the middle of what the page of the books does, and comes back.
#include <filesystem>
#include <iterator>
#include <thread>

#include "platform/basic/Text.h"
#include "tests/desk/BooksFixture.h"

namespace {

namespace fs = std::filesystem;

class LostServerTest : public test::BooksTest {
  protected:
    void SetUp() override {
        QM_SERVER_ONLY();
        const std::string path = books.DataPath();
        const std::size_t end = test::ServerUri().size();
        database = path.substr(end, path.size() - 1 - end);
        FillWithSample();
        BringBack();
        Start();
        place =
            "postgresql://postgres@" + basic::Replace(way.Path().string(), "/", "%2F") + '/' + database + '/';
        desk->OpenBooks(place);
        ASSERT_TRUE(QTest::qWaitFor([this] { return desk->Books().Check().Last() != nullptr; }, 20'000));
        ASSERT_TRUE(QTest::qWaitFor([this] { return desk->Books().Background().IsIdle(); }, 20'000));
        desk->Go("books");
        ASSERT_EQ(Title(), "Books") << Told();
    }
    ~LostServerTest() override { desk.reset(); }

    // By a link to the server's socket, which can be taken away.
    void BringBack() const {
        const std::string uri = basic::Replace(test::ServerUri(), "%2F", "/");
        const std::size_t from = uri.find('@') + 1;
        fs::create_symlink(fs::path(uri.substr(from, uri.size() - 1 - from)) / ".s.PGSQL.5432",
                           way / ".s.PGSQL.5432");
    }
    void TakeAway() const {
        fs::remove(way / ".s.PGSQL.5432");
        test::ServerDatabase::RunOn(
            "postgres", "SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE datname = '" +
                            database + "' AND application_name <> 'holder'");
    }
    // Does `work` and takes the server away as soon as something waits for the table, which another holds in
    // the mode meanwhile; until `told`.
    void Lose(const std::string& table, const std::string& mode, const std::function<void()>& work) {
        ado::Flight holder;
        holder.Connect(ado::ReadServerAddress(test::ServerUri() + database + "/"));
        holder.Script("SET application_name = 'holder'; BEGIN; LOCK TABLE \"" + table + "\" IN " + mode +
                      " MODE");
        std::thread cut([this] {
            test::ServerDatabase::RunOn(
                "postgres",
                "DO $$ BEGIN FOR i IN 1..4000 LOOP EXIT WHEN EXISTS (SELECT FROM pg_stat_activity WHERE "
                "datname = '" +
                    database +
                    "' AND wait_event_type = 'Lock'); PERFORM pg_sleep(0.005), pg_stat_clear_snapshot(); END "
                    "LOOP; END $$");
            TakeAway();
        });
        work();
        EXPECT_TRUE(QTest::qWaitFor([this] { return Told().find("server") != std::string::npos; }, 20'000));
        cut.join();
        EXPECT_THAT(Told(),
                    testing::ContainsRegex("The connection to the server was lost|could not be reached"));
        EXPECT_THAT(Told(), testing::ContainsRegex("Why: .* What to do: "));
        holder.Disconnect();
    }
    std::ptrdiff_t Files() const {  // with what a copy that was not finished would leave
        return std::distance(fs::recursive_directory_iterator(folder.Path()), {});
    }

    test::TempFolder way;
    std::string database;
};

TEST_F(LostServerTest, WhatRunsLeavesNothingHalfAndGoesOnceItIsBack) {
    struct {
        const char* Key;
        std::deque<std::string> Answers;
        const char* Done;
    } const cases[] = {
        {"Alt+B", {"'" + (folder / "copy.mdb").string()}, "Backed up and compared"},
        {"Alt+C", {"'" + (folder / "copy").string()}, "Copied and compared"},
        {"Alt+A", {}, ""},
    };
    fs::create_directory(folder / "copy");
    for (const auto& [key, answers, done] : cases) {
        SCOPED_TRACE(key);
        const std::ptrdiff_t before = Files();
        const auto checked = desk->Books().Check().Last();
        Lose("tb_Ledger2001", "ACCESS EXCLUSIVE", [&] { Do(key, answers); });
        EXPECT_EQ(Files(), before);
        EXPECT_EQ(Title(), "Books");
        BringBack();
        Key(Qt::Key_Escape);
        Do(key, answers);
        if (*done != '\0')
            Expect(done);
        else
            EXPECT_TRUE(QTest::qWaitFor([&] { return desk->Books().Check().Last() != checked; }, 20'000));
        Key(Qt::Key_Escape);
    }
}

// The books are closed for it: they are opened again by a key.
TEST_F(LostServerTest, ARestoreLeavesTheBooksAsTheyWereAndAWayBackToThem) {
    const std::string file = folder / "copy.mdb";
    Do("Alt+B", {"'" + file});
    Expect("Backed up and compared");
    const std::string lines = Lines();
    QTimer asked;  // the question runs a loop of its own
    QObject::connect(&asked, &QTimer::timeout, [&] {
        if (!qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) return;
        asked.stop();
        TakeAway();
        user.Will({"Alt+Y"});
    });
    asked.start(20);
    Do("Alt+R", {"'" + file});
    ASSERT_TRUE(QTest::qWaitFor([&] { return desk->Notice().Asks(); }, 40'000)) << Told();
    EXPECT_THAT(Told(), testing::ContainsRegex("could not be reached|was lost"));
    BringBack();
    Press({"Return"});
    ASSERT_TRUE(QTest::qWaitFor([&] { return desk->Books().AreOpen(); })) << Told();
    EXPECT_EQ(Lines(), lines);
}

}  // namespace
