#pragma once

#include <QCoreApplication>
#include <memory>
#include <string>
#include <vector>

#include "desk/JobBar.h"
#include "desk/Page.h"
#include "host/commands/Restore.h"

class QListWidget;
class QVBoxLayout;

namespace desk {

class StatusCard;

// The books as a file: others, new ones, backup and restore, the check, the years, what comes in and goes
// out. Everything is done by what the commands of qmhost do it with.
class BooksPage : public Page {
    Q_DECLARE_TR_FUNCTIONS(desk::BooksPage)

  public:
    explicit BooksPage(Desk& desk);
    QString Chapter() const override { return "Books"; }
    void Refresh() override;

    // What the dialogs of the page ask for, with the answers.
    void BackUp(const std::string& file);
    void Verify(const std::string& file);
    void Restore(const std::string& file);  // verified first, and asked about
    void Import(const std::string& kind, const std::string& file);
    void Export(const std::string& folder);

  private:
    void MakeCards(QVBoxLayout& column);
    void AddRecent(QVBoxLayout& column);
    void AskForNewBooks();
    void AskForServer();
    void AskForBackup();
    void AskForRestore();
    void PutInPlace(const std::string& file);
    void AskForImport(const std::string& kind);
    void Work(const QString& what, std::function<void(queries::Reading&, Worker::Job&)> work,
              std::function<void()> then);
    void RunCheck();
    void TellCheck();
    void TellBackup();

    StatusCard *backup_, *check_, *years_;
    QListWidget* recent_;
    JobBar* jobs_;
};

// "2001-2002: 142 lines, debit 9,12,000.00" of each year.
QString FiguresText(const std::vector<ado::TableSums>& tables);

}  // namespace desk
