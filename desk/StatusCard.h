#pragma once

#include <QFrame>
#include <functional>

class QLabel;
class QPushButton;

namespace desk {

// How something stands, in one line, with what can be done about it.
class StatusCard : public QFrame {
  public:
    explicit StatusCard(const QString& title);

    void Say(const QString& text, bool fault = false);  // in place of what it said before
    // The first is the main one.
    QPushButton& AddButton(const QString& caption, std::function<void()> act);
    QString Text() const;

  private:
    QLabel* text_;
};

}  // namespace desk
