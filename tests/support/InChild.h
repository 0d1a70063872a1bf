#pragma once

#include <cstdio>
#include <functional>

#include <sys/wait.h>
#include <unistd.h>

#include "platform/basic/Error.h"

namespace test {

// Runs the body in a process of its own, for what would harm the others: limits, rights, a second program.
// Gives the body's result, at most 255.
inline int InChild(const std::function<int()>& body) {
    const pid_t child = fork();
    if (child == 0) {
        int result = 255;
        try {
            result = body();
        } catch (const basic::Error& error) {
            std::fprintf(stderr, "in the child: %d %s\n", error.Number, error.what());
        }
        _exit(result);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 255;
}

// The same as a user to whom rights apply, also where the tests run as root.
inline int AsNobody(const std::function<int()>& body) {
    return InChild([&] {
        if (geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0)) return 254;
        return body();
    });
}

}  // namespace test
