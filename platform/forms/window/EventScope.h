#pragma once

#include <QPointer>

#include "platform/forms/window/FormWindow.h"

namespace forms {

// Counts a running event of a window; when the outermost has returned, an Unload that waited for it is
// carried out.
class EventScope {
  public:
    explicit EventScope(FormWindow* window);
    ~EventScope();
    EventScope(const EventScope&) = delete;
    EventScope& operator=(const EventScope&) = delete;

  private:
    QPointer<FormWindow> window_;
};

}  // namespace forms
