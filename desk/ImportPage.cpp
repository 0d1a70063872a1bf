#include "desk/ImportPage.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QPushButton>
#include <QVBoxLayout>
#include <optional>
#include <utility>

#include "desk/Books.h"
#include "desk/ImportSheets.h"
#include "desk/SheetView.h"
#include "desk/StatusCard.h"
#include "desk/WaitBox.h"
#include "host/doors/OpeningImport.h"

namespace desk {
namespace {

QString Name(const host::IncomingFile::Source& source) {
    return QString::fromStdString(source.file.filename().string());
}

}  // namespace

ImportPage::FilePtr ImportPage::Check(Desk& desk, const host::IncomingFile::Source& source) {
    try {
        WaitBox wait(QApplication::activeWindow(), tr("Checking %1\u2026").arg(Name(source)));
        return std::make_shared<host::IncomingFile>(
            source, desk.Books().Host(), [&](std::size_t done, std::size_t all) { wait.Done(done, all); });
    } catch (const WaitBox::Stopped&) {
        desk.Note(tr("Cancelled. Nothing of %1 was imported.").arg(Name(source)));
        return nullptr;
    }
}

void ImportPage::Open(Desk& desk, const host::IncomingFile::Source& source) {
    if (const FilePtr file = Check(desk, source)) desk.Push(new ImportPage(desk, file));
}

ImportPage::ImportPage(Desk& desk, FilePtr file)
    : Page(desk, tr("Import of %1").arg(QString::fromStdString(file->From().kind))), file_(std::move(file)) {
    SetSubtitle(QString::fromStdString(file_->From().file.string()));
    AddState();
    if (!file_->Faults().empty()) AddFaults();
    AddRows();
}

void ImportPage::AddState() {
    const host::Faults& faults = file_->Faults();
    auto* const state =
        new StatusCard(faults.empty() ? tr("%1, no fault").arg(QString::fromStdString(file_->Size()))
                                      : tr("%Ln fault(s)", nullptr, static_cast<int>(faults.Count())));
    const auto add = [&](const QString& caption, auto act) -> QPushButton& {
        return state->AddButton(caption, [this, act] { desk().Try([&] { act(); }); });
    };
    if (faults.empty()) {
        QString text = tr("All of it is written at once, or nothing, into %1.")
                           .arg(QString::fromStdString(file_->Year()));
        if (file_->Standing().Count > 0)
            text += ' ' + tr("But %1.").arg(QString::fromStdString(file_->Standing().Text));
        state->Say(text, file_->Standing().Count > 0);
        bring_ = &add(file_->Standing().All ? tr("&Import once more") : tr("&Import"), [this] { Bring(); });
        bring_->setObjectName("bring");
        SetFirstFocus(bring_);
    } else {
        state->Say(
            tr("Nothing was imported. Enter on a fault shows its row. Mend the file and check it again."),
            true);
    }
    add(tr("&Check again"), [this] { CheckAgain(file_->From()); });
    if (file_->From().kind == "vouchers")
        add(file_->From().order == host::DateOrder::DayFirst ? tr("Read &month first")
                                                             : tr("Read &day first"),
            [this] {
                host::IncomingFile::Source source = file_->From();
                source.order = source.order == host::DateOrder::DayFirst ? host::DateOrder::MonthFirst
                                                                         : host::DateOrder::DayFirst;
                CheckAgain(source);
            });
    if (file_->From().kind == "journal") add(tr("Ma&p of accounts\u2026"), [this] { AskForMap(); });
    Body().addWidget(state);
}

void ImportPage::AddFaults() {
    faults_ = new SheetView(desk(), "faults");
    faults_->Ask([sheet = FaultsSheet(*file_)](queries::Reading&) { return sheet; });
    const host::Faults& faults = file_->Faults();
    QString told = tr("%Ln fault(s)", nullptr, static_cast<int>(faults.Count()));
    if (faults.Count() > faults.size())
        told += tr(", of which the first %1 are shown").arg(qulonglong(faults.size()));
    faults_->SetTotals(told, {});
    faults_->Activated = [this](std::size_t fault) { ShowRowOf(fault); };
    faults_->View().setAccessibleName(tr("What is wrong"));
    AddToHead(faults_->Buttons());
    Body().addWidget(faults_, 2);
    SetFirstFocus(faults_);
}

void ImportPage::AddRows() {
    rows_ = new SheetView(desk(), "import-" + QString::fromStdString(file_->From().kind));
    rows_->SetEmpty(tr("No row could be read"), tr("The fault says where the reading stopped."));
    rows_->Ask([sheet = RowsSheet(file_)](queries::Reading&) { return sheet; });
    rows_->SetTotals(tr("%Ln row(s) in the file", nullptr, static_cast<int>(file_->Rows().size())), {});
    rows_->Activated = [this](std::size_t row) { ShowFaultOf(row); };
    rows_->View().setAccessibleName(tr("Rows of the file"));
    if (faults_)
        rows_->Buttons()->hide();  // the head has those of the faults
    else
        AddToHead(rows_->Buttons());
    Body().addWidget(rows_, 3);
}

void ImportPage::ShowRowOf(std::size_t fault) {
    const int line = file_->Faults()[fault].line;
    const auto row = RowOfLine(*file_, line);
    if (!row) return desk().Note(tr("Line %1 is none of the rows: it names the columns.").arg(line));
    rows_->SetCurrent(*row);
    rows_->setFocus(Qt::OtherFocusReason);
}

void ImportPage::ShowFaultOf(std::size_t row) {
    const auto fault = FaultOfLine(*file_, file_->Rows()[row].line);
    if (!fault) return;
    faults_->SetCurrent(*fault);
    faults_->setFocus(Qt::OtherFocusReason);
}

// A page of its own, in the place of this one.
void ImportPage::CheckAgain(const host::IncomingFile::Source& source) {
    Desk& window = desk();
    if (const FilePtr file = Check(window, source)) {
        window.Back();
        window.Push(new ImportPage(window, file));
    }
}

void ImportPage::AskForMap() {
    host::IncomingFile::Source source = file_->From();
    const QString map = QFileDialog::getOpenFileName(
        this, tr("List with the columns account and ledger"),
        QFileInfo(QString::fromStdString(source.file.string())).path(), tr("Comma-separated text (*.csv)"));
    if (map.isEmpty()) return;
    source.map = map.toStdString();
    CheckAgain(source);
}

void ImportPage::Bring() {
    desk().Books().RequireFile();  // what was written into books that were taken away would be lost
    bring_->setEnabled(false);     // once is enough
    std::optional<host::Fault> failure;
    bool cancelled = false;
    {
        WaitBox wait(window(), tr("Importing %1\u2026").arg(Name(file_->From())));
        failure = file_->Write(desk().Books().Host(),
                               [&](std::size_t done, std::size_t all) { wait.Done(done, all); });
        cancelled = failure && wait.Cancelled();
    }
    if (failure) {
        bring_->setEnabled(true);
        bring_->setFocus(Qt::OtherFocusReason);
    }
    if (cancelled) return desk().Note(tr("Cancelled. Nothing of %1 was imported.").arg(Name(file_->From())));
    if (failure)
        throw basic::Error(
            basic::error::InvalidCall,
            file_->From().file.string() + ":" + std::to_string(failure->line) + ": " + failure->reason,
            "desk");
    Desk& window = desk();
    QString note = tr("Imported: %1.").arg(QString::fromStdString(file_->Size()));
    if (file_->From().kind != "items" && file_->From().kind != "vouchers") {
        const QString openings = QString::fromStdString(host::OpeningsText());
        note += ' ' + openings.left(1).toUpper() + openings.mid(1) + '.';
    }
    window.Back();
    window.LookForChanges();
    window.Note(note);
}

}  // namespace desk
