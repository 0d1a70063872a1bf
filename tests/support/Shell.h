#pragma once

#include <cstdio>
#include <string>

#include <sys/wait.h>

namespace test {

// What a command said, on both streams, and its exit code. Other programs read UTF-8 wherever the tests run.
struct Outcome {
    int code;
    std::string said;
};

inline Outcome Shell(const std::string& command) {
    FILE* run = popen(("export LC_ALL=C.UTF-8; { " + command + "; } 2>&1").c_str(), "r");
    std::string said;
    char part[4096];
    for (std::size_t length; (length = fread(part, 1, sizeof part, run)) > 0;) said.append(part, length);
    return {WEXITSTATUS(pclose(run)), said};
}

// A file within a workbook, such as "xl/workbook.xml".
inline std::string PartOf(const std::string& workbook, const std::string& part) {
    return Shell(
               "python3 -c 'import sys, zipfile; "
               "sys.stdout.write(zipfile.ZipFile(sys.argv[1]).read(sys.argv[2]).decode())' \"" +
               workbook + "\" " + part)
        .said;
}

}  // namespace test
