#pragma once

#include <QCoreApplication>
#include <cstddef>
#include <memory>

#include "desk/Page.h"
#include "host/doors/IncomingFile.h"

class QPushButton;

namespace desk {

class SheetView;
class StatusCard;

// A file that is to be brought in, checked: its rows as they were read, each fault with its line and column,
// and the button that writes them all. Enter on a fault shows its row, and on a row its fault.
class ImportPage : public Page {
    Q_DECLARE_TR_FUNCTIONS(desk::ImportPage)

  public:
    using FilePtr = std::shared_ptr<const host::IncomingFile>;

    // Checks the file, which the user may cancel, and shows it. Raises for one that cannot be read.
    static void Open(Desk& desk, const host::IncomingFile::Source& source);

    ImportPage(Desk& desk, FilePtr file);  // of a checked file
    QString Chapter() const override { return "Moving in"; }

  private:
    static FilePtr Check(Desk& desk,
                         const host::IncomingFile::Source& source);  // null where it was cancelled
    void AddState();
    void AddFaults();
    void AddRows();
    void ShowRowOf(std::size_t fault);
    void ShowFaultOf(std::size_t row);
    void CheckAgain(const host::IncomingFile::Source& source);
    void AskForMap();
    void Bring();

    FilePtr file_;
    QPushButton* bring_ = nullptr;
    SheetView *faults_ = nullptr, *rows_ = nullptr;
};

}  // namespace desk
