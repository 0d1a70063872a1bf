#pragma once

#include <QString>
#include <QWidget>
#include <functional>

namespace desk {

// What stands where nothing can be shown yet: why, and what to do about it.
class EmptyState : public QWidget {
  public:
    // Without a caption there is no button.
    EmptyState(const QString& title, const QString& text, const QString& caption = {},
               std::function<void()> act = {});
};

}  // namespace desk
