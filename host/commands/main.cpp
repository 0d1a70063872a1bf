#include <exception>
#include <iostream>

#include <CLI/CLI.hpp>

#include "host/commands/Command.h"
#include "host/commands/Exit.h"
#include "platform/basic/Error.h"

namespace {

int Complain(const std::string& text, int code) {
    std::cerr << "qmhost: " << text << "\n";
    return code;
}

int Run(int argc, char** argv) {
    CLI::App app("Drives the accounts module: lays down, fills, lists and looks after its books.", "qmhost");
    app.set_version_flag("--version", "qmhost " QM_VERSION, "Print the version and exit");
    app.require_subcommand(0, 1);  // none is told below, so that an unknown one is named first
    app.footer(
        "Without a command it opens the main menu on the user's own books.\n"
        "Exit codes: 0 done, 1 failed or found something, 2 the command line does not read.");
    host::Command chosen;
    for (const auto add :
         {host::AddMenu, host::AddOpen, host::AddPictures, host::AddReports, host::AddCreate, host::AddPost,
          host::AddLedgers, host::AddYears, host::AddYearSwitch, host::AddAddYear, host::AddCheck,
          host::AddCopy, host::AddBackup, host::AddRestore})
        add(app, chosen);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) return app.exit(error);
        return Complain(std::string(error.what()) + " (see qmhost --help)", host::ExitUsage);
    }
    return chosen ? chosen() : host::ShowMenu();
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
