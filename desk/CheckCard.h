#pragma once

#include <QCoreApplication>

#include "desk/StatusCard.h"

class QPushButton;

namespace desk {

class Desk;

// What the check of the books said last, with the way to its findings and a new run.
class CheckCard : public StatusCard {
    Q_DECLARE_TR_FUNCTIONS(desk::CheckCard)

  public:
    // The second button's caption, with its letter.
    CheckCard(Desk& desk, const QString& again);

    void Run();
    void Tell();  // as it stands now; it hears of each run by itself

  private:
    Desk& desk_;
    QPushButton* findings_;
};

}  // namespace desk
