#pragma once

#include <span>
#include <string_view>

#include "shell/frmNewMenu.h"

namespace qm {

// The screens that stand. A new screen adds its line in ScreenTable.cpp, and nowhere else.
std::span<const ScreenEntry> ScreenTable();

const ScreenEntry* ScreenByForm(std::string_view form);  // null if it does not stand

}  // namespace qm
