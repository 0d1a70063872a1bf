#include "tests/outside/RunningPoster.h"

#include <csignal>
#include <stdexcept>
#include <utility>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace test {

RunningPoster::RunningPoster(const std::string& dataPath, int vouchers, bool withList) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    const std::string count = std::to_string(vouchers);
    child_ = fork();
    if (child_ == 0) {
        dup2(ends[1], STDOUT_FILENO);
        execl(POSTER, "poster", dataPath.c_str(), count.c_str(), withList ? "list" : nullptr, nullptr);
        _exit(127);
    }
    close(ends[1]);
    said_ = fdopen(ends[0], "r");
}

RunningPoster::~RunningPoster() {
    if (child_ > 0) {
        Kill();
        Wait();
    }
    std::fclose(said_);
}

std::optional<std::string> RunningPoster::Line() {
    std::string line;
    for (int c; (c = std::fgetc(said_)) != EOF; line += static_cast<char>(c))
        if (c == '\n') return line;
    return {};
}

std::vector<std::string> RunningPoster::Lines() {
    std::vector<std::string> lines;
    for (std::optional<std::string> line; (line = Line());) lines.push_back(*line);
    return lines;
}

void RunningPoster::Kill() {
    kill(child_, SIGKILL);
}

int RunningPoster::Wait() {
    int status = 0;
    waitpid(std::exchange(child_, -1), &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

}  // namespace test
