#pragma once

#include <Qt>

class QKeyEvent;

namespace forms {

// The code of a key as KeyDown gets it: capital letter or digit, or the classic code of the other keys
// (Delete 46, F2 113). 0 for a key that has none.
int KeyCodeOf(const QKeyEvent& key);
// The character that KeyPress gets: Enter 13, Esc 27, Backspace 8; 0 if the key makes none. Ctrl+letter makes
// none, AltGr does.
int KeyAsciiOf(const QKeyEvent& key);
bool OpensList(const QKeyEvent& key);          // F4, Alt+Down
int ShiftOf(Qt::KeyboardModifiers modifiers);  // vbShiftMask + vbCtrlMask + vbAltMask

}  // namespace forms
