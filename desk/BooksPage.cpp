#include "desk/BooksPage.h"

#include <QCoreApplication>
#include <QDate>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QLabel>
#include <QListWidget>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "desk/Books.h"
#include "desk/Figures.h"
#include "desk/FindingsPage.h"
#include "desk/ImportPage.h"
#include "desk/LastBackup.h"
#include "desk/RecentBooks.h"
#include "desk/StatusCard.h"
#include "host/commands/Backup.h"
#include "host/commands/Restore.h"
#include "host/commands/Sample.h"
#include "host/doors/Counted.h"
#include "host/make/Books.h"
#include "queries/Items.h"
#include "queries/Ledgers.h"
#include "queries/Parties.h"
#include "queries/TrialBalance.h"
#include "queries/Vouchers.h"
#include "queries/sheets/Workbook.h"

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

using Making = std::unique_ptr<queries::Sheet> (*)(queries::Reading&);
const std::pair<const char*, Making> Exports[] = {
    {"vouchers",
     [](queries::Reading& books) -> std::unique_ptr<queries::Sheet> { return queries::ListVouchers(books); }},
    {"ledgers",
     [](queries::Reading& books) -> std::unique_ptr<queries::Sheet> { return queries::LedgersSheet(books); }},
    {"parties",
     [](queries::Reading& books) -> std::unique_ptr<queries::Sheet> { return queries::PartiesSheet(books); }},
    {"trial-balance",
     [](queries::Reading& books) -> std::unique_ptr<queries::Sheet> {
         return queries::TrialBalanceSheet(books);
     }},
    {"items",
     [](queries::Reading& books) -> std::unique_ptr<queries::Sheet> { return queries::ItemsSheet(books); }},
};

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
        parts << QCoreApplication::translate("desk::BooksPage", "%1-%2: %3 lines, debit %4")
                     .arg(year)
                     .arg(year + 1)
                     .arg(table.rows)
                     .arg(AmountText(sum));
    }
    return parts.join("; ");
}

BooksPage::BooksPage(Desk& desk)
    : Page(desk, tr("Books")), recent_(new QListWidget(this)), jobs_(new JobBar(this)) {
    SetSubtitle(desk.Books().Place());
    auto* const scroll = new QScrollArea(this);
    scroll->setObjectName("overview");
    scroll->setWidgetResizable(true);
    scroll->setFocusPolicy(Qt::NoFocus);
    auto* const body = new QWidget(scroll);
    body->setObjectName("overviewBody");
    auto* const column = new QVBoxLayout(body);
    column->setContentsMargins(0, 0, 8, 0);
    column->setSpacing(8);
    MakeCards(*column);
    AddRecent(*column);
    scroll->setWidget(body);
    Body().addWidget(scroll, 1);
    Body().addWidget(jobs_);
    Refresh();
}

void BooksPage::MakeCards(QVBoxLayout& column) {
    const auto card = [&](const QString& title, const QString& name) {
        auto* const made = new StatusCard(title, name);
        column.addWidget(made);
        return made;
    };
    backup_ = card(tr("Backup"), "backup");
    SetFirstFocus(&backup_->AddButton(tr("&Back up\u2026"), [this] { AskForBackup(); }));
    backup_->AddButton(tr("&Verify\u2026"), [this] {
        const auto last = LastBackup::Of(this->desk().Books().Address());
        const QString file =
            QFileDialog::getOpenFileName(this, tr("Backup to verify"), last ? last->File : QDir::homePath());
        if (!file.isEmpty()) Verify(Path(file));
    });
    backup_->AddButton(tr("&Restore\u2026"), [this] { AskForRestore(); });
    check_ = card(tr("Check of the books"), "check");
    check_->AddButton(tr("&Findings"), [this] { OpenFindings(desk()); }).setObjectName("findings");
    check_->AddButton(tr("Check &again"), [this] { RunCheck(); });
    years_ = card(tr("Years"), "years");
    years_->AddButton(tr("&Years\u2026"), [this] { desk().OpenScreen("frmFinYear"); });
    StatusCard* const in = card(tr("Import"), "import");
    in->Say(
        tr("A list as comma-separated text, or a journal. It is checked as a whole and shown before anything "
           "is written."));
    in->AddButton(tr("&Ledgers\u2026"), [this] { AskForImport("ledgers"); });
    in->AddButton(tr("&Items\u2026"), [this] { AskForImport("items"); });
    in->AddButton(tr("&Openings\u2026"), [this] { AskForImport("openings"); });
    in->AddButton(tr("Vo&uchers\u2026"), [this] { AskForImport("vouchers"); });
    in->AddButton(tr("&Journal\u2026"), [this] { AskForImport("journal"); });
    StatusCard* const out = card(tr("Export"), "export");
    out->Say(tr("Vouchers, ledgers, parties, trial balance and items as spreadsheets in a folder."));
    out->AddButton(tr("&Export\u2026"), [this] {
        const QString folder = QFileDialog::getExistingDirectory(this, tr("Folder for the spreadsheets"));
        if (!folder.isEmpty()) Export(Path(folder));
    });
    StatusCard* const others = card(tr("Other books"), "others");
    others->Say(tr("Enter on a line below opens books that were open before."));
    others->AddButton(tr("&New books\u2026"), [this] { AskForNewBooks(); });
    others->AddButton(tr("O&pen a folder\u2026"), [this] { desk().AskForFolder(); }).setToolTip("Ctrl+O");
    others->AddButton(tr("Open on a &server\u2026"), [this] { AskForServer(); });
}

void BooksPage::AddRecent(QVBoxLayout& column) {
    recent_->setObjectName("recent");
    recent_->setAccessibleName(tr("Books that were open before"));
    recent_->setMinimumHeight(96);
    recent_->setProperty("spaced", true);
    connect(recent_, &QListWidget::itemActivated, this,
            [this](QListWidgetItem* item) { desk().Reopen(item->text().toStdString()); });
    column.addWidget(recent_, 1);
}

void BooksPage::Refresh() {
    recent_->clear();
    recent_->addItems(RecentBooks::All());
    if (recent_->count() > 0) recent_->setCurrentRow(0);
    QStringList years;
    for (const host::Year& year : desk().Books().Years())
        years << QString::fromStdString(year.longForm) + (year.current ? tr(" (current)") : QString());
    years_->Say(years.join(", "));
    TellBackup();
    TellCheck();
}

void BooksPage::Work(const QString& what, std::function<void(queries::Reading&, Worker::Job&)> work,
                     std::function<void()> then) {
    jobs_->Run(desk(), what, std::move(work), std::move(then));
}

void BooksPage::AskForBackup() {
    const QString name =
        QString("%1-%2.mdb")
            .arg(desk().Books().Name(), QDateTime::currentDateTime().toString("yyyy-MM-dd-HHmm"));
    const auto last = LastBackup::Of(desk().Books().Address());
    const QString folder = last ? QFileInfo(last->File).path() : QDir::homePath();
    // A backup never overwrites, so there is nothing to ask about a file that stands.
    const QString file =
        QFileDialog::getSaveFileName(this, tr("Back up into a new file"), QDir(folder).filePath(name),
                                     tr("Backup (*.mdb)"), nullptr, QFileDialog::DontConfirmOverwrite);
    if (!file.isEmpty()) BackUp(Path(file));
}

void BooksPage::BackUp(const std::string& file) {
    const auto figures = std::make_shared<QString>();
    Work(
        tr("Backing up and comparing\u2026"),
        [figures, file, onServer = desk().Books().OnServer()](queries::Reading& books, Worker::Job&) {
            host::BackUpOpenBooks(*books.Connection(), onServer, file);
            *figures = FiguresText(host::VerifyBackup(file));
        },
        [this, figures, file] {
            const QString name = QFileInfo(QString::fromStdString(file)).absoluteFilePath();
            LastBackup{name, *figures, QDateTime::currentDateTime()}.Keep(desk().Books().Address());
            TellBackup();
            desk().Note(tr("Backed up and compared: %1. %2").arg(name, *figures));
        });
}

void BooksPage::Verify(const std::string& file) {
    const auto tables = std::make_shared<std::vector<ado::TableSums>>();
    const auto same = std::make_shared<bool>();
    Work(
        tr("Verifying the backup\u2026"),
        [tables, same, file](queries::Reading& books, Worker::Job&) {
            *tables = host::VerifyBackup(file);
            *same = Same(*tables, ado::SumTables(*books.Connection()));
        },
        [this, tables, same, file] {
            const QFileInfo info(QString::fromStdString(file));
            desk().Note(tr("%1 is whole, of %2. %3. %4")
                            .arg(info.fileName(), info.lastModified().toString("dd-MMM-yyyy HH:mm"),
                                 FiguresText(*tables),
                                 *same ? tr("It holds what the books hold now.")
                                       : tr("The books hold something else by now.")));
        });
}

void BooksPage::AskForRestore() {
    const QString file = QFileDialog::getOpenFileName(this, tr("Backup to restore"));
    if (!file.isEmpty()) Restore(Path(file));
}

// What comes and what goes is shown before anything is touched.
void BooksPage::Restore(const std::string& file) {
    const auto comes = std::make_shared<QString>(), goes = std::make_shared<QString>();
    Work(
        tr("Verifying the backup\u2026"),
        [comes, goes, file](queries::Reading& books, Worker::Job&) {
            *comes = FiguresText(host::VerifyBackup(file));
            *goes = FiguresText(ado::SumTables(*books.Connection()));
        },
        [this, comes, goes, file] {
            const QFileInfo backup(QString::fromStdString(file));
            const auto answer = QMessageBox::question(
                this, tr("Restore"),
                tr("Put %1, of %2, in the place of the books in %3?\n\nIt holds %4.\nThe books hold %5. They "
                   "are set aside under a name with the date.")
                    .arg(backup.fileName(), backup.lastModified().toString("dd-MMM-yyyy HH:mm"),
                         desk().Books().Place(), *comes, *goes),
                QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
            if (answer == QMessageBox::Yes) PutInPlace(file);
        });
}

void BooksPage::PutInPlace(const std::string& file) {
    const std::string place = desk().Books().Address();
    desk().Reopen(place, [place, file] {
        const auto aside = host::RestoreBooks(file, place);
        QString note = tr("Restored from %1.").arg(QString::fromStdString(file));
        if (!aside.empty())
            note +=
                ' ' + tr("What stood there is now %1.").arg(QString::fromStdString(aside.front().string()));
        return note;
    });
}

void BooksPage::AskForServer() {
    const QString address =
        QInputDialog::getText(this, tr("Books on a server"), tr("Their address: postgresql://server/books"))
            .trimmed();
    if (!address.isEmpty()) desk().Reopen(Path(address.endsWith('/') ? address : address + '/'));
}

void BooksPage::AskForNewBooks() {
    const QString folder = QFileDialog::getExistingDirectory(this, tr("Folder for the new books"));
    if (folder.isEmpty()) return;
    bool taken = false;
    const int year =
        QInputDialog::getInt(this, tr("New books"), tr("First financial year begins on 1 April"),
                             host::FinancialYearOfToday(), host::LowestYear, host::HighestYear, 1, &taken);
    if (!taken) return;
    if (desk().Try([&] { host::CreateBooks(Path(folder), year); }))
        desk().Reopen(Path(folder), [folder, year] {
            return tr("New books for %1-%2 stand in %3.").arg(year).arg(year + 1).arg(folder);
        });
}

void BooksPage::AskForImport(const std::string& kind) {
    const QString kinds = kind == "journal" ? tr("Journal (*.journal *.ledger *.dat *.txt);;All files (*)")
                                            : tr("Comma-separated text (*.csv *.txt);;All files (*)");
    const QString file = QFileDialog::getOpenFileName(this, tr("File to import"), {}, kinds);
    if (!file.isEmpty()) Import(kind, Path(file));
}

void BooksPage::Import(const std::string& kind, const std::string& file) {
    desk().Try([&] { ImportPage::Open(desk(), {.kind = kind, .file = file}); });
}

void BooksPage::Export(const std::string& folder) {
    Work(
        tr("Writing the spreadsheets\u2026"),
        [folder](queries::Reading& books, Worker::Job& job) {
            std::size_t done = 0;
            for (const auto& [name, make] : Exports) {
                job.Step(done++);
                queries::WriteWorkbook(*make(books), folder + "/" + name + "-" + books.LongYear() + ".xlsx");
            }
        },
        [this, folder] {
            desk().Note(tr("%1 spreadsheets stand in %2.")
                            .arg(std::size(Exports))
                            .arg(QString::fromStdString(folder)));
        });
}

void BooksPage::RunCheck() {
    desk().Books().Check().Run(*this, [this](std::exception_ptr failure) {
        TellCheck();
        if (failure) desk().Try([&] { std::rethrow_exception(failure); });
    });
    TellCheck();
}

void BooksPage::TellCheck() {
    const BooksCheck& check = desk().Books().Check();
    findChild<QPushButton*>("findings")->setEnabled(check.Last() && !check.Last()->Findings.empty());
    check_->Say(check.Text(), check.Last() && check.Last()->Errors > 0);
}

void BooksPage::TellBackup() {
    const auto last = LastBackup::Of(desk().Books().Address());
    backup_->Say(last
                     ? tr("%1, %2. %3").arg(last->At.toString("dd-MMM-yyyy HH:mm"), last->File, last->Figures)
                     : tr("None was made at this desk yet"));
}

}  // namespace desk
