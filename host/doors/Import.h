#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/clQm.h"
#include "host/doors/CsvTable.h"
#include "host/doors/Faults.h"
#include "host/make/CsvFile.h"
#include "platform/basic/Error.h"

namespace host {

// One row of a checked file: what it writes, by the routines that the screens call. Raises what they raise.
struct ImportRow {
    int line = 0;  // of the file
    std::function<void()> write;
};

// A file that was checked as a whole: only one without faults may be written, and only into the books and the
// year that it was checked against.
struct ImportFile {
    std::string year;  // the current one, by its short form
    std::vector<ImportRow> rows;
    Faults faults;             // in the order of the lines
    std::vector<CsvRow> read;  // as they stand in the file, the columns' names first
};

// The kinds of file that bring something in, by the word that names each.
const std::vector<std::string>& ImportKinds();  // "ledgers", "items", "openings"

// Checks a file of comma-separated text against the open books by the rules of the screens that enter the
// same; the books are only read. The first row names the columns (ImportColumns). Raises for a file that
// cannot be read and what the books raise.
ImportFile CheckImport(const std::string& kind, const std::filesystem::path& file, qm::clQm& books,
                       const CheckProgress& progress);

// The columns that such a file may have.
const std::vector<Head>& ImportHeads(const std::string& kind);

// The names of a kind's columns, those that are needed first marked by "*".
std::string ImportColumns(const std::string& kind);

// Reads the current year again and raises where it is no longer the one that a file was checked for.
void RequireYear(const std::string& checkedFor);
// The fault of a row that could not be written.
Fault NotWritten(int line, const basic::Error& error);

// Writes all rows in one transaction, while nobody else can write. Where one fails, where the current year is
// no longer the file's, or where the disk fails, nothing is written but the error log, and the fault says
// why.
std::optional<Fault> WriteImport(const ImportFile& file, const CheckProgress& progress);

}  // namespace host
