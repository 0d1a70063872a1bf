#pragma once

#include <QCoreApplication>
#include <string>
#include <vector>

#include "desk/StatusCard.h"
#include "host/commands/Restore.h"

class QPushButton;

namespace desk {

class Desk;
class JobBar;

// The last backup of the books, and what is done about backups: one is made, verified, or put in the place of
// the books.
class BackupCard : public StatusCard {
    Q_DECLARE_TR_FUNCTIONS(desk::BackupCard)

  public:
    BackupCard(Desk& desk, JobBar& jobs);

    void Tell();  // of the last one
    QPushButton& Main() const { return *main_; }

  private:
    void AskForBackup();
    QString AskForOne(const QString& title);  // that stands; the last one is offered
    void AskForVerify();
    void AskForRestore();
    void BackUp(const std::string& file);
    void Verify(const std::string& file);
    void Restore(const std::string& file);  // verified first, and asked about
    void PutInPlace(const std::string& file);

    Desk& desk_;
    JobBar& jobs_;
    QPushButton* main_;
};

// "2001-2002: 142 lines, debit 9,12,000.00" of each year.
QString FiguresText(const std::vector<ado::TableSums>& tables);

}  // namespace desk
