#pragma once

#include <QFrame>
#include <functional>

class QLabel;
class QLineEdit;

namespace forms::html {

// The small field over the document in which a text to find is typed. Enter finds the next one, Esc puts it
// away.
class FindBar : public QFrame {
  public:
    explicit FindBar(QWidget* over);

    void Open();  // shows it, with the focus in its field
    QString Wanted() const;
    void ShowFound(bool found);

    std::function<void()> Next;    // Enter: the next one
    std::function<void()> Typed;   // the text changed: from where the search began
    std::function<void()> Closed;  // Esc

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QLineEdit* field_;
    QLabel* answer_;
};

}  // namespace forms::html
