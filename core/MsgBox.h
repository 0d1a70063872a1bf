#pragma once

#include <functional>
#include <string>

namespace qm {

// The title of every message box but that of LogError.
inline constexpr const char* AppTitle = "Tovik Softwares";

// Flags, added up: the buttons, the icon.
inline constexpr int vbOKOnly = 0;
inline constexpr int vbYesNo = 4;
inline constexpr int vbInformation = 64;

// Answers.
inline constexpr int vbOK = 1;
inline constexpr int vbYes = 6;
inline constexpr int vbNo = 7;

// Shows a modal box and waits for the answer. "\r\n", "\r" and "\n" each end a line. Without screens, and
// where HostBoxes sends it elsewhere, nobody is waited for: the answer is vbOK, or vbNo where there was a
// question.
int MsgBox(const std::string& text, int flags = vbOKOnly, const std::string& title = {});

// Who shows the boxes: the screens put themselves here when they are loaded, tests put a script. An empty
// function gives the boxes back to the standard error stream. Returns who showed them before.
using MsgBoxPort = std::function<int(const std::string& text, int flags, const std::string& title)>;
MsgBoxPort SetMsgBoxPort(MsgBoxPort port);

}  // namespace qm
