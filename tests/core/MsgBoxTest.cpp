#include <functional>

#include <gtest/gtest.h>

#include "core/DBCode.h"
#include "core/MsgBox.h"
#include "core/modGeneral.h"
#include "platform/ado/Maintenance.h"
#include "tests/support/DiskCalls.h"
#include "tests/support/FreshBooks.h"

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

}  // namespace
