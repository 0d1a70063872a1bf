#include "host/commands/CommandLine.h"

#include <iostream>

#include <CLI/CLI.hpp>

#include "host/commands/Exit.h"

namespace host {

Subcommand& Subcommand::Needs(const char* name, std::string& place, const char* what) {
    app_.add_option(name, place, what)->required();
    return *this;
}

Subcommand& Subcommand::Needs(const char* name, std::string& place, const char* what,
                              const std::vector<std::string>& words) {
    app_.add_option(name, place, what)->required()->check(CLI::IsMember(words));
    return *this;
}

Subcommand& Subcommand::Takes(const char* name, std::string& place, const char* what) {
    app_.add_option(name, place, what);
    return *this;
}

Subcommand& Subcommand::Takes(const char* name, std::optional<int>& place, int lowest, int highest,
                              const char* what) {
    app_.add_option(name, place, what)->type_name("Y")->check(CLI::Range(lowest, highest));
    return *this;
}

Subcommand& Subcommand::Takes(const char* name, bool& place, const char* what) {
    app_.add_flag(name, place, what);
    return *this;
}

Subcommand Subcommand::Add(const char* name, const char* what) {
    app_.require_subcommand(1);
    return {*app_.add_subcommand(name, what), chosen_};
}

Subcommand& Subcommand::Footer(const std::string& text) {
    app_.footer(text);
    return *this;
}

Subcommand& Subcommand::Footer(const std::function<std::string()>& text) {
    app_.footer(text);
    return *this;
}

void Subcommand::Does(const Command& work) {
    app_.callback([work, &chosen = chosen_] { chosen = work; });
}

void Subcommand::Does(const char* name, const char* what, int (*work)(const std::string& word)) {
    const auto word = std::make_shared<std::string>();
    Needs(name, *word, what).Does([word, work] { return work(*word); });
}

CommandLine::CommandLine(const std::string& program, const std::string& what, const std::string& version,
                         const std::string& footer)
    : app_(std::make_unique<CLI::App>(what, program)) {
    app_->set_version_flag("--version", version, "Print the version and exit");
    app_->require_subcommand(0, 1);  // none is told below, so that an unknown one is named first
    app_->footer(footer);
}

CommandLine::~CommandLine() = default;

Subcommand CommandLine::Add(const char* name, const char* what) {
    return {*app_->add_subcommand(name, what), chosen_};
}

Command CommandLine::Read(int argc, const char* const* argv) {
    try {
        app_->parse(argc, argv);
        return chosen_;
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) return [code = app_->exit(error)] { return code; };
        return [name = app_->get_name(), reason = std::string(error.what())] {
            std::cerr << name << ": " << reason << " (see " << name << " --help)\n";
            return ExitUsage;
        };
    }
}

}  // namespace host
