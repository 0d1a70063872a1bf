#pragma once

namespace forms {

// Whether a window system that the environment names answers. The toolkit ends the process when it cannot
// connect, so this must be known before.
bool DisplayAnswers();

}  // namespace forms
