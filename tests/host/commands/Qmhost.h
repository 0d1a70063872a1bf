#pragma once

#include <cstdio>
#include <string>

#include <sys/wait.h>

// What the program said, on both streams, and its exit code.
struct Outcome {
    int code;
    std::string said;
};

inline Outcome Shell(const std::string& command) {
    FILE* run = popen(("{ " + command + "; } 2>&1").c_str(), "r");
    std::string said;
    char part[4096];
    for (std::size_t length; (length = fread(part, 1, sizeof part, run)) > 0;) said.append(part, length);
    return {WEXITSTATUS(pclose(run)), said};
}

// Runs qmhost as it is called from a shell.
inline Outcome Qmhost(const std::string& arguments) {
    return Shell(QMHOST " " + arguments);
}
