#include <functional>

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "core/DBCode.h"
#include "core/MsgBox.h"
#include "core/modGeneral.h"
#include "platform/ado/Maintenance.h"
#include "tests/support/FreshBooks.h"

namespace {

int logSyncs = 0;

// The store's library calls these of this program; they count and go on to the system's own.
int Counted(const char* name, int file) {
    char path[4096] = {};
    const std::string link = "/proc/self/fd/" + std::to_string(file);
    if (readlink(link.c_str(), path, sizeof path - 1) > 0 && std::string(path).ends_with("-wal")) ++logSyncs;
    return reinterpret_cast<int (*)(int)>(dlsym(RTLD_NEXT, name))(file);
}

}  // namespace

extern "C" int fsync(int file) {
    return Counted("fsync", file);
}
extern "C" int fdatasync(int file) {
    return Counted("fdatasync", file);
}

namespace {

// What a box told is on the disk when it stands: the log is counted on its way there. A reader who holds an
// older moment keeps a checkpoint from writing it.
TEST(MsgBox, StandsWhenWhatItTellsIsOnTheDisk) {
    test::FreshBooks books;
    ado::Connection reader;
    reader.Properties("Data Source") = books.DataPath() + qm::BooksFile;
    reader.Properties("Jet OlEDB:Database Password") =
        qm::Conn().Properties.Get("Jet OlEDB:Database Password");
    reader.Open();
    const ado::Snapshot moment(reader);
    int syncsAtTheBox = -1;
    const auto before = qm::SetMsgBoxPort([&](const std::string&, int, const std::string&) {
        syncsAtTheBox = logSyncs;
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
    logSyncs = 0;
    update();
    EXPECT_EQ(logSyncs, 0) << "a rebuild waits for nothing";
    books.CloseHost();
    EXPECT_EQ(logSyncs, 1) << "the end of the host";
    tell();  // without books
    qm::SetMsgBoxPort(before);
}

}  // namespace
