#pragma once

#include <QGroupBox>
#include <QLabel>

#include "platform/forms/controls/Control.h"

namespace forms {

// A caption. Its "&" letter moves the focus to its buddy.
class Label : public QLabel, public Control {
  public:
    explicit Label(QWidget* parent);

    std::string TypeName() const override { return "Label"; }
    std::string Caption() const;
    void SetCaption(const std::string& caption);
    unsigned ForeColor() const;
    void SetForeColor(unsigned colour);  // 0xBBGGRR or vbHighlight

    Event<> Click;
    Event<> MouseMove;

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
};

// A titled group. Its "&" letter moves the focus to the first control inside; options inside it are one
// group.
class Frame : public QGroupBox, public Control {
  public:
    explicit Frame(QWidget* parent);

    std::string TypeName() const override { return "Frame"; }
    std::string Caption() const;
    void SetCaption(const std::string& caption);
};

// A place for a picture. Mouse events give the button (1 left, 2 right) and the place in twips. A hidden one
// only keeps a picture for other controls; the designer names it in the property "picture".
class PictureBox : public QLabel, public Control {
  public:
    explicit PictureBox(QWidget* parent);

    std::string TypeName() const override { return "PictureBox"; }
    std::string Picture() const;  // a file or a resource such as ":/forms/previous.svg"; "" for none

    Event<int, int, int> MouseDown, MouseMove, MouseUp;

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    void FireMouse(const Event<int, int, int>& what, const QMouseEvent& event);
};

class Image : public PictureBox {
  public:
    using PictureBox::PictureBox;
    std::string TypeName() const override { return "Image"; }
};

}  // namespace forms
