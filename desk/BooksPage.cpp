#include "desk/BooksPage.h"

#include <QFileDialog>
#include <QPushButton>
#include <QScrollArea>
#include <QStringList>
#include <QVBoxLayout>

#include "desk/BackupCard.h"
#include "desk/Books.h"
#include "desk/BooksExport.h"
#include "desk/CheckCard.h"
#include "desk/ImportPage.h"
#include "desk/JobBar.h"
#include "desk/LastFolder.h"
#include "desk/OtherBooks.h"

namespace desk {

BooksPage::BooksPage(Desk& desk)
    : Page(desk, tr("Books")),
      jobs_(new JobBar(this)),
      backup_(new BackupCard(desk, *jobs_)),
      check_(new CheckCard(desk, tr("Check &again"))),
      years_(new StatusCard(tr("Years"))),
      others_(new OtherBooks(desk, *jobs_)) {
    SetSubtitle(desk.Books().Place());
    years_->AddButton(tr("&Years\u2026"), [this] { this->desk().OpenScreen("frmFinYear"); });
    auto* const scroll = new QScrollArea(this);
    scroll->setObjectName("overview");
    scroll->setWidgetResizable(true);
    scroll->setFocusPolicy(Qt::NoFocus);
    auto* const body = new QWidget(scroll);
    body->setObjectName("overviewBody");
    auto* const column = new QVBoxLayout(body);
    column->setContentsMargins(0, 0, 8, 0);
    column->setSpacing(8);
    column->addWidget(backup_);
    column->addWidget(check_);
    column->addWidget(years_);
    AddImport(*column);
    AddExport(*column);
    column->addWidget(others_, 1);
    scroll->setWidget(body);
    Body().addWidget(scroll, 1);
    Body().addWidget(jobs_);
    SetFirstFocus(&backup_->Main());
    Refresh();
}

void BooksPage::AddImport(QVBoxLayout& column) {
    auto* const in = new StatusCard(tr("Import"));
    in->Say(
        tr("A list as comma-separated text, or a journal. It is checked as a whole and shown before anything "
           "is written."));
    in->AddButton(tr("&Ledgers\u2026"), [this] { AskForImport("ledgers"); });
    in->AddButton(tr("&Items\u2026"), [this] { AskForImport("items"); });
    in->AddButton(tr("&Openings\u2026"), [this] { AskForImport("openings"); });
    in->AddButton(tr("Vo&uchers\u2026"), [this] { AskForImport("vouchers"); });
    in->AddButton(tr("&Journal\u2026"), [this] { AskForImport("journal"); });
    column.addWidget(in);
}

void BooksPage::AddExport(QVBoxLayout& column) {
    auto* const out = new StatusCard(tr("Export"));
    out->Say(tr("Vouchers, ledgers, parties, trial balance and items as spreadsheets in a folder."));
    out->AddButton(tr("&Export\u2026"), [this] {
        const auto last = LastFolder::OfFilesOut();
        const QString folder =
            QFileDialog::getExistingDirectory(this, tr("Folder for the spreadsheets"), last.Path());
        if (folder.isEmpty()) return;
        last.Keep(folder);
        ExportBooks(desk(), this, folder.toStdString());
    });
    column.addWidget(out);
}

void BooksPage::Refresh() {
    QStringList years;
    for (const host::Year& year : desk().Books().Years())
        years << QString::fromStdString(year.longForm) + (year.current ? tr(" (current)") : QString());
    years_->Say(years.join(", "));
    backup_->Tell();
    check_->Tell();
    others_->Tell();
}

void BooksPage::AskForImport(const std::string& kind) {
    const QString kinds = kind == "journal" ? tr("Journal (*.journal *.ledger *.dat *.txt);;All files (*)")
                                            : tr("Comma-separated text (*.csv *.txt);;All files (*)");
    const auto last = LastFolder::OfFilesIn();
    const QString file = QFileDialog::getOpenFileName(this, tr("File to import"), last.Path(), kinds);
    if (file.isEmpty()) return;
    last.KeepOf(file);
    desk().Try([&] { ImportPage::Open(desk(), {.kind = kind, .file = file.toStdString()}); });
}

}  // namespace desk
