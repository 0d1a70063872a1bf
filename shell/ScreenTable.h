#pragma once

#include <span>
#include <string_view>

namespace qm {

// How a screen is opened: on its own, by its form's name, or from the main menu, by the key of its row.
struct ScreenEntry {
    std::string_view Form;  // "frmVoucher"
    std::string_view Key;   // "fVoucher"; "": no row and no dispatch leads to it
    void (*Open)();         // modally, through the screen's own opening operation; returns when it has closed
};

// The screens that stand. A new screen adds its line in ScreenTable.cpp, and nowhere else.
std::span<const ScreenEntry> ScreenTable();

const ScreenEntry* ScreenByForm(std::string_view form);  // null if it does not stand
const ScreenEntry* ScreenByKey(std::string_view key);    // null for "" too

}  // namespace qm
