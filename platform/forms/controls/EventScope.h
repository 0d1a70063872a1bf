#pragma once

#include <QPointer>
#include <QWidget>

namespace forms {

class ControlWindow;

// Counts a running event of the window that the widget is in; when the outermost has returned, an Unload that
// waited for it is carried out.
class EventScope {
  public:
    explicit EventScope(QWidget* widget);
    ~EventScope();
    EventScope(const EventScope&) = delete;
    EventScope& operator=(const EventScope&) = delete;

  private:
    ControlWindow* const window_;  // null: in none
    const QPointer<QWidget> alive_;
};

}  // namespace forms
