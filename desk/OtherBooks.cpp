#include "desk/OtherBooks.h"

#include <QInputDialog>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <cstdint>

#include "desk/Books.h"
#include "desk/Desk.h"
#include "desk/JobBar.h"
#include "desk/NewFolder.h"
#include "desk/RecentBooks.h"
#include "desk/StatusCard.h"
#include "desk/WaitBox.h"
#include "host/commands/Copy.h"
#include "host/commands/Create.h"
#include "host/commands/Sample.h"
#include "host/make/Books.h"
#include "platform/basic/Error.h"

namespace desk {
namespace {

constexpr std::int32_t BadArgument = 3001;
constexpr int AddressWidth = 520;  // pixels: an address is long

}  // namespace

OtherBooks::OtherBooks(Desk& desk, JobBar& jobs) : desk_(desk), jobs_(jobs), recent_(new QListWidget(this)) {
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(8);
    AddCards();
    AddRecent();
}

void OtherBooks::AddCards() {
    auto* const others = new StatusCard(tr("Other books"));
    others->Say(tr("Enter on a line below opens books that were open before."));
    others->AddButton(tr("&New books\u2026"), [this] { AskForNew(); });
    others->AddButton(tr("O&pen a folder\u2026"), [this] { desk_.AskForFolder(); }).setToolTip("Ctrl+O");
    auto* const server = new StatusCard(tr("On a server"));
    server->Say(
        tr("For several people at once. Who may do what there is set by the server's administrator."));
    server->AddButton(tr("Ne&w there\u2026"), [this] { AskForNewOnServer(); });
    server->AddButton(tr("Open on a &server\u2026"), [this] { AskForServer(); });
    server->AddButton(
        desk_.Books().OnServer() ? tr("&Copy into a folder\u2026") : tr("&Copy these there\u2026"),
        [this] { AskForCopy(); });
    layout()->addWidget(others);
    layout()->addWidget(server);
}

void OtherBooks::AddRecent() {
    recent_->setObjectName("recent");
    recent_->setAccessibleName(tr("Books that were open before"));
    recent_->setMinimumHeight(96);
    recent_->setProperty("spaced", true);
    connect(recent_, &QListWidget::itemActivated, this,
            [this](QListWidgetItem* item) { desk_.Reopen(item->text().toStdString()); });
    layout()->addWidget(recent_);
}

void OtherBooks::Tell() {
    recent_->clear();
    recent_->addItems(RecentBooks::All());
    if (recent_->count() > 0) recent_->setCurrentRow(0);
}

// Ends in "/", as the class takes it; "" where the user gives up or it is none.
QString OtherBooks::AskForAddress(const QString& title) {
    QInputDialog box(this);
    box.setWindowTitle(title);
    box.setLabelText(tr("Their address: postgresql://server/books"));
    box.resize(AddressWidth, box.sizeHint().height());
    const QString address = box.exec() == QDialog::Accepted ? box.textValue().trimmed() : QString();
    const bool isOne = address.isEmpty() || desk_.Try([&] {
        if (!Books::IsServer(address.toStdString()))
            throw basic::Error(BadArgument, "The address of the server's books does not read.", "desk");
    });
    if (!isOne) return {};
    return address.isEmpty() || address.endsWith('/') ? address : address + '/';
}

int OtherBooks::AskForYear() {
    bool taken = false;
    const int year =
        QInputDialog::getInt(this, tr("New books"), tr("First financial year begins on 1 April"),
                             host::FinancialYearOfToday(), host::LowestYear, host::HighestYear, 1, &taken);
    return taken ? year : 0;
}

void OtherBooks::AskForNew() {
    const QString folder = AskForNewFolder(this, tr("Folder for the new books"));
    if (folder.isEmpty()) return;
    const int year = AskForYear();
    if (year == 0 || !desk_.Try([&] { host::CreateBooks(folder.toStdString(), year); })) return;
    desk_.Reopen(folder.toStdString(), [folder, year] {
        return tr("New books for %1-%2 stand in %3.").arg(year).arg(year + 1).arg(folder);
    });
}

void OtherBooks::AskForNewOnServer() {
    const QString address = AskForAddress(tr("New books on a server"));
    if (address.isEmpty()) return;
    const int year = AskForYear();
    if (year == 0) return;
    const bool made = desk_.Try([&] {
        WaitBox(window(), tr("New books are being laid down\u2026")).RunAside([&] {
            host::CreateBooksOnServer(address.toStdString(), year);
        });
    });
    if (!made) return;
    desk_.Reopen(address.toStdString(), [address, year] {
        return tr("New books for %1-%2 stand in %3.").arg(year).arg(year + 1).arg(address.chopped(1));
    });
}

void OtherBooks::AskForServer() {
    const QString address = AskForAddress(tr("Books on a server"));
    if (!address.isEmpty()) desk_.Reopen(address.toStdString());
}

void OtherBooks::AskForCopy() {
    const QString place = desk_.Books().OnServer() ? AskForNewFolder(this, tr("Folder for the copy"))
                                                   : AskForAddress(tr("Copy of these books on a server"));
    if (!place.isEmpty()) Copy(place.toStdString());
}

// Whoever works on the books goes on in those that were copied until he opens the copy.
void OtherBooks::Copy(const std::string& place) {
    jobs_.Run(
        desk_, tr("Copying and comparing\u2026"),
        [place](queries::Reading& books, Worker::Job&) { host::CopyTo(*books.Connection(), place); },
        [this, place] {
            const QString copy = QString::fromStdString(place);
            const QString shown = desk_.Books().OnServer() ? copy : copy.chopped(1);
            RecentBooks::Add(shown);
            Tell();
            desk_.Note(tr("Copied and compared: %1. This window still works in %2; the list below opens the "
                          "copy.")
                           .arg(shown, desk_.Books().Place()));
        });
}

}  // namespace desk
