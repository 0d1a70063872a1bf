// The connection to a server is lost, between the calls of a transaction and inside each of them.
#include <chrono>
#include <functional>
#include <string>
#include <vector>

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include "platform/ado/Maintenance.h"
#include "platform/ado/Together.h"
#include "platform/ado/store/Engine.h"
#include "tests/platform/ado/CutWire.h"
#include "tests/platform/ado/TestStore.h"

namespace ado {
namespace {

using test::CutWire;
using test::ErrorOf;
using test::Rows;
using test::TestStore;
using test::TextOfError;

constexpr const char* remarks = "Select Remark From Small";

void Add(const ConnectionPtr& connection, const std::string& remark) {
    connection->Execute("Insert Into Small (Remark) Values ('" + remark + "')");
}

struct ReconnectTest : testing::Test {
    void SetUp() override { QM_SERVER_ONLY(); }

    void HangUp() const {
        store.Administer(
            "SELECT pg_terminate_backend(pid, 5000) FROM pg_stat_activity "
            "WHERE datname = current_database() AND pid <> pg_backend_pid()");
    }
    TestStore store;
};

TEST_F(ReconnectTest, WithoutATransactionNobodyNotices) {
    const ConnectionPtr c = store.Connect();
    Add(c, "a");
    HangUp();
    EXPECT_EQ(Rows(c, remarks), "a");
    HangUp();
    Add(c, "b");
    HangUp();
    c->BeginTrans();
    Add(c, "c");
    c->CommitTrans();
    HangUp();
    EXPECT_EQ(Rows(c, remarks), "a b c");
    {
        const Snapshot moment(*c);
        HangUp();
        EXPECT_EQ(ErrorOf([&] { c->Execute(remarks); }), error::ConnectionLost);
    }
    {
        const Snapshot moment(*c);
        EXPECT_EQ(Rows(c, remarks), "a b c");
    }
    HangUp();
    EXPECT_NO_THROW(c->Close());
}

TEST_F(ReconnectTest, AServerThatWasAwayForLongIsFoundAgain) {
    SetLockWait(std::chrono::milliseconds(100));
    const CutWire wire;
    Connection c;
    c.Properties("Data Source") = wire.Path(store.Path());
    c.Open();
    wire.TakeAway();
    wire.CutNext(CutWire::Before);
    for (int question = 0; question < 2; ++question)
        EXPECT_EQ(ErrorOf([&] { c.Execute(remarks); }), error::FileNotFound);
    wire.BringBack();
    EXPECT_EQ(ErrorOf([&] { c.Execute(remarks); }), 0);
    SetLockWait(std::chrono::seconds(5));
}

// A machine that died answers nothing, not even that nobody listens there.
TEST_F(ReconnectTest, AHostThatAnswersNothingIsPassedOver) {
    const int door = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in here{};
    here.sin_family = AF_INET;
    here.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof here;
    auto* address = reinterpret_cast<sockaddr*>(&here);
    ASSERT_EQ(bind(door, address, size) | listen(door, 0) | getsockname(door, address, &size), 0);
    const int first = socket(AF_INET, SOCK_STREAM, 0);  // takes the only place
    ASSERT_EQ(connect(first, address, size), 0);

    const std::string silent = "127.0.0.1:" + std::to_string(ntohs(here.sin_port)) + ",";
    std::string path = store.Path();
    Connection c;
    c.Properties("Data Source") = path.insert(path.find('@') + 1, silent);
    EXPECT_EQ(ErrorOf([&] { c.Open(); }), 0);
    close(first);
    close(door);
}

TEST_F(ReconnectTest, ATransactionIsLostAndItsLevelsEndQuietly) {
    const ConnectionPtr c = store.Connect();
    c->BeginTrans();
    c->BeginTrans();
    Add(c, "lost");
    HangUp();
    EXPECT_EQ(ErrorOf([&] { Add(c, "lost too"); }), error::ConnectionLost);
    EXPECT_NE(ErrorOf([&] { Add(c, "stray"); }), 0);
    EXPECT_NE(ErrorOf([&] { c->CommitTrans(); }), 0);
    c->RollbackTrans();
    c->RollbackTrans();
    EXPECT_EQ(Rows(c, remarks), "");
    Add(c, "kept");
    EXPECT_EQ(Rows(store.Connect(), remarks), "kept");
}

// In each statement of a transaction, before the server has it and after: what was told is what stands.
TEST_F(ReconnectTest, WhatIsToldOfAnUnansweredCommitIsTrue) {
    const CutWire wire;
    const ConnectionPtr look = store.Connect();
    const auto execute = [](const char* statement) {
        return [statement](Connection& c) { c.Execute(statement); };
    };
    const auto ahead = [](const char* statement) {
        return [statement](Connection& c) { c.ExecuteAhead(statement); };
    };
    const std::function<void(Connection&)> begin = [](Connection& c) { c.BeginTrans(); };
    const std::function<void(Connection&)> commit = [](Connection& c) { c.CommitTrans(); };
    const std::vector<std::function<void(Connection&)>> roads[] = {
        {begin, execute("Insert Into Small (Remark) Values ('a')"), execute("Update Small Set Id = 5"),
         commit},
        {begin, ahead("Insert Into Small (Remark) Values ('a')"), ahead("Update Small Set Id = 5"), commit},
        {begin, ahead("Insert Into Small (Remark) Values ('a')"), begin, ahead("Update Small Set Id = 5"),
         commit, commit},
        {execute("Insert Into Small (Id, Remark) Values (5, 'a')")},
        {ahead("Insert Into Small (Id, Remark) Values (5, 'a')"), [](Connection& c) { c.Close(); }},
        {[&](Connection& c) {
            Together(c, [&] {
                ahead("Insert Into Small (Remark) Values ('a')")(c);
                ahead("Update Small Set Id = 5")(c);
            });
        }},
    };
    for (const auto& road : roads)
        for (const CutWire::Cut cut : {CutWire::Before, CutWire::After}) {
            bool stood = false, fell = false;
            for (unsigned char others = 0; others < 15; ++others) {
                SCOPED_TRACE(std::to_string(&road - roads) + static_cast<char>(cut) + std::to_string(others));
                Connection c;
                c.Properties("Data Source") = wire.Path(store.Path());
                c.Open();
                c.Execute("Delete From Small");
                wire.CutNext(cut, others);
                std::string told;
                for (std::size_t step = 0; step < road.size() && told.empty(); ++step)
                    told = TextOfError([&] { road[step](c); });
                const bool stands = told.empty() || told.ends_with("but the change stands.");
                if (!stands) {
                    EXPECT_NE(told.find("What was not committed is undone"), std::string::npos) << told;
                }
                while (c.TransDepth() > 0) EXPECT_NO_THROW(c.RollbackTrans());
                EXPECT_EQ(Rows(look, "Select Id, Remark From Small"), stands ? "5|a" : "");
                (stands ? stood : fell) = true;
            }
            EXPECT_TRUE(stood && fell);
        }
}

// What nobody can tell is not said to be undone.
TEST_F(ReconnectTest, AChangeOfWhichNoServerTellsIsCalledUnknown) {
    SetLockWait(std::chrono::milliseconds(100));
    for (const bool inTransaction : {true, false}) {
        const CutWire wire;
        Connection c;
        c.Properties("Data Source") = wire.Path(store.Path());
        c.Open();
        if (inTransaction) c.BeginTrans();
        c.Execute("Insert Into Small (Remark) Values ('a')");
        wire.TakeAway();
        wire.CutNext(CutWire::After, inTransaction ? 3 : 2);
        try {
            inTransaction ? c.CommitTrans() : (void)c.Execute("Insert Into Small (Remark) Values ('a')");
            ADD_FAILURE() << "no failure";
        } catch (const basic::Error& failure) {
            EXPECT_EQ(failure.Number, error::ConnectionLost);
            EXPECT_NE(failure.Description.find("is not known"), std::string::npos) << failure.Description;
        }
    }
    SetLockWait(std::chrono::seconds(5));
    EXPECT_EQ(Rows(store.Connect(), remarks), "a a a");
}

// A server of its own beside the tests', by the script that makes that one, in one of the script's ways.
class OwnServer {
  public:
    explicit OwnServer(const std::string& way) { Run(way); }
    ~OwnServer() { Run("stop"); }
    OwnServer(const OwnServer&) = delete;
    OwnServer& operator=(const OwnServer&) = delete;
    std::string File() const { return (folder_ / "server").string(); }
    std::string Uri() const {
        const std::string uri = ::test::Bytes(File());
        return uri.substr(0, uri.find('\n'));
    }

  private:
    void Run(const std::string& way) const {
        const std::size_t end = way.find(' ');
        const std::string command = "env -u QM_TEST_SERVER " TESTS_FOLDER "/support/server " +
                                    way.substr(0, end) + " " + File() +
                                    (end == std::string::npos ? "" : way.substr(end));
        if (std::system(command.c_str()) != 0) ADD_FAILURE() << command;
    }
    ::test::TempFolder folder_;
};

// Readers may work on a standby, which takes no listeners: what others changed shows by their marks.
TEST(StandbyTest, IsReadAndTellsOfChangesButTakesNone) {
    QM_SERVER_ONLY();
    QM_NEEDS_SERVER();
    const OwnServer primary("start");
    const std::string others = ::test::ServerUri();
    const auto name = [](const std::string& uri) { setenv("QM_TEST_SERVER", uri.c_str(), 1); };
    name(primary.Uri());
    const std::shared_ptr<void> again(nullptr, [&](void*) { name(others); });
    const TestStore store;
    const ConnectionPtr writer = store.Connect();
    const OwnServer standby("standby " + primary.File());
    Connection reader;
    reader.Properties("Data Source") = standby.Uri() + store.Path().substr(primary.Uri().size());
    reader.Open();
    EXPECT_FALSE(reader.ChangedByOthers());
    Add(writer, "a");
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (!reader.ChangedByOthers() && std::chrono::steady_clock::now() < end) continue;
    EXPECT_EQ(test::RowsOf(*reader.Execute(remarks)), "a");
    EXPECT_FALSE(reader.ChangedByOthers()) << "told once";
    const auto add = [&] { reader.Execute("Insert Into Small (Remark) Values ('b')"); };
    EXPECT_EQ(ErrorOf(add), error::ReadOnly);
    std::int32_t failure = ErrorOf([&] { reader.BeginTrans(); });
    if (failure == 0) failure = ErrorOf(add);
    EXPECT_EQ(failure, error::ReadOnly);
    while (reader.TransDepth() > 0) reader.RollbackTrans();
    EXPECT_NO_THROW(reader.Close());
}

}  // namespace
}  // namespace ado
