// The main menu, and single screens.
#include <algorithm>
#include <memory>

#include <CLI/CLI.hpp>

#include "core/Screens.h"
#include "host/Command.h"
#include "host/Exit.h"
#include "host/Fail.h"
#include "host/OpenBooks.h"

namespace host {
namespace {

struct ScreenOptions {
    std::string screen, folder;
};

int ShowMenu(const ScreenOptions& options) {
    OpenBooks(options.folder).Host().QmMainMenu();
    return ExitOk;
}

int OpenOne(const ScreenOptions& options) {
    const std::vector<std::string> names = qm::ScreenNames();
    if (!names.empty() && std::find(names.begin(), names.end(), options.screen) == names.end())
        Fail("there is no screen '" + options.screen + "' (see qmhost open --help)");
    const OpenBooks books(options.folder);
    qm::OpenScreen(options.screen);
    return ExitOk;
}

// Asked for only when the help is shown: it loads the screens.
std::string ScreenList() {
    const std::vector<std::string> names = qm::ScreenNames();
    std::string text = names.empty() ? "The screens cannot be loaded here." : "Screens:";
    for (const std::string& name : names) text += " " + name;
    return text + "\nExample: qmhost open frmFinYear books";
}

}  // namespace

void AddMenu(CLI::App& app, Command& chosen) {
    const auto options = std::make_shared<ScreenOptions>();
    auto* command = app.add_subcommand("menu", "Open the main menu and wait until it is closed");
    command->add_option("DIR", options->folder, "Folder of the books")->required();
    command->footer("Example: qmhost menu books");
    command->callback([options, &chosen] { chosen = [options] { return ShowMenu(*options); }; });
}

void AddOpen(CLI::App& app, Command& chosen) {
    const auto options = std::make_shared<ScreenOptions>();
    auto* command = app.add_subcommand("open", "Open one screen and wait until it is closed");
    command->add_option("SCREEN", options->screen, "Name of its form")->required();
    command->add_option("DIR", options->folder, "Folder of the books")->required();
    command->footer(ScreenList);
    command->callback([options, &chosen] { chosen = [options] { return OpenOne(*options); }; });
}

}  // namespace host
