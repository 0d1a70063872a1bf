#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/commands/Command.h"

namespace CLI {
class App;
}

namespace host {

// A command as the command line knows it. What it takes is told in the order of its help; a name without
// dashes goes by its place. It is read into the places given, which must last until the command has run.
class Subcommand {
  public:
    Subcommand(CLI::App& app, Command& chosen) : app_(app), chosen_(chosen) {}

    Subcommand& Needs(const char* name, std::string& place, const char* what);
    // One of the words.
    Subcommand& Needs(const char* name, std::string& place, const char* what,
                      const std::vector<std::string>& words);
    Subcommand& Takes(const char* name, std::string& place, const char* what);
    Subcommand& Takes(const char* name, std::optional<int>& place, int lowest, int highest, const char* what);
    Subcommand& Takes(const char* name, bool& place, const char* what);

    // A command of its own below this one, which then needs one of those.
    Subcommand Add(const char* name, const char* what);

    // The help's last lines; a routine is asked for them when the help is shown.
    Subcommand& Footer(const std::string& text);
    Subcommand& Footer(const std::function<std::string()>& text);

    void Does(const Command& work);  // when it is named
    // For a command that takes one word and nothing else.
    void Does(const char* name, const char* what, int (*work)(const std::string& word));

  private:
    CLI::App& app_;
    Command& chosen_;
};

// The only place that names the library behind it, which takes long to compile.
class CommandLine {
  public:
    CommandLine(const std::string& program, const std::string& what, const std::string& version,
                const std::string& footer);
    ~CommandLine();
    CommandLine(const CommandLine&) = delete;
    CommandLine& operator=(const CommandLine&) = delete;

    Subcommand Add(const char* name, const char* what);

    // What was asked for: a command, help, or the complaint about a line that does not read; nothing where no
    // command is named.
    Command Read(int argc, const char* const* argv);

  private:
    std::unique_ptr<CLI::App> app_;
    Command chosen_;
};

}  // namespace host
