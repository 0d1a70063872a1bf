#include "host/commands/Backup.h"

#include <filesystem>
#include <iostream>
#include <memory>

#include <CLI/CLI.hpp>

#include "core/modGeneral.h"
#include "host/audit/Audit.h"
#include "host/commands/Command.h"
#include "host/commands/Exit.h"
#include "host/commands/ReadOnlyBooks.h"
#include "host/make/Fail.h"
#include "platform/ado/Maintenance.h"

namespace host {
namespace {

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

ado::ConnectionPtr OpenCopy(const std::string& file) {
    auto copy = std::make_shared<ado::Connection>();
    copy->Properties("Data Source") = file;
    copy->Properties("Jet OlEDB:Database Password") =
        qm::Conn().Properties.Get("Jet OlEDB:Database Password");
    copy->Open();
    return copy;
}

void Compare(const std::string& file, const std::string& sums) {
    const ado::ConnectionPtr copy = OpenCopy(file);
    const std::vector<std::string> faults = ado::CheckIntegrity(*copy);
    if (!faults.empty()) Fail("the copy is damaged: " + faults.front());
    if (Sums(*copy) != sums) Fail("the sums of the copy differ from those of the books");
    copy->Close();
}

void Remove(const std::string& file) {
    std::error_code ignored;
    for (const char* suffix : {"", "-wal", "-shm"}) std::filesystem::remove(file + suffix, ignored);
}

}  // namespace

void BackUpBooks(const std::string& folder, const std::string& file) {
    if (std::filesystem::exists(file)) Fail("'" + file + "' exists; a backup never overwrites");
    const std::string target = std::filesystem::absolute(file).parent_path();
    if (!std::filesystem::is_directory(target)) Fail("there is no folder '" + target + "' for the backup");
    const ReadOnlyBooks books(folder);
    std::string sums;
    {
        // Others may go on writing: the sums and the copy are of one moment.
        const ado::Snapshot moment(qm::Conn());
        sums = Sums(qm::Conn());
        ado::BackUp(qm::Conn(), file);
    }
    try {
        Compare(file, sums);
    } catch (...) {
        Remove(file);
        throw;
    }
}

void AddBackup(CLI::App& app, Command& chosen) {
    struct Options {
        std::string folder, file;
    };
    const auto options = std::make_shared<Options>();
    auto* command = app.add_subcommand("backup", "Copy the books into a file while others may work");
    command->add_option("DIR", options->folder, "Folder of the books")->required();
    command->add_option("FILE", options->file, "New file; never overwritten")->required();
    command->footer(
        "The copy bears the same password. It is opened, its pages are checked and the sums of its tables "
        "compared\n"
        "before anything is said.\n"
        "Example: qmhost backup books books-2025-04-01.mdb");
    command->callback([options, &chosen] {
        chosen = [options] {
            BackUpBooks(options->folder, options->file);
            std::cout << options->file << ": backed up and compared\n";
            return ExitOk;
        };
    });
}

}  // namespace host
