#include "platform/forms/html/FindBar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

namespace forms::html {

FindBar::FindBar(QWidget* over) : QFrame(over), field_(new QLineEdit(this)), answer_(new QLabel(this)) {
    setObjectName("findBar");
    setAutoFillBackground(true);
    setFrameShape(QFrame::StyledPanel);
    auto* const caption = new QLabel("Find", this);
    caption->setBuddy(field_);
    answer_->setObjectName("answer");
    field_->setMinimumWidth(180);
    field_->setAccessibleName("Find");
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(8, 4, 8, 4);
    row->setSpacing(8);
    for (QWidget* part :
         {static_cast<QWidget*>(caption), static_cast<QWidget*>(field_), static_cast<QWidget*>(answer_)})
        row->addWidget(part);
    QObject::connect(field_, &QLineEdit::textChanged, this, [this] { Typed(); });
    hide();
}

void FindBar::Open() {
    show();
    raise();
    ShowFound(true);
    field_->setFocus(Qt::OtherFocusReason);
    field_->selectAll();
}

QString FindBar::Wanted() const {
    return field_->text();
}

void FindBar::ShowFound(bool found) {
    answer_->setText(found ? "" : "Not found");
    adjustSize();
    move(parentWidget()->width() - width() - 8, 8);
}

// The field lets these keys through; they must not reach the form's buttons.
void FindBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        hide();
        Closed();
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        Next();
    } else {
        QFrame::keyPressEvent(event);
    }
}

}  // namespace forms::html
