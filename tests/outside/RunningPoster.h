#pragma once

#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace test {

// The program poster, started by a test; killed at the end if it still runs.
class RunningPoster {
  public:
    RunningPoster(const std::string& dataPath, int vouchers, bool withList = false);
    ~RunningPoster();
    RunningPoster(const RunningPoster&) = delete;
    RunningPoster& operator=(const RunningPoster&) = delete;

    std::optional<std::string> Line();  // the next one; waits for it; nothing once the program has ended
    std::vector<std::string> Lines();   // all that are left
    void Kill();                        // as nothing can be caught
    int Wait();                         // its exit code, or the signal that ended it, negative

  private:
    pid_t child_ = -1;
    FILE* said_ = nullptr;
};

}  // namespace test
