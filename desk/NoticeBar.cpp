#include "desk/NoticeBar.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>
#include <exception>
#include <utility>

#include "desk/Cures.h"

namespace desk {

NoticeBar::NoticeBar(QWidget* parent) : QFrame(parent) {
    setObjectName("notice");
    row_ = new QHBoxLayout(this);
    row_->setContentsMargins(16, 8, 8, 8);
    auto* const words = new QVBoxLayout;
    words->setSpacing(2);
    text_ = new QLabel(this);
    text_->setObjectName("noticeText");
    more_ = new QLabel(this);
    more_->setObjectName("noticeMore");
    for (QLabel* const label : {text_, more_}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        words->addWidget(label);
    }
    row_->addLayout(words, 1);
    auto* const close = new QToolButton(this);
    close->setText(QString::fromUtf8("\u2715"));
    close->setAccessibleName(tr("Close the message"));
    close->setToolTip(tr("Close the message (Esc)"));
    connect(close, &QToolButton::clicked, this, [this] { Dismiss(); });
    row_->addWidget(close, 0, Qt::AlignTop);
    hide();
}

void NoticeBar::Show(Kind kind, const QString& text, const QString& more, std::vector<Answer> answers) {
    Dismiss();
    text_->setText(text);
    more_->setText(more);
    more_->setVisible(!more.isEmpty());
    setProperty("fault", kind == Kind::Fault);
    for (QWidget* const widget :
         {static_cast<QWidget*>(this), static_cast<QWidget*>(text_), static_cast<QWidget*>(more_)}) {
        widget->style()->unpolish(widget);
        widget->style()->polish(widget);
    }
    for (Answer& answer : answers) {
        auto* const button = new QPushButton(answer.Caption, this);
        button->setAutoDefault(true);
        button->setToolTip(tr("Alt+0 goes to the answers"));
        connect(button, &QPushButton::clicked, this, [this, act = std::move(answer.Act)] {
            const auto kept = act;  // the button goes with the bar
            Dismiss();
            if (kept) kept();
        });
        row_->insertWidget(row_->count() - 1, button, 0, Qt::AlignVCenter);
        answers_.push_back(button);
    }
    setAccessibleName(Text());
    show();
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void NoticeBar::Tell(const basic::Error& error, std::vector<Answer> answers) {
    QString more;
    if (const auto cure = CureOf(error)) more = cure->Text();
    Show(Kind::Fault, QString::fromStdString(error.Description), more, std::move(answers));
}

bool NoticeBar::Try(const std::function<void()>& work) {
    try {
        work();
        return true;
    } catch (const basic::Error& error) {
        Tell(error);
    } catch (const std::exception& error) {
        Show(Kind::Fault, QString::fromUtf8(error.what()));
    }
    return false;
}

void NoticeBar::TakeFocus() {
    if (!answers_.empty()) answers_.front()->setFocus(Qt::OtherFocusReason);
}

// The focus goes first: what hides with it gives it to whichever control comes next, on the page too.
void NoticeBar::Dismiss() {
    if (isAncestorOf(window()->focusWidget()) && Left) Left();
    for (QWidget* const button : std::exchange(answers_, {})) {
        button->hide();
        button->deleteLater();
    }
    hide();
}

QString NoticeBar::Text() const {
    return more_->text().isEmpty() ? text_->text() : text_->text() + '\n' + more_->text();
}

}  // namespace desk
