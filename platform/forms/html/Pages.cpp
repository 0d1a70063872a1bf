#include "platform/forms/html/Pages.h"

#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <algorithm>

#include "platform/basic/Error.h"
#include "platform/forms/Text.h"
#include "platform/forms/html/Paint.h"

namespace forms::html {
namespace {

constexpr int PixelsPerInch = 96;
constexpr int PageNumberHeight = 28;
constexpr QMarginsF SheetMargins(15, 15, 15, 12);  // millimetres
constexpr std::int32_t PathAccess = 75;

// What must not be cut: from the first to the last pixel.
struct Span {
    int Top, Bottom;
};

// A row that is taller than a page may be cut between its lines.
std::vector<Span> WholeSpans(Layout& layout, int pageHeight) {
    std::vector<Span> spans;
    for (int piece = 0; piece < layout.Pieces(); ++piece) {
        const DisplayList& list = layout.List(piece);
        const int top = layout.Top(piece);
        for (const Row& row : list.Rows)
            if (row.Bottom - row.Top <= pageHeight) spans.push_back({top + row.Top, top + row.Bottom - 1});
        for (const Word& word : list.Words) spans.push_back({top + word.Box.top(), top + word.Box.bottom()});
        for (const Rule& rule : list.Rules)
            if (rule.Box.height() <= pageHeight)
                spans.push_back({top + rule.Box.top(), top + rule.Box.bottom()});
    }
    std::sort(spans.begin(), spans.end(), [](const Span& a, const Span& b) { return a.Top < b.Top; });
    return spans;
}

// The highest place at or above `limit` at which no span is cut; `limit` itself if there is none below
// `start`.
int PlaceToCut(const std::vector<Span>& spans, int start, int limit) {
    int place = limit;
    const auto above = [](const Span& span, int y) { return span.Top < y; };
    for (auto span = std::lower_bound(spans.begin(), spans.end(), limit, above); span != spans.begin();) {
        --span;
        if (span->Top < start) break;
        if (span->Bottom >= place) place = std::min(place, span->Top);
    }
    return place > start ? place : limit;
}

}  // namespace

Pages::Pages(std::string_view document, const QFont& font, const QSize& size)
    : layout_(document, font), size_(size) {
    layout_.SetWidth(static_cast<int>(size.width() / PaperScale));
    layout_.LayOutAll();
    scale_ = static_cast<double>(size.width()) / layout_.Width();
    FindBreaks();
}

void Pages::FindBreaks() {
    const int height = static_cast<int>(size_.height() / scale_);
    const std::vector<Span> spans = WholeSpans(layout_, height);
    const int end = layout_.Height();
    breaks_ = {0};
    while (breaks_.back() + height < end)
        breaks_.push_back(PlaceToCut(spans, breaks_.back(), breaks_.back() + height));
    breaks_.push_back(end);
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
