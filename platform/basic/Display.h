#pragma once

namespace basic {

// Whether a window system that the environment names can be reached, tried at its socket, before anything of
// a toolkit is loaded: a toolkit ends the process when it cannot connect. Displays of other machines count,
// too, and are waited for 2 seconds at most. True where the environment names a platform of the toolkit that
// is neither X nor Wayland: no socket tells about that one.
bool DisplayAnswers();

}  // namespace basic
