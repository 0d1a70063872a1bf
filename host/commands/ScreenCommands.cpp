// The desk, the main menu, single screens, and files of what they show.
#include <algorithm>
#include <functional>
#include <memory>

#include <unistd.h>

#include "core/MsgBox.h"
#include "core/Screens.h"
#include "core/SiblingLibrary.h"
#include "host/commands/CommandLine.h"
#include "host/commands/Exit.h"
#include "host/commands/OpenBooks.h"
#include "host/commands/UserBooks.h"
#include "host/make/Fail.h"

namespace host {
namespace {

struct ScreenOptions {
    std::string screen, folder;
};

// The folder that was named, else the user's own; "" where the user wants no books laid down there.
std::string FolderOf(const ScreenOptions& options) {
    if (!options.folder.empty()) return options.folder;
    return UserBooksStand() ? UserBooksFolder().string() : "";
}

// Opens the books and does `work` with them.
int OnBooks(const ScreenOptions& options, OpenBooks::Boxes boxes,
            const std::function<void(OpenBooks&)>& work) {
    const std::string folder = FolderOf(options);
    if (folder.empty()) return ExitFailed;
    OpenBooks books(folder, boxes);
    work(books);
    return ExitOk;
}

// A start from the desktop names no folder and has no terminal that would show why it failed.
bool StartedFromDesktop(const ScreenOptions& options) {
    return options.folder.empty() && isatty(STDERR_FILENO) == 0 && qm::DisplayIsThere();
}

// The same for a window, whose user may have come from the desktop: a box tells what failed, too.
int InWindow(const ScreenOptions& options, const std::function<void(OpenBooks&)>& work) {
    try {
        return OnBooks(options, OpenBooks::Boxes::InWindow, work);
    } catch (const basic::Error& error) {
        if (StartedFromDesktop(options)) qm::MsgBox(error.Description, qm::vbOKOnly, qm::AppTitle);
        throw;
    }
}

int ShowMenuOf(const ScreenOptions& options) {
    return InWindow(options, [](OpenBooks& books) { books.Host().QmMainMenu(); });
}

// The desk opens the books itself, and tells in its own window why it cannot.
int ShowDeskOf(const ScreenOptions& options) {
    static qm::SiblingLibrary library("libqmdesk.so", "The desk");
    const std::string folder = FolderOf(options);
    if (folder.empty()) return ExitFailed;
    library.Need<void(const char*)>("qmShowDesk")(folder.c_str());
    return ExitOk;
}

int OpenOne(const ScreenOptions& options) {
    const std::vector<std::string> names = qm::ScreenNames();
    if (!names.empty() && std::find(names.begin(), names.end(), options.screen) == names.end())
        Fail("there is no screen '" + options.screen + "' (see qmhost open --help)");
    return InWindow(options, [&options](OpenBooks&) { qm::OpenScreen(options.screen); });
}

// Asked for only when the help is shown: it loads the screens.
std::string ScreenList() {
    const std::vector<std::string> names = qm::ScreenNames();
    std::string text = names.empty() ? "The screens cannot be loaded here." : "Screens:";
    for (const std::string& name : names) text += " " + name;
    return text + "\nExample: qmhost open frmFinYear books";
}

constexpr const char* OwnFolder = "Folder of the books; without it the user's own, made at the first start";

void AddFiles(CommandLine& line, const char* name, const char* what, const char* example,
              void (*write)(const std::string& folder)) {
    const auto to = std::make_shared<std::string>();
    const auto options = std::make_shared<ScreenOptions>();
    line.Add(name, what)
        .Needs("FOLDER", *to, "Where the files are written; it is made if it is not there")
        .Takes("DIR", options->folder, OwnFolder)
        .Footer(example)
        .Does([to, options, write] {
            return OnBooks(*options, OpenBooks::Boxes::OnTerminal, [&to, write](OpenBooks&) { write(*to); });
        });
}

}  // namespace

int ShowDesk() {
    return ShowDeskOf({});
}

void AddDesk(CommandLine& line) {
    const auto options = std::make_shared<ScreenOptions>();
    line.Add("desk", "Open the desk and wait until it is closed")
        .Takes("DIR", options->folder, OwnFolder)
        .Footer("Example: qmhost desk books")
        .Does([options] { return ShowDeskOf(*options); });
}

void AddMenu(CommandLine& line) {
    const auto options = std::make_shared<ScreenOptions>();
    line.Add("menu", "Open the main menu and wait until it is closed")
        .Takes("DIR", options->folder, OwnFolder)
        .Footer("Example: qmhost menu books")
        .Does([options] { return ShowMenuOf(*options); });
}

void AddOpen(CommandLine& line) {
    const auto options = std::make_shared<ScreenOptions>();
    line.Add("open", "Open one screen and wait until it is closed")
        .Needs("SCREEN", options->screen, "Name of its form")
        .Takes("DIR", options->folder, OwnFolder)
        .Footer(ScreenList)
        .Does([options] { return OpenOne(*options); });
}

void AddPictures(CommandLine& line) {
    AddFiles(line, "pictures", "Write a picture of each screen; needs no display",
             "Example: qmhost pictures out books", qm::WritePictures);
}

void AddReports(CommandLine& line) {
    AddFiles(line, "reports", "Write each report as PDF and as text; needs no display",
             "Example: qmhost reports out books", qm::WriteReports);
}

}  // namespace host
