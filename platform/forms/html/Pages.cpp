#include "platform/forms/html/Pages.h"

#include <QFile>
#include <QGuiApplication>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <algorithm>

#include "platform/basic/Error.h"
#include "platform/forms/controls/Text.h"
#include "platform/forms/html/Paint.h"

namespace forms::html {
namespace {

constexpr int PixelsPerInch = 96;
constexpr int MarginHeight = 28, MarginLetters = 11;
constexpr QMarginsF SheetMargins(15, 15, 15, 12);  // millimetres
constexpr std::int32_t PathAccess = 75;

[[noreturn]] void FailToWrite() {
    throw basic::Error(PathAccess, "Path/File access error: the report's pages cannot be written",
                       "forms.DHTMLEdit");
}

}  // namespace

Pages::Pages(std::string_view document, const QFont& font, const QSize& size, const Paper& paper,
             const Progress& progress)
    : layout_(document, font), size_(size), paper_(paper) {
    layout_.SetWidth(static_cast<int>(size.width() / PaperScale));
    for (int piece = 0; piece < layout_.Pieces(); ++piece) {
        if (progress) progress(static_cast<double>(piece) / layout_.Pieces());
        layout_.List(piece);
    }
    scale_ = static_cast<double>(size.width()) / layout_.Width();
    pages_ = CutPages(layout_, static_cast<int>(size.height() / scale_));
}

QSize Pages::RoomOf(const QPagedPaintDevice& device) {
    const QSizeF inches = device.pageLayout().paintRect(QPageLayout::Inch).size();
    return QSize(static_cast<int>(inches.width() * PixelsPerInch),
                 static_cast<int>(inches.height() * PixelsPerInch) - MarginHeight);
}

void Pages::Prepare(QPagedPaintDevice& device, const Paper& paper) {
    const auto side = paper.IsWide ? QPageLayout::Landscape : QPageLayout::Portrait;
    device.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), side, SheetMargins, QPageLayout::Millimeter));
}

void Pages::PaintOn(QPagedPaintDevice& device, int first, int last, const Progress& progress) {
    QPainter painter(&device);
    if (!painter.isActive()) FailToWrite();
    const double resolution = static_cast<double>(device.logicalDpiX()) / PixelsPerInch;
    for (int number = first; number <= last; ++number) {
        if (progress) progress(static_cast<double>(number - first) / (last - first + 1));
        if (number > first) device.newPage();
        const Page& page = pages_[static_cast<std::size_t>(number - 1)];
        painter.save();
        painter.scale(resolution, resolution);
        PaintMargin(painter, number);
        painter.scale(scale_, scale_);
        PaintBand(painter, page.Heads, 0);
        PaintBand(painter, page.Body, page.Heads.Height());
        painter.restore();
    }
}

void Pages::PaintBand(QPainter& painter, const Band& band, int at) {
    const QRect part(0, band.Top, layout_.Width(), band.Height());
    if (part.isEmpty()) return;
    painter.save();
    painter.translate(0, at - band.Top);
    painter.setClipRect(part);
    Paint(painter, layout_, part);
    painter.restore();
}

void Pages::PaintMargin(QPainter& painter, int page) const {
    QFont small = layout_.FontsUsed().Font(0);
    small.setPixelSize(MarginLetters);
    painter.setFont(small);
    const QRect line(0, size_.height(), size_.width(), MarginHeight);
    const QString number = QString("page %1 of %2").arg(page).arg(Count());
    const QString source =
        QFontMetrics(small).elidedText(ToQt(paper_.Source), Qt::ElideMiddle, size_.width() / 3);
    painter.drawText(line, Qt::AlignLeft | Qt::AlignBottom, source);
    painter.drawText(line, Qt::AlignHCenter | Qt::AlignBottom, ToQt(paper_.Period));
    painter.drawText(line, Qt::AlignRight | Qt::AlignBottom, number);
}

// The writer tells nothing of a disk that is full: its file does. Laying out takes about as long as painting.
void WritePdf(std::string_view document, const QFont& font, const Paper& paper, const std::string& path,
              const Pages::Progress& progress) {
    const auto half = [&](double from) -> Pages::Progress {
        if (!progress) return {};
        return [&progress, from](double part) { progress(from + part / 2); };
    };
    QFile file(ToQt(path));
    if (file.open(QIODevice::WriteOnly)) {
        QPdfWriter writer(&file);
        writer.setTitle(ToQt(paper.Title));
        Pages::Prepare(writer, paper);
        Pages pages(document, font, Pages::RoomOf(writer), paper, half(0));
        pages.PaintOn(writer, 1, pages.Count(), half(0.5));
    }
    if (!file.isOpen() || !file.flush() || file.error() != QFileDevice::NoError) FailToWrite();
}

void WritePdf(std::string_view document, const Paper& paper, const std::string& path,
              const Pages::Progress& progress) {
    WritePdf(document, QGuiApplication::font(), paper, path, progress);
}

}  // namespace forms::html
