#pragma once

#include <string>

#include "core/MsgBox.h"

namespace qm {

// The two boxes of the screens, both under the system's title: one that informs, and one that asks.
void Tell(const std::string& text);

// True for Yes. The flags may leave the icon out, as the order screen does.
bool Ask(const std::string& question, int flags = vbYesNo + vbInformation);

}  // namespace qm
