#include "platform/forms/html/Pages.h"

#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <algorithm>

#include "platform/basic/Error.h"
#include "platform/forms/controls/Text.h"
#include "platform/forms/html/PageBreaks.h"
#include "platform/forms/html/Paint.h"

namespace forms::html {
namespace {

constexpr int PixelsPerInch = 96;
constexpr int PageNumberHeight = 28;
constexpr QMarginsF SheetMargins(15, 15, 15, 12);  // millimetres
constexpr std::int32_t PathAccess = 75;

}  // namespace

Pages::Pages(std::string_view document, const QFont& font, const QSize& size)
    : layout_(document, font), size_(size) {
    layout_.SetWidth(static_cast<int>(size.width() / PaperScale));
    layout_.LayOutAll();
    scale_ = static_cast<double>(size.width()) / layout_.Width();
    breaks_ = PageBreaks(layout_, static_cast<int>(size.height() / scale_));
}

QSize Pages::RoomOf(const QPagedPaintDevice& device) {
    const QSizeF inches = device.pageLayout().paintRect(QPageLayout::Inch).size();
    return QSize(static_cast<int>(inches.width() * PixelsPerInch),
                 static_cast<int>(inches.height() * PixelsPerInch) - PageNumberHeight);
}

void Pages::Prepare(QPagedPaintDevice& device) {
    device.setPageLayout(
        QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, SheetMargins, QPageLayout::Millimeter));
}

void Pages::PaintOn(QPagedPaintDevice& device, int first, int last) {
    QPainter painter(&device);
    if (!painter.isActive())
        throw basic::Error(PathAccess, "Path/File access error: the report's pages cannot be written",
                           "forms.DHTMLEdit");
    const double resolution = static_cast<double>(device.logicalDpiX()) / PixelsPerInch;
    QFont small = layout_.FontsUsed().Font(0);
    small.setPixelSize(11);
    for (int page = first; page <= last; ++page) {
        if (page > first) device.newPage();
        const auto index = static_cast<std::size_t>(page);
        const QRect part(0, breaks_[index - 1], layout_.Width(), breaks_[index] - breaks_[index - 1]);
        painter.save();
        painter.scale(resolution, resolution);
        painter.setFont(small);
        painter.drawText(QRect(0, size_.height(), size_.width(), PageNumberHeight),
                         Qt::AlignHCenter | Qt::AlignBottom, QString("Page %1 of %2").arg(page).arg(Count()));
        painter.scale(scale_, scale_);
        painter.translate(0, -part.top());
        painter.setClipRect(part);
        Paint(painter, layout_, part);
        painter.restore();
    }
}

void WritePdf(std::string_view document, const QFont& font, const std::string& path) {
    QPdfWriter writer(ToQt(path));
    Pages::Prepare(writer);
    Pages pages(document, font, Pages::RoomOf(writer));
    pages.PaintOn(writer, 1, pages.Count());
}

}  // namespace forms::html
