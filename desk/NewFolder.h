#pragma once

#include <QString>

class QWidget;

namespace desk {

// Asks for a folder that something new is laid down in: one that stands, or a name of a new one in a folder
// that stands, which is made. "" where the user gives up.
QString AskForNewFolder(QWidget* parent, const QString& title);

}  // namespace desk
