#pragma once

namespace forms {

inline constexpr int vbDefault = 0;  // mouse pointers
inline constexpr int vbHourglass = 11;

// Whether windows can be shown here: the host runs a window application, or the environment names a display
// that answers.
bool DisplayAvailable();

// From now on windows are drawn to memory, where no user sees them: call it before the first one. Nothing
// changes where the host runs an application of its own or the environment names a platform.
void DrawToMemory();

// Makes sure that windows can be shown. A host's own application is used as it is; where there is none, one
// is made and kept to the end of the process. Raises an error, and never ends the process, where there is no
// display, where the host runs an application without windows, and on any thread but the application's.
void EnsureApplication();
bool ApplicationStands();  // whether there is one already; on any thread

// The pointer over all windows: 0 the usual one, 11 the hourglass.
void SetMousePointer(int pointer);

// The hourglass while it lives, then what was there before.
class WaitPointer {
  public:
    WaitPointer();
    ~WaitPointer();
    WaitPointer(const WaitPointer&) = delete;
    WaitPointer& operator=(const WaitPointer&) = delete;

  private:
    int before_;
};

// While it lives, the usual pointer is shown: a message box that waits for the user shows no hourglass.
class PointerPause {
  public:
    PointerPause();
    ~PointerPause();
    PointerPause(const PointerPause&) = delete;
    PointerPause& operator=(const PointerPause&) = delete;

  private:
    int before_;
};

}  // namespace forms
