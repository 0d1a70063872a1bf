#pragma once

#include <string>

#include "desk/Page.h"

class QVBoxLayout;

namespace desk {

class BackupCard;
class CheckCard;
class JobBar;
class OtherBooks;
class StatusCard;

// The books as a file: others, new ones, backup and restore, the check, the years, what comes in and goes
// out. Everything is done by what the commands of qmhost do it with.
class BooksPage : public Page {
    Q_DECLARE_TR_FUNCTIONS(desk::BooksPage)

  public:
    explicit BooksPage(Desk& desk);
    QString Chapter() const override { return "Books"; }
    void Refresh() override;

  private:
    void AddImport(QVBoxLayout& column);
    void AddExport(QVBoxLayout& column);
    void AskForImport(const std::string& kind);

    JobBar* jobs_;
    BackupCard* backup_;
    CheckCard* check_;
    StatusCard* years_;
    OtherBooks* others_;
};

}  // namespace desk
