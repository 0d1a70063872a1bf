#include "platform/forms/grid/CellPainter.h"

#include <QIcon>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionButton>
#include <QWidget>

#include "platform/forms/controls/Control.h"

namespace forms {

namespace {

QColor Blend(const QColor& a, const QColor& b, int percentOfB) {
    const auto mix = [percentOfB](int x, int y) { return (x * (100 - percentOfB) + y * percentOfB) / 100; };
    return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue())};
}

Qt::Alignment Side(const CellShown& shown) {
    switch (shown.Align) {
        case Alignment::Right:
            return Qt::AlignRight | Qt::AlignVCenter;
        case Alignment::Center:
            return Qt::AlignHCenter | Qt::AlignVCenter;
        default:
            return Qt::AlignLeft | Qt::AlignVCenter;
    }
}

}  // namespace

QColor OwnColor(unsigned color) {
    return color == NoColor ? QColor() : ToColor(color);
}

QColor LineColor(const QWidget& widget) {
    return Blend(widget.palette().color(QPalette::Base), widget.palette().color(QPalette::Text), 15);
}

CellPainter::CellPainter(QPainter& painter, const QWidget& widget, bool gridLines, bool active)
    : painter_(painter), widget_(widget), gridLines_(gridLines), active_(active) {}

QRect CellPainter::ButtonRect(const QRect& cell) {
    const int width = qMin(22, cell.width());
    return {cell.right() - width, cell.top() + 1, width, cell.height() - 3};
}

QRect CellPainter::CheckRect(const QRect& cell) {
    constexpr int side = 16;
    return {cell.left() + (cell.width() - side) / 2, cell.top() + (cell.height() - side) / 2, side, side};
}

void CellPainter::Paint(const QRect& cell, const CellShown& shown) {
    painter_.save();
    painter_.setClipRect(cell, Qt::IntersectClip);
    painter_.fillRect(cell, Ground(shown));
    Lines(cell, shown);
    if (shown.HasCheck) Check(cell, shown.Checked);
    QRect room = cell.adjusted(Padding / 2, 0, -Padding / 2, -1);
    if (shown.Button != CellButton::None) {
        Button(cell, shown);
        room.setRight(ButtonRect(cell).left() - 2);
    }
    if (shown.SortArrow) Arrow(room, shown.SortArrow);
    if (!shown.Picture.empty()) room = Picture(room, shown);
    if (!shown.Text.isEmpty()) Text(room, shown);
    painter_.restore();
}

QColor CellPainter::Ground(const CellShown& shown) const {
    const QPalette& palette = widget_.palette();
    const QColor mark = palette.color(QPalette::Highlight);
    if (shown.Mark == CellMark::Highlighted)
        return active_ ? mark : Blend(palette.color(QPalette::Base), mark, 30);
    if (shown.Back.isValid()) return shown.Back;
    if (shown.Header) return Blend(palette.color(QPalette::Window), palette.color(QPalette::Text), 5);
    const bool left = shown.Mark == CellMark::Current && !active_;
    return left ? Blend(palette.color(QPalette::Base), mark, 10) : palette.color(QPalette::Base);
}

void CellPainter::Lines(const QRect& cell, const CellShown& shown) {
    if (gridLines_ && !shown.Back.isValid()) {  // a coloured run of cells, such as a rule, is not cut up
        painter_.setPen(LineColor(widget_));
        painter_.drawLine(cell.topRight(), cell.bottomRight());
        painter_.drawLine(cell.bottomLeft(), cell.bottomRight());
    }
    if (shown.Mark == CellMark::Current && active_) {  // a second frame would look like a second focus
        QPen pen(widget_.palette().color(QPalette::Highlight), 2);
        pen.setJoinStyle(Qt::MiterJoin);
        painter_.setPen(pen);
        painter_.drawRect(cell.adjusted(1, 1, -1, -1));
    }
}

void CellPainter::Check(const QRect& cell, bool checked) {
    QStyleOptionButton option;
    option.initFrom(&widget_);
    option.rect = CheckRect(cell);
    option.state = QStyle::State_Enabled | (checked ? QStyle::State_On : QStyle::State_Off);
    widget_.style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &option, &painter_, &widget_);
}

void CellPainter::Button(const QRect& cell, const CellShown& shown) {
    QStyleOptionButton option;
    option.initFrom(&widget_);
    option.rect = ButtonRect(cell);
    option.state = QStyle::State_Enabled | QStyle::State_Raised;
    widget_.style()->drawPrimitive(QStyle::PE_PanelButtonCommand, &option, &painter_, &widget_);
    if (shown.Button == CellButton::Drop) {
        option.rect.adjust(5, 5, -5, -5);
        widget_.style()->drawPrimitive(QStyle::PE_IndicatorArrowDown, &option, &painter_, &widget_);
    } else if (!shown.ButtonPicture.empty()) {
        QIcon(QString::fromStdString(shown.ButtonPicture))
            .paint(&painter_, option.rect.adjusted(3, 3, -3, -3));
    } else {
        painter_.setPen(widget_.palette().color(QPalette::ButtonText));
        painter_.drawText(option.rect.adjusted(0, -3, 0, -3), Qt::AlignCenter, QStringLiteral("..."));
    }
}

QRect CellPainter::Picture(const QRect& room, const CellShown& shown) {
    const int side = qMin(16, room.height() - 4);
    QRect place(room.left(), room.top() + (room.height() - side) / 2, side, side);
    if (shown.Text.isEmpty()) place.moveLeft(room.left() + (room.width() - side) / 2);
    QIcon(QString::fromStdString(shown.Picture)).paint(&painter_, place);
    return room.adjusted(side + Padding / 2, 0, 0, 0);
}

void CellPainter::Arrow(QRect& room, int direction) {
    QStyleOption option;
    option.initFrom(&widget_);
    option.rect = QRect(room.right() - 9, room.top() + (room.height() - 9) / 2, 9, 9);
    widget_.style()->drawPrimitive(
        direction > 0 ? QStyle::PE_IndicatorArrowUp : QStyle::PE_IndicatorArrowDown, &option, &painter_,
        &widget_);
    room.setRight(room.right() - ArrowRoom);
}

void CellPainter::Text(const QRect& room, const CellShown& shown) {
    QFont font = widget_.font();
    font.setBold(shown.Bold);
    font.setItalic(shown.Italic);
    painter_.setFont(font);
    QColor color = shown.Fore.isValid() ? shown.Fore : widget_.palette().color(QPalette::Text);
    if (shown.Mark == CellMark::Highlighted && active_)
        color = widget_.palette().color(QPalette::HighlightedText);
    if (!widget_.isEnabled()) color = widget_.palette().color(QPalette::Disabled, QPalette::Text);
    painter_.setPen(color);
    QRect place = room;
    const int width = painter_.fontMetrics().horizontalAdvance(shown.Text);
    if (shown.Align == Alignment::Right && width > room.width()) {
        place.setLeft(qMin(place.left(), shown.BlankFrom + Padding / 2));
        painter_.setClipRect(place);
        painter_.fillRect(QRect(place.right() - width, place.top(), width + 1, place.height()),
                          Ground(shown));  // no line of the grid goes through the text
    }
    QString text = shown.Text;
    text.replace(u'\t', u' ');  // a tab is as wide as it is drawn
    if (!text.contains(u'\n')) text = painter_.fontMetrics().elidedText(text, Qt::ElideRight, place.width());
    painter_.drawText(place, static_cast<int>(Side(shown)), text);
}

}  // namespace forms
