#include "platform/ado/store/LogOwner.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>

#include "platform/ado/Errors.h"
#include "platform/ado/store/CrashLog.h"
#include "platform/ado/store/LogMark.h"
#include "platform/ado/store/SoleUse.h"
#include "platform/basic/Error.h"
#include "platform/basic/Files.h"

namespace fs = std::filesystem;

namespace ado {
namespace {

// A folder of our own for looking at pages and copies; what stands there is encrypted.
class ScratchFolder {
  public:
    ScratchFolder() {
        std::string name = (fs::temp_directory_path() / "qmlog-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr)
            throw basic::Error(error::ReadOnly, "No file can be made in the folder '" + name + "'.",
                               "ado.Engine");
        path_ = name;
    }
    ~ScratchFolder() {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    std::string File() const { return (path_ / "store").string(); }

  private:
    fs::path path_;
};

// Reads the mark out of the first page of a store of `size` bytes; nothing where the key does not open it.
std::optional<Mark> MarkOf(const std::string& firstPage, std::uintmax_t size, const std::string& password) {
    const ScratchFolder scratch;
    std::ofstream(scratch.File(), std::ios::binary) << firstPage;
    fs::resize_file(scratch.File(), size);  // as long as the page says; what it does not hold is a hole
    SqlHandle store;
    store.Open(scratch.File());
    store.GiveKey(password);
    try {
        return ReadMark(store);
    } catch (const basic::Error&) {
        return {};
    }
}

std::string FirstPageOf(const std::string& path) {
    std::string page(PageSize, '\0');
    std::ifstream file(path, std::ios::binary);
    file.read(page.data(), static_cast<std::streamsize>(page.size()));
    page.resize(static_cast<std::size_t>(file.gcount()));
    return page;
}

// A copy of the store, with the log or without, opened and walked through.
bool IsSound(const std::string& path, const std::string& password, bool withLog) {
    const ScratchFolder scratch;
    fs::copy_file(path, scratch.File());
    if (withLog) fs::copy_file(path + "-wal", scratch.File() + "-wal");
    SqlHandle store;
    store.Open(scratch.File());
    store.GiveKey(password);
    try {
        return store.Ask("PRAGMA integrity_check") == "ok";
    } catch (const basic::Error&) {
        return false;
    }
}

enum class Owner { This, Another, Unknown };

// A log that another tool began bears no mark of its own. It is another file's where it spoils this one.
Owner OwnerByTrial(const std::string& path, const std::string& password) {
    if (IsSound(path, password, true)) return Owner::This;
    return IsSound(path, password, false) ? Owner::Another : Owner::This;
}

Owner OwnerOf(const std::string& path, const std::string& password) {
    constexpr std::size_t saltSize = 16;  // in clear, drawn for each file when it is made
    const std::string firstPage = FirstPageOf(path);
    const CrashLog log = ReadCrashLog(path + "-wal", firstPage);
    if (!log.holdsChanges || log.knowsFirstPage) return Owner::This;
    const std::optional<Mark> file = MarkOf(firstPage, fs::file_size(path), password);
    if (!file) return Owner::Unknown;
    if (log.firstPage.empty()) return OwnerByTrial(path, password);
    if (log.firstPage.compare(0, saltSize, firstPage, 0, saltSize) != 0) return Owner::Another;
    const std::optional<Mark> first = MarkOf(log.firstPage, std::uintmax_t{log.pages} * PageSize, password);
    if (!first) return Owner::Another;
    if (first->own == "0" || first->own == file->own) return OwnerByTrial(path, password);
    return first->before == file->own ? Owner::This : Owner::Another;
}

}  // namespace

LogFate SettleLog(const std::string& path, const std::string& password) {
    std::error_code failure;
    const std::string file = fs::canonical(path, failure).string();  // the log stands beside the file itself
    const std::uintmax_t size = fs::file_size(file + "-wal", failure);
    if (failure || size < EndOfFrames(1)) return {};
    const SoleUse sole(file);
    if (!sole.Held()) return {};
    switch (OwnerOf(file, password)) {
        case Owner::This:
            return {};
        case Owner::Unknown:
            return {.setAside = "", .unreadable = true};
        case Owner::Another:
            break;
    }
    const std::string aside = basic::DatedName(file).string() + "-wal";
    basic::RenameTo(file + "-wal", aside);
    basic::SyncToDisk(fs::path(file).parent_path());
    return {.setAside = aside};
}

std::string TellSetAside(const std::string& path, const std::string& setAside) {
    return "The log of a crash that stood beside '" + path +
           "' belonged to another file, as when a copy is put in the place of the books. Nothing of it was "
           "taken in; it was set aside as '" +
           setAside + "'.";
}

}  // namespace ado
