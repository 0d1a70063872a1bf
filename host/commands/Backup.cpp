#include "host/commands/Backup.h"

#include <filesystem>
#include <iostream>
#include <memory>

#include "core/modGeneral.h"
#include "host/commands/BooksCopy.h"
#include "host/commands/CommandLine.h"
#include "host/commands/Exit.h"
#include "host/commands/ReadOnlyBooks.h"
#include "host/make/BooksFolder.h"
#include "host/make/Fail.h"
#include "platform/ado/Maintenance.h"
#include "platform/ado/store/ServerAddress.h"

namespace host {
namespace {

namespace fs = std::filesystem;

// What two states of the books are told apart by: rows and sums of every table, as one text.
std::string Sums(ado::Connection& connection) {
    std::string text;
    for (const ado::TableSums& table : ado::SumTables(connection)) {
        text += table.name + " " + std::to_string(table.rows);
        for (const auto& [column, sum] : table.sums) text += " " + column + "=" + sum;
        text += "\n";
    }
    return text;
}

void Compare(const std::string& file, const std::string& sums) {
    const ado::ConnectionPtr copy = OpenCopy(file);
    RefuseDamaged(*copy);
    if (Sums(*copy) != sums) Fail("the sums of the copy differ from those of the books");
    copy->Close();
}

// Never wider than its owner's rights, and no wider than those of the books.
void NarrowRights(const fs::path& copy, const fs::path& books) {
    const fs::perms own = fs::perms::owner_read | fs::perms::owner_write;
    fs::permissions(copy, fs::status(books).permissions() & own);
}

// Others may go on writing: the sums and the copy are of one moment.
void CopyFile(ado::Connection& books, const fs::path& copy) {
    std::string sums;
    {
        const ado::Snapshot moment(books);
        sums = Sums(books);
        ado::BackUp(books, copy);
    }
    Compare(copy, sums);
    NarrowRights(copy, books.Properties.Get("Data Source"));
}

// The folder of a backup, where one can be written under this name.
fs::path FolderFor(const std::string& file) {
    if (fs::exists(fs::symlink_status(file))) Fail("'" + file + "' exists; a backup never overwrites");
    const fs::path target = fs::absolute(file).parent_path();
    if (!fs::is_directory(target)) Fail("there is no folder '" + target.string() + "' for the backup");
    return target;
}

}  // namespace

void BackUpBooks(const std::string& folder, const std::string& file) {
    FolderFor(file);
    const ReadOnlyBooks books(folder);
    BackUpOpenBooks(qm::Conn(), ado::IsServerAddress(folder), file);
}

void BackUpOpenBooks(ado::Connection& books, bool onServer, const std::string& file) {
    BooksFolder place(FolderFor(file), fs::path(file).filename());
    const fs::path copy = place.Staging() / fs::path(file).filename();
    if (onServer)
        ado::CopyBooks(books, copy);  // each row compared
    else
        CopyFile(books, copy);
    place.Publish();
}

void AddBackup(CommandLine& line) {
    struct Options {
        std::string folder, file;
    };
    const auto options = std::make_shared<Options>();
    line.Add("backup", "Copy the books into a file while others may work")
        .Needs("DIR", options->folder, "Folder of the books, or their server's URI")
        .Needs("FILE", options->file, "New file; never overwritten")
        .Footer(
            "The copy bears the same password. It is opened, its pages are checked and the sums of its "
            "tables "
            "compared, those\n"
            "of a server row by row; then it gets its name, and is on the disk before anything is said. To "
            "go back to it: qmhost "
            "restore.\n"
            "Example: qmhost backup books books-2025-04-01.mdb")
        .Does([options] {
            BackUpBooks(options->folder, options->file);
            std::cout << options->file << ": backed up and compared\n";
            return ExitOk;
        });
}

}  // namespace host
