#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "desk/DeskWindow.h"

namespace tour {

namespace fs = std::filesystem;

// Every page of the desk, one after the other: on a year of a sample firm, on new books, and without books;
// with what lies over them, such as menus, the list of keys and the bar of errors. Each stands still when it
// is visited.
class DeskTour {
  public:
    // `shown` is the window, or the menu or dialog over it; the name is that of a picture: "overview",
    // "stock-orders".
    using Visit = std::function<void(const std::string& name, QWidget& shown)>;

    // Lays the books down below a folder, which stands empty. Raises what that raises.
    explicit DeskTour(const fs::path& folder);

    // Raises what the desk raises, and basic::Error for a page that does not come to rest within a minute.
    void Walk(desk::DeskWindow& desk, const Visit& visit) const;

  private:
    fs::path sample_, fresh_, list_, faults_;  // books; then lists to import
};

}  // namespace tour
