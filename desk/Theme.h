#pragma once

#include <QColor>
#include <QFont>

class QWidget;

namespace desk {

// The colours of one look. Ink on paper and on ground, and faint on both, are told apart by any eye (4.5 :
// 1).
struct Colours {
    bool dark;
    QColor ink, faint, paper, ground, line, accent, onAccent, chosen, warning, warningInk, fault, faultInk;
};

// The desk's look: the module's quiet style with one accent, light or dark. It follows the system's colours
// unless the user has chosen.
class Theme {
  public:
    enum class Choice { System, Light, Dark };

    // Kept for the user; a choice shows with the next Apply.
    static Choice Chosen();
    static void Choose(Choice choice);

    static const Colours& Now();  // those of the look in force
    // Gives a window its palette, its style sheet and its font; called again when the system's colours
    // change.
    static void Apply(QWidget& window);
    static void ReadSystem();  // looks anew whether the system is dark; the screens' own colours stay

    // Of figures: the window's own font if its digits are of one width, else one that has such.
    static QFont Figures(const QFont& font);
};

}  // namespace desk
