#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform/basic/Error.h"

namespace host {

struct CsvRow {
    int line = 0;  // of the file, from 1, where the row begins
    std::vector<std::string> fields;
};

// A text that is no comma-separated one, or is beyond the bounds of one.
struct CsvError : basic::Error {
    CsvError(int line, std::size_t field, const std::string& reason);
    int line = 0;           // where the row begins
    std::size_t field = 0;  // of the row, from 0, where the reading stopped
    std::string reason;
};

// What a text from outside may hold, so that none takes all memory.
inline constexpr std::size_t MostBytes = 64 << 20, MostRowBytes = 1 << 20, MostFields = 100,
                             MostRows = 500'000;

// All rows of a comma-separated text: quoted fields, doubled quotes and line ends inside quotes are read; a
// byte order mark is skipped; empty lines are left out. Raises CsvError for a quote that stands astray or
// never ends, and for a row, or a number of rows, beyond the bounds.
std::vector<CsvRow> ParseCsv(std::string_view text);

// The bytes of a file. Raises basic::Error for one that cannot be read or is larger than MostBytes.
std::string FileText(const std::filesystem::path& file);

}  // namespace host
