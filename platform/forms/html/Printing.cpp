#include "platform/forms/html/Printing.h"

#include <QAbstractButton>
#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QKeyEvent>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QToolButton>
#include <algorithm>
#include <memory>

#include "platform/basic/Error.h"
#include "platform/forms/controls/Event.h"
#include "platform/forms/controls/Text.h"
#include "platform/forms/html/Pages.h"
#include "platform/forms/window/Application.h"

namespace forms::html {
namespace {

constexpr std::int32_t PrinterError = 482;
constexpr QSize PreviewSize(900, 700);

// The pages the user chose, all if none were.
void PrintChosen(Pages& pages, QPrinter& printer) {
    const int first = std::clamp(printer.fromPage(), 1, pages.Count());
    const int last =
        printer.toPage() > 0 ? std::clamp(printer.toPage(), first, pages.Count()) : pages.Count();
    pages.PaintOn(printer, first, last);
}

// What is offered where there is no printer. The toolkit's own offer is a mere folder on some platforms.
QString FileAtHome(QString title) {
    return QDir::home().filePath(title.replace('/', '-') + ".pdf");
}

// Enter presses the button that has the focus, as the blank does.
class PressByEnter : public QObject {
  public:
    using QObject::QObject;

  protected:
    bool eventFilter(QObject* object, QEvent* event) override {
        auto* const button = qobject_cast<QAbstractButton*>(object);
        if (!button || event->type() != QEvent::KeyPress) return false;
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
        button->click();
        return true;
    }
};

// The toolkit's preview is made for the mouse: its buttons take no focus and none has a key.
void MakeKeysWork(QPrintPreviewDialog& preview) {
    auto* const press = new PressByEnter(&preview);
    for (QToolButton* button : preview.findChildren<QToolButton*>()) {
        button->setFocusPolicy(Qt::StrongFocus);
        button->installEventFilter(press);
    }
    const QString print = QCoreApplication::translate("QPrintPreviewDialog", "Print");
    for (QAction* action : preview.findChildren<QAction*>())
        if (action->text() == print) action->setShortcut(QKeySequence::Print);
}

}  // namespace

// The preview asks for the pages again when the sheet changes and when they are printed.
void PrintWithDialog(QWidget* parent, const std::string& document, const QFont& font, const Paper& paper) {
    QPrinter printer(QPrinter::HighResolution);
    Pages::Prepare(printer, paper);
    printer.setDocName(ToQt(paper.Title));
    if (QPrinterInfo::defaultPrinter().isNull()) printer.setOutputFileName(FileAtHome(printer.docName()));
    QPrintPreviewDialog preview(&printer, parent);
    preview.setWindowTitle("Print");
    preview.resize(PreviewSize);
    MakeKeysWork(preview);
    std::unique_ptr<Pages> pages;
    QSize room;
    QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, &preview, [&](QPrinter* to) {
        RunEvent(parent, [&] {
            if (const QSize now = Pages::RoomOf(*to); !pages || now != room) {
                const WaitPointer waiting;
                pages = std::make_unique<Pages>(document, font, room = now, paper);
            }
            PrintChosen(*pages, *to);
        });
    });
    preview.exec();
    parent->window()->activateWindow();  // not every system gives the focus back
}

void PrintAtOnce(const std::string& document, const QFont& font, const Paper& paper) {
    if (QPrinterInfo::defaultPrinter().isNull())
        throw basic::Error(PrinterError, "Printer error: there is no printer to print on", "forms.DHTMLEdit");
    QPrinter printer(QPrinterInfo::defaultPrinter(), QPrinter::HighResolution);
    Pages::Prepare(printer, paper);
    printer.setDocName(ToQt(paper.Title));
    Pages pages(document, font, Pages::RoomOf(printer), paper);
    pages.PaintOn(printer, 1, pages.Count());
}

}  // namespace forms::html
