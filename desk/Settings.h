#pragma once

#include <QSettings>

namespace desk {

// What the desk keeps for its user, beside the books and in none of them: colours, columns, recent books.
class Settings : public QSettings {
  public:
    Settings() : QSettings("qmaccounts", "desk") {}
};

}  // namespace desk
