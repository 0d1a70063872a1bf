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

}  // namespace host
