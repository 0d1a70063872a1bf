#pragma once

#include <exception>
#include <string>

namespace forms {

// Shows a modal box and waits. Flags, added up: 4 Yes and No instead of OK, 64 the information icon. Answers
// 1 for OK, 6 for Yes, 7 for No (Esc and the close box are No). "\r\n", "\r" and "\n" each end a line.
// Afterwards the focus is where it was; no focus event fires. A box without a title bears what the window
// system shows for such a one.
int ShowMessage(const std::string& text, int flags, const std::string& title);

// The box for an error that no routine trapped: "Run-time error '<number>':", a blank line, the description.
void ShowUntrappedError(std::exception_ptr error);

}  // namespace forms
