#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// A write-ahead log as it lies on the disk, read without the library and without the key: pages stand in it
// encrypted, byte for byte as they will stand in the file.
namespace ado {

inline constexpr std::size_t PageSize = 1024;

// Where `frames` frames of a log end, in bytes.
std::uint64_t EndOfFrames(std::uint32_t frames);

struct CrashLog {
    bool holdsChanges = false;    // at least one transaction that is whole; else the library passes it over
    std::string firstPage;        // page 1 as the first transaction left it, "" where it left it alone
    std::uint32_t pages = 0;      // of the store after that transaction
    bool knowsFirstPage = false;  // a page 1 in it, or half of one, is that of the file
};

// Reads the log up to its end or to the first frame that does not check out. `firstPage` is page 1 of the
// file. A half counts too: a power cut can leave a page half written.
CrashLog ReadCrashLog(const std::string& log, std::string_view firstPage);

}  // namespace ado
