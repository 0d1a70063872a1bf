#pragma once

class QString;
class QWidget;

namespace desk {

// Asks before something is replaced, with No chosen. The text is plain, whatever a name in it looks like.
bool Confirmed(QWidget* over, const QString& title, const QString& text);

}  // namespace desk
