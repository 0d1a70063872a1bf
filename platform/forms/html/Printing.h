#pragma once

#include <QFont>
#include <string>

#include "platform/forms/html/Paper.h"

class QWidget;

namespace forms::html {

// Shows the pages; from there they go to a printer or a PDF file through the system's print dialog, by Ctrl+P
// or the button for it. Tab goes to each button, Enter presses it. Returns when that window has closed.
void PrintWithDialog(QWidget* parent, const std::string& document, const QFont& font, const Paper& paper);

// Prints on the standard printer at once. Raises 482 "Printer error" where there is none.
void PrintAtOnce(const std::string& document, const QFont& font, const Paper& paper);

}  // namespace forms::html
