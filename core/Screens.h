#pragma once

namespace qm {

// Whether a window could be shown at all: a display is named by the environment.
bool DisplayIsThere();

// Loads libqmscreens.so from this library's own folder, once; the screens then show the message boxes. False
// where it cannot be loaded.
bool LoadScreens();

// Loads the screens and shows the main menu modally. Raises where the screens or a display are missing.
void ShowMainMenu();

}  // namespace qm
