#pragma once

#include <functional>

namespace CLI {
class App;
}

namespace host {

// What runs once the command line has been read; gives the exit code. A failure is raised as basic::Error.
using Command = std::function<int()>;

// Each command adds itself, with its options and help, and puts what it does into `chosen` when it is named.
void AddCreate(CLI::App& app, Command& chosen);
void AddPost(CLI::App& app, Command& chosen);
void AddLedgers(CLI::App& app, Command& chosen);
void AddYears(CLI::App& app, Command& chosen);
void AddYearSwitch(CLI::App& app, Command& chosen);
void AddAddYear(CLI::App& app, Command& chosen);
void AddCheck(CLI::App& app, Command& chosen);
void AddCopy(CLI::App& app, Command& chosen);
void AddBackup(CLI::App& app, Command& chosen);
void AddRestore(CLI::App& app, Command& chosen);
void AddMenu(CLI::App& app, Command& chosen);
void AddOpen(CLI::App& app, Command& chosen);
void AddPictures(CLI::App& app, Command& chosen);
void AddReports(CLI::App& app, Command& chosen);

// What the program does without a command: the main menu on the user's own books.
int ShowMenu();

}  // namespace host
