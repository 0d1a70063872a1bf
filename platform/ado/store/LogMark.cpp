#include "platform/ado/store/LogMark.h"

#include <cstdint>
#include <random>

#include <sqlcipher/sqlite3.h>

#include "platform/ado/store/CrashLog.h"

namespace ado {
namespace {

// The head of the index that the library shares between programs, in words of the machine's own order.
class LogIndex {
  public:
    explicit LogIndex(const SqlHandle& store) {
        sqlite3_file* file = nullptr;
        sqlite3_file_control(store.Get(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
        void volatile* region = nullptr;
        if (file != nullptr && file->pMethods != nullptr && file->pMethods->iVersion >= 2)
            file->pMethods->xShmMap(file, 0, RegionSize, 0, &region);
        words_ = static_cast<const std::uint32_t volatile*>(region);
    }
    bool Stands() const { return words_ != nullptr && words_[0] == Version; }
    std::uint32_t Frames() const { return words_[4]; }      // up to the last commit
    std::uint32_t InTheFile() const { return words_[24]; }  // of them

  private:
    static constexpr int RegionSize = 32 * 1024;
    static constexpr std::uint32_t Version = 3007000;
    const std::uint32_t volatile* words_ = nullptr;
};

}  // namespace

// Another program may bring the rest into the file at this moment. But whether a log begins hangs on what the
// transaction found when it began, which was before this look.
LogStart StartOfLog(const SqlHandle& store) {
    const LogIndex index(store);
    if (!index.Stands()) return LogStart::May;
    const std::uint32_t frames = index.Frames();
    if (frames == 0) return LogStart::Empty;
    return frames == index.InTheFile() ? LogStart::May : LogStart::No;
}

void WriteMark(SqlHandle& store) {
    static std::random_device random;
    const std::string before = ReadMark(store).own;
    std::string own;
    do own = std::to_string(static_cast<std::int32_t>(random()));
    while (own == "0" || own == before);
    store.Run("PRAGMA application_id = " + before);
    store.Run("PRAGMA user_version = " + own);
}

Mark ReadMark(SqlHandle& store) {
    return {store.Ask("PRAGMA application_id"), store.Ask("PRAGMA user_version")};
}

bool CutLog(const SqlHandle& store) {
    const LogIndex index(store);
    sqlite3_file* log = nullptr;
    sqlite3_file_control(store.Get(), "main", SQLITE_FCNTL_JOURNAL_POINTER, &log);
    if (!index.Stands() || log == nullptr || log->pMethods == nullptr) return false;
    const auto end = static_cast<sqlite3_int64>(EndOfFrames(index.Frames()));
    return log->pMethods->xTruncate(log, end) == SQLITE_OK &&
           log->pMethods->xSync(log, SQLITE_SYNC_NORMAL) == SQLITE_OK;
}

}  // namespace ado
