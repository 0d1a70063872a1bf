#pragma once

#include <functional>

namespace host {

class CommandLine;

// What runs once the command line has been read; gives the exit code. A failure is raised as basic::Error.
using Command = std::function<int()>;

// Each command adds itself, with its options, its help and what it does.
void AddCreate(CommandLine& line);
void AddPost(CommandLine& line);
void AddImport(CommandLine& line);
void AddExport(CommandLine& line);
void AddLists(CommandLine& line);
void AddLedgers(CommandLine& line);
void AddYears(CommandLine& line);
void AddYearSwitch(CommandLine& line);
void AddAddYear(CommandLine& line);
void AddCheck(CommandLine& line);
void AddCopy(CommandLine& line);
void AddBackup(CommandLine& line);
void AddRestore(CommandLine& line);
void AddRenew(CommandLine& line);
void AddDesk(CommandLine& line);
void AddMenu(CommandLine& line);
void AddOpen(CommandLine& line);
void AddPictures(CommandLine& line);
void AddReports(CommandLine& line);

// What the program does without a command: the desk on the user's own books.
int ShowDesk();

}  // namespace host
