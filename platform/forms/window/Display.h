#pragma once

namespace forms {

// Whether the toolkit can start on the window system that the environment names. It ends the process when it
// cannot, so this is tried before, in a process of its own. Asked before there is an application.
bool DisplayAnswers();

}  // namespace forms
