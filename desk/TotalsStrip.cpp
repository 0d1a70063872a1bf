#include "desk/TotalsStrip.h"

#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <utility>

#include "desk/Theme.h"

namespace desk {
namespace {

constexpr int Height = 32, Margin = 8;

}  // namespace

TotalsStrip::TotalsStrip(QHeaderView& header, QWidget* parent) : QWidget(parent), header_(header) {
    setObjectName("totals");
    setFixedHeight(Height);
    const auto again = [this] { update(); };
    connect(&header, &QHeaderView::sectionResized, this, again);
    connect(&header, &QHeaderView::sectionMoved, this, again);
    connect(&header, &QHeaderView::geometriesChanged, this, again);
    const auto& view = static_cast<const QAbstractScrollArea&>(*header.parentWidget());
    connect(view.horizontalScrollBar(), &QScrollBar::valueChanged, this, again);
}

void TotalsStrip::Set(const QString& words, std::vector<QString> totals) {
    words_ = words;
    totals_ = std::move(totals);
    setAccessibleName(Text());
    update();
}

QString TotalsStrip::Text() const {
    QString text = words_;
    for (std::size_t column = 0; column < totals_.size(); ++column)
        if (!totals_[column].isEmpty() && !header_.isSectionHidden(static_cast<int>(column)))
            text += QString(", %1 %2").arg(
                header_.model()->headerData(static_cast<int>(column), Qt::Horizontal).toString(),
                totals_[column]);
    return text;
}

// The words have the room up to the first total.
void TotalsStrip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QFont bold = Theme::Figures(font());
    bold.setBold(true);
    painter.setFont(bold);
    painter.setPen(Theme::Now().ink);
    int room = width(), from = 0;
    for (int place = 0; place < header_.count(); ++place) {
        const int section = header_.logicalIndex(place);
        const auto column = static_cast<std::size_t>(section);
        if (column >= totals_.size() || totals_[column].isEmpty() || header_.isSectionHidden(section))
            continue;
        const int right = header_.sectionViewportPosition(section) + header_.sectionSize(section) - Margin;
        const QString text = painter.fontMetrics().elidedText(totals_[column], Qt::ElideRight, right - from);
        const int left = right - painter.fontMetrics().horizontalAdvance(text);
        painter.drawText(QRect(left, 0, right - left + 1, height()), Qt::AlignRight | Qt::AlignVCenter, text);
        room = std::min(room, left);
        from = right + Margin;  // one that is too long is cut, not painted over the one before
    }
    painter.setFont(font());
    painter.setPen(Theme::Now().faint);
    const QRect place(Margin, 0, room - 2 * Margin, height());
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter,
                     painter.fontMetrics().elidedText(words_, Qt::ElideRight, place.width()));
}

}  // namespace desk
