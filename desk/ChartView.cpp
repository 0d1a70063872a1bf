#include "desk/ChartView.h"

#include <QAccessibleWidget>
#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QCategoryAxis>
#include <QChart>
#include <QGraphicsLayout>
#include <QKeyEvent>
#include <QLineSeries>
#include <QMouseEvent>
#include <algorithm>
#include <cmath>
#include <utility>

#include "desk/Figures.h"
#include "desk/Theme.h"

namespace desk {
namespace {

constexpr double BarsOfPoint = 0.7;  // of a point's room
constexpr int Ticks = 4, Near = 12;

// The step of an axis: 1, 2 or 5 of a power of ten.
double StepOf(double span) {
    const double power = std::pow(10, std::floor(std::log10(std::max(span / Ticks, 1.0))));
    for (const double step : {1.0, 2.0, 5.0})
        if (step * power * Ticks >= span) return step * power;
    return 10 * power;
}

// A chart as it is read out: its title and the marked figure, told anew when another is marked.
class ChartFace : public QAccessibleWidget {
  public:
    explicit ChartFace(ChartView& chart) : QAccessibleWidget(&chart, QAccessible::Chart) {}
    QString text(QAccessible::Text kind) const override {
        const QString own = QAccessibleWidget::text(kind);
        if (kind != QAccessible::Name) return own;
        return own + ": " + static_cast<ChartView*>(widget())->MarkedText();
    }
    int childCount() const override { return 0; }
};

QAccessibleInterface* FaceOf(const QString&, QObject* object) {
    auto* const chart = dynamic_cast<ChartView*>(object);
    return chart ? new ChartFace(*chart) : nullptr;
}

}  // namespace

ChartView::ChartView(QWidget* parent) : QChartView(parent) {
    QAccessible::installFactory(FaceOf);  // no more than once
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setRenderHint(QPainter::Antialiasing);
    setFrameShape(QFrame::NoFrame);
    setViewportUpdateMode(FullViewportUpdate);  // the mark lies over all items, and moves with their layout
    setMinimumHeight(170);
    chart()->legend()->hide();
    chart()->setMargins({0, 8, 0, 0});
    chart()->layout()->setContentsMargins(0, 0, 0, 0);
    chart()->setBackgroundVisible(false);
    chart()->setAnimationOptions(QChart::NoAnimation);
}

void ChartView::Set(ChartData drawn) {
    data_ = std::move(drawn);
    if (data_.Lines.empty() || marked_.Line >= data_.Lines.size() ||
        marked_.Point >= data_.Lines[marked_.Line].Figures.size())
        marked_ = {};
    Draw();
    Mark(marked_);
}

QColor ChartView::ColourOf(std::size_t line) const {
    const Colours& colours = Theme::Now();
    return line == 0 ? colours.accent : colours.dark ? QColor(0xE0A458) : QColor(0xC07A1E);
}

QString ChartView::MarkedText() const {
    if (data_.Points.isEmpty()) return {};
    return tr("%1, %2: %3")
        .arg(data_.PointNames[static_cast<int>(marked_.Point)], data_.Lines[marked_.Line].Caption,
             AmountText(Figure(marked_)));
}

void ChartView::Draw() {
    chart()->removeAllSeries();
    for (QAbstractAxis* const axis : chart()->axes()) {
        chart()->removeAxis(axis);
        delete axis;
    }
    dark_ = Theme::Now().dark;
    setBackgroundBrush(Theme::Now().paper);
    if (data_.Points.isEmpty()) return;
    auto* const bars = data_.Drawn == ChartData::Shape::Bars ? new QBarSeries : nullptr;
    for (std::size_t line = 0; line < data_.Lines.size(); ++line) {
        const ChartData::Series& series = data_.Lines[line];
        if (bars) {
            auto* const set = new QBarSet(series.Caption);
            for (const double figure : series.Figures) set->append(figure);
            set->setColor(ColourOf(line));
            set->setBorderColor(Qt::transparent);
            bars->append(set);
        } else {
            auto* const drawn = new QLineSeries;
            for (std::size_t point = 0; point < series.Figures.size(); ++point)
                drawn->append(static_cast<double>(point), series.Figures[point]);
            drawn->setPen(QPen(ColourOf(line), 2));
            drawn->setPointsVisible(true);
            chart()->addSeries(drawn);
        }
    }
    if (bars) {
        bars->setBarWidth(BarsOfPoint);
        chart()->addSeries(bars);
    }
    AddAxes();
}

void ChartView::AddAxes() {
    const Colours& colours = Theme::Now();
    double least = 0, most = 0;
    for (const ChartData::Series& series : data_.Lines)
        for (const double figure : series.Figures) {
            least = std::min(least, figure);
            most = std::max(most, figure);
        }
    const double step = StepOf(std::max(most - least, 1.0));
    auto* const across = new QBarCategoryAxis;
    across->append(data_.Points);
    across->setGridLineVisible(false);
    across->setTruncateLabels(false);
    auto* const up = new QCategoryAxis;
    const double bottom = std::floor(least / step) * step,
                 top = std::max(std::ceil(most / step) * step, bottom + step);
    up->setLabelsPosition(QCategoryAxis::AxisLabelsPositionOnValue);
    up->setStartValue(bottom);
    for (double tick = bottom; tick <= top + step / 2; tick += step) {
        const double value = std::abs(tick) < step / 2 ? 0 : tick;
        up->append(AmountText(value).chopped(3), value);
    }
    up->setRange(bottom, top);
    up->setGridLineColor(colours.line);
    QFont small = Theme::Figures(font());
    small.setPixelSize(11);
    for (QAbstractAxis* const axis : {static_cast<QAbstractAxis*>(across), static_cast<QAbstractAxis*>(up)}) {
        axis->setLabelsFont(small);
        axis->setLabelsColor(colours.faint);
        axis->setLinePenColor(colours.line);
        chart()->addAxis(axis, axis == across ? Qt::AlignBottom : Qt::AlignLeft);
        for (QAbstractSeries* const series : chart()->series()) series->attachAxis(axis);
    }
}

bool ChartView::IsFlat() const {
    return std::ranges::all_of(data_.Lines, [](const ChartData::Series& series) {
        return std::ranges::all_of(series.Figures, [](double figure) { return figure == 0; });
    });
}

void ChartView::Mark(Place place) {
    marked_ = place;
    setAccessibleDescription(MarkedText());
    QAccessibleEvent told(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&told);
    if (Moved) Moved();
    viewport()->update();
}

QRectF ChartView::BoxOf(Place place) const {
    const double at = static_cast<double>(place.Point), figure = Figure(place);
    QAbstractSeries* const series =
        chart()->series().at(data_.Drawn == ChartData::Shape::Bars ? 0 : static_cast<int>(place.Line));
    if (data_.Drawn == ChartData::Shape::Lines) {
        const QPointF middle = chart()->mapToPosition({at, figure}, series);
        return {middle.x() - 6, middle.y() - 6, 12, 12};
    }
    const double width = BarsOfPoint / static_cast<double>(data_.Lines.size());
    const double left = at - BarsOfPoint / 2 + width * static_cast<double>(place.Line);
    return QRectF(chart()->mapToPosition({left, std::max(figure, 0.0)}, series),
                  chart()->mapToPosition({left + width, std::min(figure, 0.0)}, series))
        .adjusted(-1, -2, 1, 2);
}

// The figure whose box is nearest, of the point below the mouse: a bar of 0 can be met, too.
std::optional<ChartView::Place> ChartView::At(const QPointF& position) const {
    if (data_.Points.isEmpty() || !chart()->plotArea().contains(position)) return {};
    std::optional<Place> nearest;
    double best = 0;
    for (std::size_t line = 0; line < data_.Lines.size(); ++line)
        for (std::size_t point = 0; point < data_.Lines[line].Figures.size(); ++point) {
            const QRectF box = BoxOf({point, line});
            const double across = std::max({box.left() - position.x(), position.x() - box.right(), 0.0});
            const double up = std::max({box.top() - position.y(), position.y() - box.bottom(), 0.0});
            const double far = across * 4 + up;  // first the month, then the nearer figure
            if (across <= Near && (!nearest || far < best)) {
                nearest = Place{point, line};
                best = far;
            }
        }
    return nearest;
}

void ChartView::keyPressEvent(QKeyEvent* event) {
    if (data_.Points.isEmpty()) return QChartView::keyPressEvent(event);
    const std::size_t points = static_cast<std::size_t>(data_.Points.size()), lines = data_.Lines.size();
    Place to = marked_;
    switch (event->key()) {
        case Qt::Key_Left:
            to.Point = to.Point == 0 ? 0 : to.Point - 1;
            break;
        case Qt::Key_Right:
            to.Point = std::min(to.Point + 1, points - 1);
            break;
        case Qt::Key_Home:
            to.Point = 0;
            break;
        case Qt::Key_End:
            to.Point = points - 1;
            break;
        case Qt::Key_Up:
            to.Line = to.Line == 0 ? 0 : to.Line - 1;
            break;
        case Qt::Key_Down:
            to.Line = std::min(to.Line + 1, lines - 1);
            break;
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Space:
            if (Activated) Activated(marked_);
            return;
        default:
            return event->ignore();
    }
    Mark(to);
}

void ChartView::mouseMoveEvent(QMouseEvent* event) {
    const auto place = At(event->position());
    setCursor(place ? Qt::PointingHandCursor : Qt::ArrowCursor);
    if (place && *place != marked_) Mark(*place);
}

void ChartView::mousePressEvent(QMouseEvent* event) {
    const auto place = At(event->position());
    if (!place || event->button() != Qt::LeftButton) return;
    Mark(*place);
    if (Activated) Activated(*place);
}

void ChartView::focusInEvent(QFocusEvent* event) {
    QChartView::focusInEvent(event);
    viewport()->update();
}

void ChartView::focusOutEvent(QFocusEvent* event) {
    QChartView::focusOutEvent(event);
    viewport()->update();
}

void ChartView::changeEvent(QEvent* event) {
    QChartView::changeEvent(event);
    const bool looks = event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange;
    if (looks && dark_ != Theme::Now().dark) Draw();
}

void ChartView::drawForeground(QPainter* painter, const QRectF& rect) {
    QChartView::drawForeground(painter, rect);
    if (data_.Points.isEmpty()) return;
    if (IsFlat()) {
        painter->setPen(Theme::Now().faint);
        painter->drawText(chart()->plotArea(), Qt::AlignCenter | Qt::TextWordWrap,
                          tr("No figures yet. Vouchers bring them: F2."));
    }
    if (!hasFocus() && !underMouse()) return;
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(Theme::Now().ink, 2));
    painter->drawRoundedRect(BoxOf(marked_), 3, 3);
}

}  // namespace desk
