#include "desk/ChartCard.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QItemSelectionModel>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <utility>

namespace desk {

ChartCard::ChartCard(Desk& desk, const QString& name, const QString& title,
                     std::function<void(ChartView::Place)> open)
    : chart_(new ChartView(this)),
      table_(new SheetView(desk, name)),
      legend_(new QLabel(this)),
      marked_(new QLabel(this)),
      stack_(new QStackedWidget(this)),
      turn_(new QPushButton(this)) {
    setObjectName("card");
    setAccessibleName(title);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(12, 8, 12, 8);
    column->setSpacing(2);
    auto* const head = new QHBoxLayout;
    auto* const caption = new QLabel(title, this);
    caption->setObjectName("cardTitle");
    legend_->setTextFormat(Qt::RichText);
    QSizePolicy rest(QSizePolicy::Ignored, QSizePolicy::Preferred);
    rest.setRetainSizeWhenHidden(true);
    legend_->setSizePolicy(rest);
    turn_->setObjectName("turn");
    turn_->setAutoDefault(true);
    turn_->setToolTip(tr("The same figures as a table (Ctrl+T)"));
    turn_->setAccessibleDescription(title + ": " + turn_->toolTip());
    connect(turn_, &QPushButton::clicked, this, [this] { Turn(); });
    head->addWidget(caption);
    head->addWidget(legend_, 1);
    head->addWidget(table_->Buttons());
    head->addWidget(turn_);
    column->addLayout(head);
    marked_->setObjectName("hint");
    marked_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    column->addWidget(marked_);
    stack_->addWidget(chart_);
    stack_->addWidget(table_);
    column->addWidget(stack_, 1);
    table_->Buttons()->hide();
    turn_->setText(tr("Table"));
    chart_->setAccessibleName(title);
    table_->View().setAccessibleName(title);
    chart_->Activated = open;
    chart_->Moved = [this] { Tell(); };
    table_->Activated = [this, open = std::move(open)](std::size_t) {
        MarkCell();
        open(chart_->Marked());
    };
    connect(table_->View().selectionModel(), &QItemSelectionModel::currentChanged, this, [this] {
        if (stack_->currentWidget() == table_) MarkCell();
    });
    auto* const key = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_T), this, nullptr, nullptr,
                                    Qt::WidgetWithChildrenShortcut);
    connect(key, &QShortcut::activated, this, [this] { Turn(); });
    setFocusProxy(chart_);
}

void ChartCard::Set(ChartData drawn, std::shared_ptr<const queries::Sheet> twin) {
    chart_->Set(std::move(drawn));
    table_->AskAgain([twin = std::move(twin)](queries::Reading&) { return twin; });
}

// The line of the chart that a column of the table has the figures of, or belongs to: "Cash In".
std::optional<std::size_t> ChartCard::LineOf(int column) const {
    const QString caption = table_->View().model()->headerData(column, Qt::Horizontal).toString();
    const auto& lines = chart_->Data().Lines;
    for (std::size_t line = 0; line < lines.size(); ++line)
        if (caption.startsWith(lines[line].Caption, Qt::CaseInsensitive)) return line;
    return {};
}

void ChartCard::MarkCell() {
    const auto row = table_->Current();
    if (!row || *row >= static_cast<std::size_t>(chart_->Data().Points.size())) return;
    const auto line = LineOf(table_->View().currentIndex().column());
    chart_->Mark({*row, line.value_or(chart_->Marked().Line)});
}

void ChartCard::GoToMarked() {
    const ChartView::Place marked = chart_->Marked();
    if (!table_->Sheet() || marked.Point >= table_->Sheet()->Rows()) return;
    table_->SetCurrent(marked.Point);
    const QModelIndex at = table_->View().currentIndex();
    for (int column = at.model()->columnCount() - 1; column >= 0; --column)
        if (LineOf(column) == marked.Line) return table_->View().setCurrentIndex(at.siblingAtColumn(column));
}

void ChartCard::Turn() {
    const bool toTable = stack_->currentIndex() == 0;
    if (toTable) GoToMarked();
    stack_->setCurrentIndex(toTable ? 1 : 0);
    table_->Buttons()->setVisible(toTable);
    legend_->setVisible(!toTable);
    turn_->setText(toTable ? tr("Chart") : tr("Table"));
    QWidget* const shown = stack_->currentWidget();
    setFocusProxy(shown);
    shown->setFocus();
}

void ChartCard::Tell() {
    marked_->setText(chart_->MarkedText());
    QString text;
    if (const auto& lines = chart_->Data().Lines; lines.size() > 1)
        for (std::size_t line = 0; line < lines.size(); ++line)
            text += QString("&nbsp; <span style='color:%1'>\u25A0</span> %2")
                        .arg(chart_->ColourOf(line).name(), lines[line].Caption.toHtmlEscaped());
    legend_->setText(text);
}

}  // namespace desk
