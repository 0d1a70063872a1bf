#pragma once

namespace host {

// What the program tells its caller.
inline constexpr int ExitOk = 0;
inline constexpr int ExitFailed = 1;  // the command failed, or a check found something
inline constexpr int ExitUsage = 2;   // the command line does not read

}  // namespace host
