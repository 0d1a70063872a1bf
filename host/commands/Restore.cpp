#include "host/commands/Restore.h"

#include <fstream>
#include <iostream>
#include <memory>
#include <optional>

#include "host/commands/BooksCopy.h"
#include "host/commands/CommandLine.h"
#include "host/commands/Exit.h"
#include "host/make/Books.h"
#include "host/make/BooksFolder.h"
#include "host/make/Fail.h"
#include "host/make/PassingFolder.h"
#include "platform/ado/Maintenance.h"
#include "platform/ado/store/ServerAddress.h"
#include "platform/ado/store/SoleUse.h"
#include "platform/basic/Files.h"
#include "platform/basic/Text.h"

namespace fs = std::filesystem;

namespace host {
namespace {

void CopyBytes(const fs::path& from, const fs::path& to) {
    basic::MakePrivate(to);
    std::ifstream in(from, std::ios::binary);
    std::ofstream out(to, std::ios::binary);
    if (!in) Fail("cannot read " + from.string());
    if (!(out << in.rdbuf()).flush()) Fail("cannot copy " + from.string() + ": the disk is full or failed");
}

// Without writing anything beside it: it may lie where nobody can write.
void CopyBackup(const std::string& file, const fs::path& to) {
    if (!fs::exists(file)) Fail("there is no file '" + file + "'");
    if (!fs::is_regular_file(file)) Fail("'" + file + "' is a folder or a device, not a backup");
    if (fs::file_size(file) == 0) Fail("'" + file + "' is empty");
    CopyBytes(file, to);
    if (std::error_code none; fs::exists(file + "-wal", none) && fs::file_size(file + "-wal", none) > 0)
        CopyBytes(file + "-wal", to.string() + "-wal");
}

void RefuseUnlessWhole(const std::string& file, const fs::path& copy) {
    try {
        const ado::ConnectionPtr books = OpenCopy(copy);
        RefuseDamaged(*books);
        books->Execute("Select Fnncl_Yr From Fnncl_Yr_Mstr");
        books->Execute("Select Ledger_ID From Ledger_Master");
        books->Close();
    } catch (const basic::Error& error) {
        Fail("'" + file + "' cannot be restored: " + basic::Replace(error.Description, copy.string(), file));
    }
    // A log of other books was set aside there, which the owner of the file still has.
    for (const fs::directory_entry& entry : fs::directory_iterator(copy.parent_path()))
        if (!entry.path().filename().string().starts_with(BooksFile)) fs::remove(entry.path());
}

// The backup, or the books of a server as of one moment, as a file of their own.
void CopyWhole(const std::string& from, const fs::path& copy) {
    if (ado::IsServerAddress(from)) {
        const ado::ConnectionPtr books = OpenCopy(from.ends_with("/") ? from : from + "/");
        ado::CopyBooks(*books, copy);
        books->Close();
    } else {
        CopyBackup(from, copy);
    }
    RefuseUnlessWhole(from, copy);
}

std::vector<fs::path> RestoreOnServer(const std::string& file, const std::string& server) {
    const PassingFolder folder;
    const fs::path copy = folder.Path() / BooksFile;
    CopyWhole(file, copy);
    const ado::ConnectionPtr books = OpenCopy(copy);
    const std::string aside = ado::ReplaceBooks(*books, server);
    books->Close();
    return aside.empty() ? std::vector<fs::path>{} : std::vector<fs::path>{aside};
}

// The folder in which the books really stand: a link in their place is not to be replaced.
fs::path RealFolder(const fs::path& folder) {
    std::error_code none;
    const fs::path real = fs::canonical(folder / BooksFile, none);
    if (none) return folder;
    if (real.filename() != BooksFile)
        Fail((folder / BooksFile).string() + " is a link to " + real.string() +
             "; restore that file by hand");
    return real.parent_path();
}

int Restore(const std::string& file, const std::string& folder) {
    const std::vector<fs::path> setAside = RestoreBooks(file, folder);
    std::cout << (ado::IsServerAddress(folder) ? folder : (fs::path(folder) / BooksFile).string())
              << ": restored from " << file << "\n";
    for (const fs::path& aside : setAside) std::cout << "set aside: " << aside.string() << "\n";
    return ExitOk;
}

}  // namespace

std::vector<fs::path> RestoreBooks(const std::string& file, const std::string& folder) {
    if (ado::IsServerAddress(folder)) return RestoreOnServer(file, folder);
    BooksFolder place(RealFolder(folder), BooksFile, BooksFolder::Taken::SetAside);
    const fs::path copy = place.Staging() / BooksFile, target = RealFolder(folder) / BooksFile;
    CopyWhole(file, copy);
    std::optional<ado::SoleUse> alone;
    if (fs::is_regular_file(target) && !alone.emplace(target).Held())
        Fail("a program has " + target.string() + " open: close it first; nothing was changed");
    place.Publish();
    alone.reset();
    OpenCopy(target)->Close();
    return place.SetAside();
}

std::vector<ado::TableSums> VerifyBackup(const std::string& file) {
    const PassingFolder passing;
    const fs::path copy = passing.Path() / BooksFile;
    CopyWhole(file, copy);
    const ado::ConnectionPtr books = OpenCopy(copy);
    std::vector<ado::TableSums> sums = ado::SumTables(*books);
    books->Close();
    return sums;
}

void AddRestore(CommandLine& line) {
    struct Options {
        std::string file, folder;
    };
    const auto options = std::make_shared<Options>();
    line.Add("restore", "Put a backup in the place of the books")
        .Needs("FILE", options->file, "The backup, or the URI of books on a server; it is only read")
        .Needs("DIR", options->folder, "Folder of the books, made where it is missing, or their server's URI")
        .Footer(
            "The backup is checked first. The books that stand there are set aside under a name with the "
            "date, "
            "with\n"
            "the log of a crash if there is one: nothing is lost. No program may have them open. On a server "
            "their\n"
            "database gets the dated name.\n"
            "Example: qmhost restore books-2025-04-01.mdb books")
        .Does([options] { return Restore(options->file, options->folder); });
}

}  // namespace host
