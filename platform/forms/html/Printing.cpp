#include "platform/forms/html/Printing.h"

#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QWidget>
#include <algorithm>
#include <memory>

#include "platform/basic/Error.h"
#include "platform/forms/controls/Event.h"
#include "platform/forms/html/Pages.h"
#include "platform/forms/window/Application.h"
#include "platform/forms/window/Form.h"

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

}  // namespace

// The preview asks for the pages again when the sheet changes and when they are printed.
void PrintWithDialog(QWidget* parent, const std::string& document, const QFont& font) {
    QPrinter printer(QPrinter::HighResolution);
    Pages::Prepare(printer);
    if (QPrinterInfo::defaultPrinter().isNull()) printer.setOutputFormat(QPrinter::PdfFormat);
    QPrintPreviewDialog preview(&printer, parent);
    preview.setWindowTitle("Print");
    preview.resize(PreviewSize);
    std::unique_ptr<Pages> pages;
    QSize room;
    QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, &preview, [&](QPrinter* to) {
        RunEvent(parent, [&] {
            if (const QSize now = Pages::RoomOf(*to); !pages || now != room) {
                SetMousePointer(vbHourglass);
                pages = std::make_unique<Pages>(document, font, room = now);
                SetMousePointer(vbDefault);
            }
            PrintChosen(*pages, *to);
        });
    });
    preview.exec();
    parent->window()->activateWindow();  // not every system gives the focus back
}

void PrintAtOnce(const std::string& document, const QFont& font) {
    if (QPrinterInfo::defaultPrinter().isNull())
        throw basic::Error(PrinterError, "Printer error: there is no printer to print on", "forms.DHTMLEdit");
    QPrinter printer(QPrinterInfo::defaultPrinter(), QPrinter::HighResolution);
    Pages::Prepare(printer);
    Pages pages(document, font, Pages::RoomOf(printer));
    pages.PaintOn(printer, 1, pages.Count());
}

}  // namespace forms::html
