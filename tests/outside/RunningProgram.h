#pragma once

#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace test {

// A program that a test starts, by its path and arguments; killed at the end if it still runs.
class RunningProgram {
  public:
    explicit RunningProgram(const std::vector<std::string>& command);
    ~RunningProgram();
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;

    std::optional<std::string> Line();  // the next one; waits for it; nothing once the program has ended
    std::vector<std::string> Lines();   // all that are left
    void Kill();                        // as nothing can be caught
    bool Runs() const;
    int Wait();  // its exit code, or the signal that ended it, negative

  private:
    pid_t child_ = -1;
    FILE* said_ = nullptr;
};

}  // namespace test
