#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace host {

struct CsvRow {
    int line = 0;  // of the file, from 1, where the row begins
    std::vector<std::string> fields;
};

// All rows of a comma-separated text: quoted fields, doubled quotes and line ends inside quotes are read; a
// byte order mark is skipped; empty lines are left out. Raises basic::Error for a quote that never ends.
std::vector<CsvRow> ParseCsv(std::string_view text);

// The same of a file. Raises basic::Error also for one that cannot be read.
std::vector<CsvRow> ReadCsv(const std::filesystem::path& file);

}  // namespace host
