#pragma once

#include <QComboBox>
#include <QElapsedTimer>
#include <cstdint>

#include "platform/forms/controls/Control.h"

namespace forms {

// A text box with a list to choose from. Code may set any Text; the user chooses from the list, and types
// only where the designer made it editable. The Text and the chosen line are one state:
// - Text set to a line's text chooses it and fires Change, then Click; any other text is shown with ListIndex
// -1 and fires
//   Change; the same text again fires nothing;
// - ListIndex set to another line, or a line chosen by the user, fires Click; ListIndex -1 empties the text
// and fires nothing;
// - typing fires Change and leaves ListIndex -1;
// - Clear empties text and list and fires nothing; adding lines chooses none.
class ComboBox : public QComboBox, public Control, public basic::ListControl {
  public:
    explicit ComboBox(QWidget* parent);

    std::string TypeName() const override { return "ComboBox"; }
    std::string Text() const;
    void SetText(const std::string& text) override;
    void Clear() override;
    void AddItem(const std::string& text) override;
    int ListCount() const { return count(); }
    int NewIndex() const { return count() - 1; }  // of the line added last
    std::string List(int index) const;            // raises 381 out of range
    std::int32_t ItemData(int index) const;  // a number that a line carries; 0 until set, and at ListIndex -1
    void SetItemData(int index, std::int32_t value);
    int ListIndex() const { return index_; }
    void SetListIndex(int index) override;  // raises 380 "Invalid property value" beyond the list
    bool Locked() const { return locked_; }
    void SetLocked(bool locked) override;
    void OpenList();            // as the key F4 does; nothing where it is disabled or locked
    void showPopup() override;  // on the first line where the text is empty; Tab takes a line and goes on

    Event<> Change;
    Event<> Click;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* list, QEvent* event) override;

  private:
    void Take(int index, const QString& text);
    void CheckLine(int index) const;
    void PrepareTyping();
    bool IsTypingName() const;
    void SearchOn(const QString& text);

    int index_ = -1;
    QString text_;
    bool locked_ = false;
    bool typing_ = false;
    QElapsedTimer sinceLetter_;  // typed to find a line
};

}  // namespace forms
