#pragma once

#include <QEvent>
#include <QShortcutEvent>

namespace desk {

// A button whose letter presses it at once. The toolkit would wait a moment, and keys that are typed on would
// still go to what the button is about to change.
template <class Button>
class AtOnce : public Button {
  public:
    using Button::Button;

  protected:
    bool event(QEvent* event) override {
        const bool isLetter =
            event->type() == QEvent::Shortcut && !static_cast<QShortcutEvent*>(event)->isAmbiguous();
        if (!isLetter) return Button::event(event);
        this->click();
        return true;
    }
};

}  // namespace desk
