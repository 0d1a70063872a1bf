#pragma once

#include <QCoreApplication>
#include <QFrame>
#include <QString>
#include <functional>
#include <vector>

#include "platform/basic/Error.h"

class QHBoxLayout;
class QLabel;

namespace desk {

// The bar below the head: what went wrong, with its cause and cure, or what a choice would change. It takes
// the place of boxes, stays until it is answered or closed, and is read out where it appears.
class NoticeBar : public QFrame {
    Q_DECLARE_TR_FUNCTIONS(desk::NoticeBar)

  public:
    struct Answer {
        QString Caption;            // of its button
        std::function<void()> Act;  // after the bar has closed
    };
    enum class Kind { Note, Fault };

    explicit NoticeBar(QWidget* parent);

    // What it showed before is gone. The first answer is the main one. The keys stay where they are: what
    // comes by itself, while the user types, must not take them.
    void Show(Kind kind, const QString& text, const QString& more = {}, std::vector<Answer> answers = {});
    // What was raised, with its cause and cure where the list of errors has it.
    void Tell(const basic::Error& error, std::vector<Answer> answers = {});
    void Note(const QString& text) { Show(Kind::Note, text); }
    bool Try(const std::function<void()>& work);  // tells what it raises; False then
    void Dismiss();
    void TakeFocus();            // to the first answer, of what the user has just asked for
    std::function<void()> Left;  // it closes while the focus is on it: gives the focus to what is worked with
    bool Asks() const { return !answers_.empty(); }
    QString Text() const;  // both lines

  private:
    QLabel *text_, *more_;
    QHBoxLayout* row_;
    std::vector<QWidget*> answers_;
};

}  // namespace desk
