#include <cstdlib>
#include <functional>
#include <regex>

#include <gtest/gtest.h>

#include "core/DBCode.h"
#include "core/MsgBox.h"
#include "core/modGeneral.h"
#include "core/qmcls.h"
#include "platform/ado/Maintenance.h"
#include "tests/support/DiskCalls.h"
#include "tests/support/FreshBooks.h"
#include "tests/support/TempFolder.h"

namespace {

// What a box told is on the disk when it stands: the log is counted on its way there. A reader who holds an
// older moment keeps a checkpoint from writing it.
TEST(MsgBox, StandsWhenWhatItTellsIsOnTheDisk) {
    QM_FILE_ONLY("its disk is watched");
    int logSyncs = 0;
    bool diskFails = false;
    test::WatchDisk([&](const std::string&, const std::string& file) {
        if (file.ends_with("-wal")) ++logSyncs;
        return !diskFails;
    });
    test::FreshBooks books;
    ado::Connection reader;
    reader.Properties("Data Source") = books.DataPath() + qm::BooksFile;
    reader.Properties("Jet OlEDB:Database Password") =
        qm::Conn().Properties.Get("Jet OlEDB:Database Password");
    reader.Open();
    const ado::Snapshot moment(reader);
    int syncsAtTheBox = -1;
    std::string told;
    const auto before = qm::SetMsgBoxPort([&](const std::string& text, int, const std::string&) {
        syncsAtTheBox = logSyncs;
        told += text + " ";
        return qm::vbOK;
    });
    const auto tell = [] { qm::MsgBox("Done", qm::vbInformation, qm::AppTitle); };
    const auto update = [&] { books.Run("Update tblvchrmst Set vchrmstLastNo = 1"); };
    const struct {
        const char* name;
        std::function<void()> action;
        int syncs;
    } cases[] = {
        {"a helper's own box",
         [] { qm::UpdateRecords("tblvchrmst", {"vchrmstLastNo"}, {"2"}, {"N"}, "1 = 1"); }, 1},
        {"many writes, one box", [&] { update(), update(), update(), tell(); }, 1},
        {"a box before which nothing was written", tell, 0},
        {"a failure", [&] { update(), qm::MsgBox("Formname: x"); }, 0},
        {"what the failure left", tell, 1},
        {"within a transaction",
         [&] { qm::Conn().BeginTrans(), update(), tell(), qm::Conn().RollbackTrans(); }, 0},
    };
    update();  // the first write of a new log syncs its head
    tell();
    for (const auto& c : cases) {
        logSyncs = 0;
        c.action();
        EXPECT_EQ(syncsAtTheBox, c.syncs) << c.name;
    }
    told.clear();
    diskFails = true;
    update(), tell();
    EXPECT_EQ(told, "The disk could not be read or written (Input/output error). Done ");
    diskFails = false;
    tell();
    logSyncs = 0;
    update();
    EXPECT_EQ(logSyncs, 0) << "a rebuild waits for nothing";
    books.CloseHost();
    EXPECT_EQ(logSyncs, 1) << "the end of the host";
    tell();  // without books
    qm::SetMsgBoxPort(before);
    test::WatchDisk({});
}

// Each road in turn, with a display named on which a box would wait: what was written where, and the answer.
TEST(MsgBox, GoesWhereAHostWithoutAPersonSendsIt) {
    const test::TempFolder state;
    const auto log = [&] { return test::Bytes(state / "qmaccounts/boxes.log"); };
    const auto ask = [] {
        testing::internal::CaptureStderr();
        const int answer = qm::MsgBox("Sure?\r\nReally", qm::vbYesNo, "T");
        return std::to_string(answer) + " " + testing::internal::GetCapturedStderr();
    };
    const auto before = qm::SetMsgBoxPort({});
    setenv("DISPLAY", ":1", 1);
    setenv("XDG_STATE_HOME", state.Path().c_str(), 1);
    setenv("QM_BOXES", "none", 1);
    EXPECT_EQ(ask(), "7 ");
    setenv("QM_BOXES", "stderr", 1);
    EXPECT_EQ(ask(), "7 [T] Sure?\nReally\n");
    EXPECT_EQ(log(), "");
    setenv("QM_BOXES", "log", 1);
    EXPECT_EQ(ask(), "7 ");
    EXPECT_EQ(qm::MsgBox("Done"), qm::vbOK);
    EXPECT_TRUE(std::regex_match(log(), std::regex("(\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d) \\[T\\] "
                                                   "Sure\\? / Really\\n.{19} \\[\\] Done\\n")))
        << log();
    setenv("XDG_STATE_HOME", (state / "qmaccounts/boxes.log").c_str(), 1);  // a file is no folder
    EXPECT_EQ(ask(), "7 [T] Sure?\nReally\n");
    qm::SetMsgBoxPort([](const std::string&, int, const std::string&) { return qm::vbYes; });
    EXPECT_EQ(ask(), "6 ") << "screens that are open show it";
    static std::u16string told;
    static std::int32_t answer;
    const auto handler = [](void* context, const char16_t* text, std::int32_t flags, const char16_t* title) {
        told = std::u16string(text) + u"|" + title;
        return *static_cast<std::int32_t*>(context) + (flags & 0);
    };
    QmSetBoxHandler(handler, &answer);
    EXPECT_EQ(ask(), "7 ");
    answer = qm::vbYes;
    EXPECT_EQ(ask(), "6 ");
    EXPECT_EQ(told, u"Sure?\r\nReally|T");
    QmSetBoxHandler(nullptr, nullptr);
    qm::SetMsgBoxPort(before);
    unsetenv("QM_BOXES");
    unsetenv("DISPLAY");
}

}  // namespace
