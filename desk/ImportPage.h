#pragma once

#include <string>

#include "desk/Page.h"
#include "host/doors/Import.h"

class QPushButton;

namespace desk {

// A file that is to be brought in, checked: each fault with its line and column, or how many rows it would
// write, and then the button that writes them all.
class ImportPage : public Page {
    Q_DECLARE_TR_FUNCTIONS(desk::ImportPage)

  public:
    // Raises for a file that cannot be read.
    ImportPage(Desk& desk, const std::string& kind, const std::string& path);
    QString Chapter() const override { return "Moving in"; }

  private:
    void Bring();

    std::string kind_;
    host::ImportFile file_;
    QPushButton* bring_ = nullptr;
};

}  // namespace desk
