#include "desk/DeskHead.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QSignalBlocker>
#include <QToolButton>
#include <QVBoxLayout>
#include <utility>

#include "desk/Books.h"

namespace desk {

DeskHead::DeskHead(QWidget& window, Handlers handlers) : QFrame(&window), menu_(new QMenu(this)) {
    setObjectName("head");
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(16, 8, 16, 8);
    row->setSpacing(12);
    auto* const words = new QVBoxLayout;
    words->setSpacing(0);
    firm_ = new QLabel(this);
    firm_->setObjectName("firm");
    place_ = new QLabel(this);
    place_->setObjectName("place");
    for (QLabel* const label : {firm_, place_}) {
        label->setTextFormat(Qt::PlainText);
        label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        words->addWidget(label);
    }
    row->addLayout(words, 1);

    year_ = new QComboBox(this);
    year_->setObjectName("year");
    year_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    year_->setMinimumContentsLength(9);
    year_->setAccessibleName(tr("Financial year"));
    year_->setToolTip(tr("Financial year (Ctrl+Y)"));
    connect(year_, &QComboBox::activated, this, [this, want = std::move(handlers.WantYear)](int index) {
        want(year_->itemData(index).toString().toStdString());
    });
    row->addWidget(year_);
    search_ = new SearchField(window, std::move(handlers.Search), std::move(handlers.LeaveSearch));
    search_->setMinimumWidth(180);
    search_->setMaximumWidth(420);
    row->addWidget(search_, 1);
    auto* const more = new QToolButton(this);
    more->setObjectName("more");
    more->setText(QString::fromUtf8("\u2630"));
    more->setAccessibleName(tr("Menu"));
    more->setToolTip(tr("Menu (Alt+M)"));
    more->setShortcut(QKeySequence(Qt::ALT | Qt::Key_M));
    more->setPopupMode(QToolButton::InstantPopup);
    more->setMenu(menu_);
    row->addWidget(more);
}

void DeskHead::ShowBooks(Books& books) {
    const QSignalBlocker quiet(year_);
    year_->clear();
    year_->setEnabled(books.AreOpen());
    firm_->setText(books.AreOpen() ? books.Name() : tr("No books are open"));
    address_ = books.AreOpen() ? books.Place() : QString();
    ElidePlace();
    if (!books.AreOpen()) return;
    for (const host::Year& year : books.Years()) {
        const QString shortForm = QString::fromStdString(year.ShortForm());
        if (year_->findData(shortForm) < 0) year_->addItem(QString::fromStdString(year.longForm), shortForm);
    }
    year_->setCurrentIndex(year_->findData(QString::fromStdString(books.YearInForce())));
}

void DeskHead::ElidePlace() {
    const QString home = QDir::homePath() + '/';
    const QString shown = address_.startsWith(home) ? "~/" + address_.mid(home.size()) : address_;
    place_->setText(place_->fontMetrics().elidedText(shown, Qt::ElideMiddle, place_->width()));
    place_->setToolTip(address_);
}

void DeskHead::resizeEvent(QResizeEvent* event) {
    QFrame::resizeEvent(event);
    ElidePlace();
}

}  // namespace desk
