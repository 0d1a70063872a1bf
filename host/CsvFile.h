#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace host {

struct CsvRow {
    int line = 0;  // of the file, from 1, where the row begins
    std::vector<std::string> fields;
};

// All rows of a comma-separated file: quoted fields, doubled quotes and line ends inside quotes are read; a
// byte order mark is skipped; empty lines are left out. Raises basic::Error for a file that cannot be read or
// a quote that never ends.
std::vector<CsvRow> ReadCsv(const std::filesystem::path& file);

}  // namespace host
