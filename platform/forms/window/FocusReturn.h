#pragma once

#include <QPointer>

class QWidget;

namespace forms {

// What a box stands over, from before it is shown until it has gone: the window, and what had the focus in
// it. It gives both back at its end, at once; the toolkit itself does not always do so, and otherwise only
// when the system tells that the window is active again. What comes until then, the next box or a list, would
// belong to no window.
class FocusReturn {
  public:
    FocusReturn();
    ~FocusReturn();
    FocusReturn(const FocusReturn&) = delete;
    FocusReturn& operator=(const FocusReturn&) = delete;

    QWidget* Window() const { return window_; }  // null if none is shown

  private:
    QPointer<QWidget> window_, focused_;
};

}  // namespace forms
