#pragma once

#include <QCoreApplication>
#include <QWidget>
#include <string>

class QListWidget;

namespace desk {

class Desk;
class JobBar;

// The way to other books: new ones, those of another folder or of a server, a copy of these in another place,
// and those that were open before.
class OtherBooks : public QWidget {
    Q_DECLARE_TR_FUNCTIONS(desk::OtherBooks)

  public:
    OtherBooks(Desk& desk, JobBar& jobs);

    void Tell();  // which were open before

  private:
    void AddCards();
    void AddRecent();
    void AskForNew();
    void AskForNewOnServer();
    void AskForServer();
    void AskForCopy();
    QString AskForAddress(const QString& title);
    int AskForYear();  // 0 where the user gives up
    void Copy(const std::string& place);

    Desk& desk_;
    JobBar& jobs_;
    QListWidget* recent_;
};

}  // namespace desk
