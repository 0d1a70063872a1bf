#pragma once

#include <QFont>
#include <string>

class QWidget;

namespace forms::html {

// Shows the pages; from there they go to a printer or a PDF file through the system's print dialog. Returns
// when that window has closed.
void PrintWithDialog(QWidget* parent, const std::string& document, const QFont& font);

// Prints on the standard printer at once. Raises 482 "Printer error" where there is none.
void PrintAtOnce(const std::string& document, const QFont& font);

}  // namespace forms::html
