#include "tests/outside/RunningProgram.h"

#include <csignal>
#include <stdexcept>
#include <utility>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace test {

RunningProgram::RunningProgram(const std::vector<std::string>& command) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    std::vector<char*> words;
    for (const std::string& word : command) words.push_back(const_cast<char*>(word.c_str()));
    words.push_back(nullptr);
    child_ = fork();
    if (child_ == 0) {
        dup2(ends[1], STDOUT_FILENO);
        execv(words[0], words.data());
        _exit(127);
    }
    close(ends[1]);
    said_ = fdopen(ends[0], "r");
}

RunningProgram::~RunningProgram() {
    if (child_ > 0) {
        Kill();
        Wait();
    }
    std::fclose(said_);
}

std::optional<std::string> RunningProgram::Line() {
    std::string line;
    for (int c; (c = std::fgetc(said_)) != EOF; line += static_cast<char>(c))
        if (c == '\n') return line;
    return {};
}

std::vector<std::string> RunningProgram::Lines() {
    std::vector<std::string> lines;
    for (std::optional<std::string> line; (line = Line());) lines.push_back(*line);
    return lines;
}

void RunningProgram::Kill() {
    kill(child_, SIGKILL);
}

bool RunningProgram::Runs() const {
    siginfo_t ended{};
    waitid(P_PID, static_cast<id_t>(child_), &ended, WEXITED | WNOHANG | WNOWAIT);
    return ended.si_pid == 0;
}

int RunningProgram::Wait() {
    int status = 0;
    waitpid(std::exchange(child_, -1), &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

}  // namespace test
