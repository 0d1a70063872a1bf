#include <exception>
#include <iostream>

#include "host/commands/Command.h"
#include "host/commands/CommandLine.h"
#include "host/commands/Exit.h"
#include "platform/basic/Error.h"

namespace {

int Complain(const std::string& text, int code) {
    std::cerr << "qmhost: " << text << "\n";
    return code;
}

int Run(int argc, char** argv) {
    host::CommandLine line(
        "qmhost", "Drives the accounts module: lays down, fills, lists and looks after its books.",
        "qmhost " QM_VERSION,
        "Without a command it opens the desk on the user's own books.\n"
        "Exit codes: 0 done, 1 failed or found something, 2 the command line does not read.");
    for (const auto add : {host::AddDesk, host::AddMenu, host::AddOpen, host::AddPictures, host::AddReports,
                           host::AddCreate, host::AddPost, host::AddImport, host::AddExport, host::AddLists,
                           host::AddLedgers, host::AddYears, host::AddYearSwitch, host::AddAddYear,
                           host::AddCheck, host::AddCopy, host::AddBackup, host::AddRestore, host::AddRenew})
        add(line);
    const host::Command chosen = line.Read(argc, argv);
    return chosen ? chosen() : host::ShowDesk();
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return Run(argc, argv);
    } catch (const basic::Error& error) {
        return Complain(error.Description, host::ExitFailed);
    } catch (const std::exception& error) {
        return Complain(error.what(), host::ExitFailed);
    } catch (...) {
        return Complain("an unknown failure", host::ExitFailed);
    }
}
