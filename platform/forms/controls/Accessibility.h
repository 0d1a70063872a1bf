#pragma once

class QWidget;

namespace forms {

// Gives each control that would have none an accessible name: a picture button takes its tool tip, a grid or
// a list the title of the frame around it. Text boxes and combos take their labels' by themselves.
void NameForAssistance(QWidget& window);

}  // namespace forms
