// The connection to a server is lost, between the calls of a transaction and inside each of them.
#include <chrono>

#include <gtest/gtest.h>

#include "platform/ado/store/Engine.h"
#include "tests/platform/ado/CutWire.h"
#include "tests/platform/ado/TestStore.h"

namespace ado {
namespace {

using test::CutWire;
using test::ErrorOf;
using test::Rows;
using test::TestStore;

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
    HangUp();
    EXPECT_NO_THROW(c->Close());
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

// In each packet of a transaction, before the server has it and after: what was told is what stands.
TEST_F(ReconnectTest, WhatIsToldOfAnUnansweredCommitIsTrue) {
    const CutWire wire;
    int stood = 0;
    for (const CutWire::Cut cut : {CutWire::Before, CutWire::After})
        for (int packets = 0; packets < 5; ++packets) {
            Connection c;
            c.Properties("Data Source") = wire.Path(store.Path());
            c.Open();
            c.Execute("Delete From Small");
            wire.CutNext(cut, packets);
            std::int32_t failure = ErrorOf([&] { c.BeginTrans(); });
            const auto step = [&](const auto& call) {
                if (failure == 0) failure = ErrorOf(call);
            };
            step([&] { c.Execute("Insert Into Small (Remark) Values ('a')"); });
            step([&] { c.Execute("Update Small Set Id = 5"); });
            step([&] { c.CommitTrans(); });
            EXPECT_TRUE(failure == 0 || failure == error::ConnectionLost) << failure;
            while (c.TransDepth() > 0) c.RollbackTrans();
            EXPECT_EQ(Rows(store.Connect(), "Select Id, Remark From Small"), failure == 0 ? "5|a" : "")
                << static_cast<char>(cut) << packets;
            stood += failure == 0 ? 1 : 0;
        }
    EXPECT_EQ(stood, 3);  // cut behind its end, or in a commit that the server has
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
        wire.CutNext(CutWire::After);
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
