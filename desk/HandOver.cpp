#include "desk/HandOver.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QItemSelectionModel>
#include <QMenu>
#include <QShortcut>
#include <algorithm>
#include <memory>
#include <optional>
#include <vector>

#include "desk/Books.h"
#include "desk/Desk.h"
#include "desk/LastFolder.h"
#include "desk/Question.h"
#include "desk/SheetColumns.h"
#include "desk/SheetQuestion.h"

namespace desk {
namespace {

// What stands behind the view, which keeps it.
std::shared_ptr<const queries::Sheet> Borrowed(const queries::Sheet& sheet) {
    return {std::shared_ptr<void>(), &sheet};
}

}  // namespace

HandOver::HandOver(Desk& desk, QWidget& sheet, Source source) : desk_(desk), sheet_(sheet), from_(source) {
    auto* const menu = new QMenu(this);
    menu->addAction(tr("Copy the chosen rows\tCtrl+C"), this, [this] { Copy(); });
    menu->addSeparator();
    menu->addAction(tr("Print\u2026\tCtrl+P"), this, [this] { Print(); });
    menu->addSeparator();
    menu->addAction(tr("&Spreadsheet\u2026"), this, [this] { AskForFile(SheetFile::Workbook); });
    menu->addAction(tr("&PDF file\u2026"), this, [this] { AskForFile(SheetFile::Pdf); });
    menu->addAction(tr("&CSV file\u2026"), this, [this] { AskForFile(SheetFile::Csv); });
    setMenu(menu);
    AddKey(QKeySequence::Print, [this] { Print(); });
    AddKey(QKeySequence(Qt::CTRL | Qt::Key_E), [this] { showMenu(); });
}

void HandOver::AddKey(const QKeySequence& key, const std::function<void()>& act) {
    auto* const shortcut = new QShortcut(key, &sheet_);
    connect(shortcut, &QShortcut::activated, this, act);
    connect(shortcut, &QShortcut::activatedAmbiguously, this, [this, act] {
        if (sheet_.isAncestorOf(QApplication::focusWidget())) act();
    });
}

void HandOver::Copy() {
    if (!from_.Model.Sheet()) return;
    desk_.Try([&] {
        std::vector<std::size_t> rows;
        for (const QModelIndex& index : from_.View.selectionModel()->selectedRows())
            rows.push_back(from_.Model.RowOf(index));
        std::sort(rows.begin(), rows.end());
        const ShownSheet shown(Borrowed(*from_.Model.Sheet()), {}, from_.Columns.Chosen());
        QApplication::clipboard()->setText(ClipboardText(shown, rows));
    });
}

void HandOver::AskForFile(SheetFile kind) {
    const ShownSheet* const shown = from_.Model.Sheet();
    if (!shown) return;
    const auto last = LastFolder::OfFilesOut();
    const QString name = QDir(last.Path()).filePath(FileNameOf(shown->Of().Title(), kind));
    QString file = QFileDialog::getSaveFileName(&sheet_, tr("Write to"), name, FilterOf(kind));
    if (file.isEmpty()) return;
    last.KeepOf(file);
    if (!file.endsWith(ExtensionOf(kind), Qt::CaseInsensitive)) {
        file += ExtensionOf(kind);
        // The dialog has asked for the name as it was typed.
        if (QFileInfo::exists(file) &&
            !Confirmed(&sheet_, tr("Write to"),
                       tr("%1 stands there already. Is it to be replaced?").arg(file)))
            return;
    }
    Save(kind, file);
}

// From a sheet of its own, of one moment.
void HandOver::Save(SheetFile kind, const QString& file) {
    const auto write = [kind, make = from_.Question.Make(), path = file.toStdString(),
                        order = from_.Model.Sheet()->RowOrder(), columns = from_.Columns.Chosen(),
                        place = desk_.Books().Place().toStdString()](queries::Reading& books,
                                                                     Worker::Job& job) {
        const queries::Reading::Moment moment(books);
        const auto sheet = make(books, job);
        const std::size_t rows = sheet->Rows();
        job.Total = kind == SheetFile::Pdf ? 2 * rows : rows;
        const bool fits = order && order->size() == rows;
        ShownSheet shown(sheet, fits ? order : std::nullopt, columns);
        shown.Watch = [&job](std::size_t row) { job.Step(row); };
        Write(shown, kind, path, place, [&job, rows](double part) {
            job.Step(rows + static_cast<std::size_t>(part * static_cast<double>(rows)));
        });
    };
    desk_.WriteFile(tr("Writing %1\u2026").arg(file), write, tr("Written: %1").arg(file));
}

void HandOver::Print() {
    if (const ShownSheet* const shown = from_.Model.Sheet())
        Print(ShownSheet(Borrowed(shown->Of()), shown->RowOrder(), from_.Columns.Chosen()));
}

void HandOver::Print(const queries::Sheet& paper) {
    desk_.Try([&] { desk::Print(paper, desk_.Books().Place().toStdString()); });
    sheet_.window()->activateWindow();  // not every system gives the focus back
}

}  // namespace desk
