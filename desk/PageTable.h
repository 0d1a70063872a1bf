#pragma once

#include <QString>
#include <span>

namespace desk {

class Desk;
class Page;

// One line of the list at the left. Its place gives its key: Alt+1 goes to the first.
struct PageEntry {
    const char* Key;    // "ledgers": by which other pages go there
    const char* Title;  // as the list has it, to be translated
    Page* (*Make)(Desk& desk);

    QString Caption() const;
};

// The pages that stand. A new one adds its line in PageTable.cpp, and nowhere else.
std::span<const PageEntry> PageTable();

}  // namespace desk
