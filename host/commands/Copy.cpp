// Books from a file to a server and back.
#include "host/commands/Copy.h"

#include <filesystem>
#include <iostream>
#include <memory>

#include "host/commands/BooksCopy.h"
#include "host/commands/CommandLine.h"
#include "host/commands/Exit.h"
#include "host/make/Books.h"
#include "host/make/BooksFolder.h"
#include "host/make/Fail.h"
#include "platform/ado/Maintenance.h"
#include "platform/ado/store/ServerAddress.h"

namespace host {
namespace {

namespace fs = std::filesystem;

// The books of a folder or a server, or one file, such as a backup.
ado::ConnectionPtr OpenSource(const std::string& from) {
    const std::string folder = from.ends_with("/") ? from : from + "/";
    if (ado::IsServerAddress(from) || fs::is_directory(from)) return OpenCopy(folder + BooksFile);
    return OpenCopy(from);
}

int Copy(const std::string& from, const std::string& to, bool roles) {
    const ado::ConnectionPtr source = OpenSource(from);
    CopyTo(*source, to, roles);
    source->Close();
    std::cout << to << ": copied and compared\n";
    return ExitOk;
}

}  // namespace

void CopyTo(ado::Connection& source, const std::string& to, bool roles) {
    if (ado::IsServerAddress(to))
        return ado::CopyBooks(source, to, roles ? ado::CopyRoles::Make : ado::CopyRoles::None);
    if (roles) Fail("roles belong to books on a server");
    BooksFolder place(to, BooksFile);
    ado::CopyBooks(source, place.Staging() / BooksFile);
    place.Publish();
}

void AddCopy(CommandLine& line) {
    struct Options {
        std::string from, to;
        bool roles = false;
    };
    const auto options = std::make_shared<Options>();
    line.Add("copy", "Copy the books to another place, a server among them")
        .Needs("FROM", options->from, "Folder of the books, their server's URI, or a backup's file")
        .Needs("TO", options->to, "Folder or URI where no books stand; made where it is missing")
        .Takes("--roles", options->roles,
               "On a server: make the roles of those who write, NAME_books, and of those who only read, "
               "NAME_read")
        .Footer(
            "Each row is compared with the one that it was copied from. Nothing is left behind where it "
            "fails, and\n"
            "books that stand are never touched. Others may go on working on FROM: what is copied is of one "
            "moment.\n"
            "Example: qmhost copy books postgresql://host/firm/")
        .Does([options] { return Copy(options->from, options->to, options->roles); });
}

}  // namespace host
