#include "platform/ado/store/SqlCipherEngine.h"

#include <cerrno>
#include <cstring>
#include <string>
#include <utility>

#include <sqlcipher/sqlite3.h>

#include "platform/ado/Errors.h"
#include "platform/ado/store/BooksFile.h"
#include "platform/ado/store/LogMark.h"
#include "platform/ado/store/LogOwner.h"
#include "platform/ado/store/SqlFunctions.h"
#include "platform/basic/Error.h"
#include "platform/basic/Files.h"

namespace ado {
namespace {

constexpr const char* source = "ado.Engine";

constexpr const char* BeginSql = "BEGIN IMMEDIATE";
constexpr const char* CommitSql = "COMMIT";

constexpr int KeptByWriter = 10240;  // KB of the file in memory, behind a commit

std::string Level(int level) {
    return "qm_level_" + std::to_string(level);
}

[[noreturn]] void Refuse(std::int32_t number, const std::string& text) {
    throw basic::Error(number, text, source);
}

void RefuseUnlessBooks(const std::string& path, bool closely) {
    switch (LookAt(path, closely)) {
        case FileLook::Encrypted:
            return;
        case FileLook::Missing:
            Refuse(error::FileNotFound, "Could not find the books file '" + path + "'.");
        case FileLook::NoFile:
            Refuse(error::NotABooksFile, "'" + path + "' is a folder or a device, not a books file.");
        case FileLook::ManyNames:
            Refuse(
                error::NotABooksFile,
                "The books file '" + path +
                    "' bears more than one name (hard links), and each would have a log of its own. Copy it "
                    "to a file of one name.");
        case FileLook::NotReadable:
            Refuse(error::ReadOnly, "The books file '" + path + "' cannot be written to.");
        case FileLook::NotBooks:
            Refuse(error::NotABooksFile, "The file '" + path + "' is no books file.");
    }
}

[[noreturn]] void RefuseKey(const std::string& path) {
    RefuseUnlessBooks(path, true);
    Refuse(error::WrongPassword, "Not a valid password for '" + path + "', or its first page is damaged.");
}

}  // namespace

void SqlCipherEngine::Open(const std::string& path, const std::string& password) {
    try {
        // Again where another file took the path meanwhile, as a restore does.
        while (!OpenOnce(path, password)) store_.Close();
        Configure();
    } catch (...) {
        Leave();
        throw;
    }
}

bool SqlCipherEngine::OpenOnce(const std::string& path, const std::string& password) {
    RefuseUnlessBooks(path, false);
    const FileId before = IdOf(path);
    const LogFate fate = SettleLog(path, password);
    if (fate.unreadable) RefuseKey(path);
    if (!fate.setAside.empty()) notice_ = TellSetAside(path, fate.setAside);
    use_.emplace(before);
    store_.Open(path);
    Unlock(path, password);
    return IdOf(path) == before;
}

// Gives the key and tries it on the first page: the library itself takes any key and says nothing.
void SqlCipherEngine::Unlock(const std::string& path, const std::string& password) {
    store_.GiveKey(password);
    try {
        store_.Ask("SELECT count(*) FROM sqlite_master");
    } catch (const basic::Error&) {
        if ((sqlite3_errcode(store_.Get()) & 0xff) != SQLITE_NOTADB) throw;
        RefuseKey(path);
    }
}

void SqlCipherEngine::Configure() {
    if (sqlite3_db_readonly(store_.Get(), "main") == 1)
        Refuse(error::ReadOnly, "The books file or its folder cannot be written to.");
    InstallFunctions(store_.Get(), store_.Raised());
    sqlcipher::InstallNumbers(store_, numbers_);
    if (store_.Ask("PRAGMA journal_mode") != "wal") store_.Ask("PRAGMA journal_mode = WAL");
    store_.Run("PRAGMA synchronous = NORMAL");
    waits_ = false;
    KeepAtMost(kept_);
    store_.Run("PRAGMA foreign_keys = OFF");
    store_.Run("PRAGMA temp_store = MEMORY");
    ChangedByOthers();
}

void SqlCipherEngine::KeepAtMost(int kb) {
    kept_ = kb;
    store_.Run("PRAGMA cache_size = " + std::to_string(-kb));
}

void SqlCipherEngine::RefuseWrites() {
    store_.Run("PRAGMA query_only = ON");
}

void SqlCipherEngine::ForgetPages() {
    sqlite3_db_release_memory(store_.Get());
}

void SqlCipherEngine::Close() {
    Flush();
    Leave();
}

void SqlCipherEngine::Leave() {
    store_.Close();
    use_.reset();
}

std::unique_ptr<EngineStatement> SqlCipherEngine::Prepare(const std::string& sql) {
    return store_.Prepare(sql);
}

std::int64_t SqlCipherEngine::Changes() const {
    return sqlite3_changes(store_.Get());
}

std::int64_t SqlCipherEngine::LastRow() const {
    return sqlite3_last_insert_rowid(store_.Get());
}

std::vector<std::string> SqlCipherEngine::CheckPages() {
    const auto rows = store_.Prepare("PRAGMA integrity_check");
    std::vector<std::string> faults;
    while (rows->Step()) faults.emplace_back(rows->Text(0));
    if (faults.size() == 1 && faults.front() == "ok") faults.clear();
    return faults;
}

bool SqlCipherEngine::InTransaction() const {
    return sqlite3_get_autocommit(store_.Get()) == 0;
}

// The write lock at once: a read followed by a write inside a deferred transaction fails without waiting as
// soon as another program has written in between.
void SqlCipherEngine::Begin() {
    WaitForDisk(true);
    BeginWriting();
    changesAtBegin_ = sqlite3_total_changes(store_.Get());
    undone_ = false;
}

// A mark goes into the transaction with which a log may begin: see LogMark.h. Before the very first one the
// file itself gets one, so that a copy made while nobody had the books open is never taken for the file of
// the log.
void SqlCipherEngine::BeginWriting() {
    store_.RunAgain(BeginSql);
    try {
        LogStart start = StartOfLog(store_);
        if (start == LogStart::Empty) {
            WriteMark(store_);
            store_.RunAgain(CommitSql);
            store_.Run("PRAGMA wal_checkpoint(PASSIVE)");
            store_.RunAgain(BeginSql);
            start = StartOfLog(store_);
        }
        if (start != LogStart::No) WriteMark(store_);
    } catch (...) {
        if (InTransaction()) Rollback();
        throw;
    }
}

void SqlCipherEngine::Commit() {
    try {
        store_.RunAgain(CommitSql);
    } catch (const basic::Error& failure) {
        if (InTransaction()) throw;
        throw basic::Error(failure.Number, TextOfLostCommit(failure.Description), failure.Source);
    }
    // A commit that wrote nothing waits for nothing; what was written loosely before must not stay behind it.
    // The commit itself stands: a disk that fails now is told by the next that waits for it.
    try {
        if (undone_ || sqlite3_total_changes(store_.Get()) == changesAtBegin_) Flush();
        looseWritten_ = false;
        DropPages();
    } catch (const basic::Error&) {
    }
}

void SqlCipherEngine::Rollback() {
    store_.Run("ROLLBACK");
}

void SqlCipherEngine::Savepoint(int level) {
    store_.RunAgain("SAVEPOINT " + Level(level));
}

void SqlCipherEngine::Release(int level) {
    store_.RunAgain("RELEASE " + Level(level));
}

void SqlCipherEngine::RollbackTo(int level) {
    undone_ = true;  // the count of changes no longer tells whether anything is left to write
    store_.RunAgain("ROLLBACK TO " + Level(level));
    Release(level);
}

// The failed commit may stand in the log all the same, unseen by all who work: the first start after a crash
// would take it in, long after it was told as failed. So it is cut off before anything is told.
std::string SqlCipherEngine::TextOfLostCommit(const std::string& text) {
    try {
        store_.RunAgain(BeginSql);  // nobody writes behind the end meanwhile
        const bool cut = CutLog(store_);
        Rollback();
        if (cut) return text + " The change was undone.";
    } catch (const basic::Error&) {
        if (InTransaction()) Rollback();
    }
    return text +
           " It is not certain that the change was undone: close all programs, open the books and look.";
}

void SqlCipherEngine::WriteLoosely(const std::function<void()>& write) {
    WaitForDisk(false);
    looseWritten_ = true;
    BeginWriting();
    try {
        write();
        store_.RunAgain(CommitSql);
    } catch (...) {
        if (InTransaction()) Rollback();
        throw;
    }
}

void SqlCipherEngine::Flush() {
    if (!looseWritten_ || InTransaction()) return;
    SyncLog();
    looseWritten_ = false;
}

bool SqlCipherEngine::ChangedByOthers() {
    const std::string version = store_.Ask("PRAGMA data_version");
    return std::exchange(version_, version) != version;
}

void SqlCipherEngine::Cancel() {
    sqlite3_interrupt(store_.Get());
}

// A checkpoint would not do: beside a reader of an older moment it may sync nothing.
void SqlCipherEngine::SyncLog() {
    sqlite3_file* log = nullptr;
    sqlite3_file_control(store_.Get(), "main", SQLITE_FCNTL_JOURNAL_POINTER, &log);
    if (log == nullptr || log->pMethods == nullptr) return;  // no log: nothing was written
    if (log->pMethods->xSync(log, SQLITE_SYNC_NORMAL) != SQLITE_OK)
        throw basic::Error(
            error::Unspecified,
            std::string("The disk could not be read or written (") + std::strerror(errno) + ").", source);
}

// The moment is fixed by the first read, not by BEGIN.
void SqlCipherEngine::BeginRead() {
    store_.Run("BEGIN");
    try {
        store_.Ask("SELECT count(*) FROM sqlite_master");
    } catch (...) {
        if (InTransaction()) Rollback();
        throw;
    }
}

void SqlCipherEngine::EndRead() {
    store_.RunAgain(CommitSql);
}

void SqlCipherEngine::CopyTo(const std::string& file, const std::string& password) {
    SqlHandle copy;
    basic::MakePrivate(file);
    copy.Open(file);
    copy.GiveKey(password);
    sqlite3_backup* backup = sqlite3_backup_init(copy.Get(), "main", store_.Get(), "main");
    if (backup == nullptr) copy.Fail();
    sqlite3_backup_step(backup, -1);
    if (sqlite3_backup_finish(backup) != SQLITE_OK) copy.Fail();
}

// One that posts goes on to other pages and needs the old ones no more.
void SqlCipherEngine::DropPages() {
    int used = 0, highest = 0;
    sqlite3_db_status(store_.Get(), SQLITE_DBSTATUS_CACHE_USED, &used, &highest, 0);
    if (used / 1024 <= KeptByWriter) return;
    const int kept = kept_;
    for (const int kb : {KeptByWriter / 2, kept}) KeepAtMost(kb);
}

// Switched only when the other kind of write comes, so that a stream of either kind pays nothing for it.
void SqlCipherEngine::WaitForDisk(bool wait) {
    if (wait == waits_) return;
    store_.Run(wait ? "PRAGMA synchronous = FULL" : "PRAGMA synchronous = NORMAL");
    waits_ = wait;
}

}  // namespace ado
