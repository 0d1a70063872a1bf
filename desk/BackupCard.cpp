#include "desk/BackupCard.h"

#include <QDateTime>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QPushButton>
#include <algorithm>
#include <memory>
#include <utility>

#include "desk/Books.h"
#include "desk/Dates.h"
#include "desk/Desk.h"
#include "desk/Figures.h"
#include "desk/JobBar.h"
#include "desk/LastBackup.h"
#include "desk/Question.h"
#include "host/commands/Backup.h"

namespace desk {
namespace {

std::string Path(const QString& path) {
    return path.toStdString();
}

// The sums go by the digits that the store wrote, so that equal books give equal texts.
bool Same(const std::vector<ado::TableSums>& a, const std::vector<ado::TableSums>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const ado::TableSums& x, const ado::TableSums& y) {
                          return x.name == y.name && x.rows == y.rows && x.sums == y.sums;
                      });
}

}  // namespace

QString FiguresText(const std::vector<ado::TableSums>& tables) {
    const QString stem = "tb_Ledger";
    QStringList parts;
    for (const ado::TableSums& table : tables) {
        const QString name = QString::fromStdString(table.name);
        bool isYear = false;
        const int year = name.mid(stem.size()).toInt(&isYear);
        if (!name.startsWith(stem, Qt::CaseInsensitive) || !isYear) continue;
        const auto debit = table.sums.find("LedgerDrAmt");
        const double sum = debit == table.sums.end() ? 0 : std::stod(debit->second);
        parts << QCoreApplication::translate("desk::BackupCard", "%1-%2: %3 lines, debit %4")
                     .arg(year)
                     .arg(year + 1)
                     .arg(table.rows)
                     .arg(AmountText(sum));
    }
    return parts.join("; ");
}

BackupCard::BackupCard(Desk& desk, JobBar& jobs)
    : StatusCard(tr("Backup")),
      desk_(desk),
      jobs_(jobs),
      main_(&AddButton(tr("&Back up\u2026"), [this] { AskForBackup(); })) {
    AddButton(tr("&Verify\u2026"), [this] { AskForVerify(); });
    AddButton(tr("&Restore\u2026"), [this] { AskForRestore(); });
}

void BackupCard::Tell() {
    const auto last = LastBackup::Of(desk_.Books().Address());
    Say(last ? tr("%1, %2. %3").arg(MomentText(last->At), last->File, last->Figures)
             : tr("None was made at this desk yet"));
}

void BackupCard::AskForBackup() {
    const QString name =
        QString("%1-%2.mdb")
            .arg(desk_.Books().Name(), QDateTime::currentDateTime().toString("yyyy-MM-dd-HHmm"));
    const auto last = LastBackup::Of(desk_.Books().Address());
    const QString folder = last ? QFileInfo(last->File).path() : QDir::homePath();
    // A backup never overwrites, so there is nothing to ask about a file that stands.
    const QString file =
        QFileDialog::getSaveFileName(this, tr("Back up into a new file"), QDir(folder).filePath(name),
                                     tr("Backup (*.mdb)"), nullptr, QFileDialog::DontConfirmOverwrite);
    if (!file.isEmpty()) BackUp(Path(file));
}

QString BackupCard::AskForOne(const QString& title) {
    const auto last = LastBackup::Of(desk_.Books().Address());
    return QFileDialog::getOpenFileName(this, title, last ? last->File : QDir::homePath());
}

void BackupCard::AskForVerify() {
    const QString file = AskForOne(tr("Backup to verify"));
    if (!file.isEmpty()) Verify(Path(file));
}

void BackupCard::BackUp(const std::string& file) {
    const auto figures = std::make_shared<QString>();
    jobs_.Run(
        desk_, tr("Backing up and comparing\u2026"),
        [figures, file, onServer = desk_.Books().OnServer()](queries::Reading& books, Worker::Job&) {
            host::BackUpOpenBooks(*books.Connection(), onServer, file);
            *figures = FiguresText(host::VerifyBackup(file));
        },
        [this, figures, file] {
            const QString name = QFileInfo(QString::fromStdString(file)).absoluteFilePath();
            LastBackup{name, *figures, QDateTime::currentDateTime()}.Keep(desk_.Books().Address());
            Tell();
            desk_.Note(tr("Backed up and compared: %1. %2").arg(name, *figures));
        });
}

void BackupCard::Verify(const std::string& file) {
    const auto tables = std::make_shared<std::vector<ado::TableSums>>();
    const auto same = std::make_shared<bool>();
    jobs_.Run(
        desk_, tr("Verifying the backup\u2026"),
        [tables, same, file](queries::Reading& books, Worker::Job&) {
            *tables = host::VerifyBackup(file);
            *same = Same(*tables, ado::SumTables(*books.Connection()));
        },
        [this, tables, same, file] {
            const QFileInfo info(QString::fromStdString(file));
            desk_.Note(tr("%1 is whole, of %2. %3. %4")
                           .arg(info.fileName(), MomentText(info.lastModified()), FiguresText(*tables),
                                *same ? tr("It holds what the books hold now.")
                                      : tr("The books hold something else by now.")));
        });
}

void BackupCard::AskForRestore() {
    const QString file = AskForOne(tr("Backup to restore"));
    if (!file.isEmpty()) Restore(Path(file));
}

// What comes and what goes is shown before anything is touched.
void BackupCard::Restore(const std::string& file) {
    const auto comes = std::make_shared<QString>(), goes = std::make_shared<QString>();
    jobs_.Run(
        desk_, tr("Verifying the backup\u2026"),
        [comes, goes, file](queries::Reading& books, Worker::Job&) {
            *comes = FiguresText(host::VerifyBackup(file));
            *goes = FiguresText(ado::SumTables(*books.Connection()));
        },
        [this, comes, goes, file] {
            const QFileInfo backup(QString::fromStdString(file));
            const QString question =
                tr("Put %1, of %2, in the place of the books in %3?\n\nIt holds %4.\nThe books hold %5. They "
                   "are set aside under a name with the date.")
                    .arg(backup.fileName(), MomentText(backup.lastModified()), desk_.Books().Place(), *comes,
                         *goes);
            if (Confirmed(this, tr("Restore"), question)) PutInPlace(file);
        });
}

void BackupCard::PutInPlace(const std::string& file) {
    const std::string place = desk_.Books().Address();
    desk_.Reopen(place, [place, file] {
        const auto aside = host::RestoreBooks(file, place);
        QString note = tr("Restored from %1.").arg(QString::fromStdString(file));
        if (!aside.empty())
            note +=
                ' ' + tr("What stood there is now %1.").arg(QString::fromStdString(aside.front().string()));
        return note;
    });
}

}  // namespace desk
