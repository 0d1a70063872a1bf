#pragma once

#include <QLineEdit>
#include <functional>

namespace forms {

// The box in which a cell is edited. It asks its grid about each character before it takes it, pasted ones
// included, and hands over the keys that end the edit or move in a list.
class CellEditor : public QLineEdit {
  public:
    // `filter` may change a character or drop it by 0; `command` returns True if it has used the key.
    CellEditor(QWidget* viewport, std::function<void(int&)> filter, std::function<bool(QKeyEvent&)> command);

    void TypeFirst(const QString& text);  // replaces the cell's text by the characters that began the edit
    bool TookAny() const { return took_; }

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;

  private:
    void Take(const QString& text);

    std::function<void(int&)> filter_;
    std::function<bool(QKeyEvent&)> command_;
    bool took_ = false;
};

}  // namespace forms
