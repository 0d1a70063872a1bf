#pragma once

#include <functional>
#include <string>

#include "platform/forms/window/Form.h"

namespace bench {

// Lets the screens be shown to memory, once: what a benchmark of a screen calls first.
void AttachScreens();

// Shows by `show` the screen of that name modally as a user would see it, drawn in full, runs `visit` on it
// and unloads it.
void Visit(const std::string& form, const std::function<void()>& show,
           const std::function<void(forms::Form&)>& visit = {});

// Carries out what is pending, the drawing of what has changed among it.
void Draw();

}  // namespace bench
