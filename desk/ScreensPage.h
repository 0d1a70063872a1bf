#pragma once

#include <QCoreApplication>

#include "desk/Page.h"

class QTreeWidget;

namespace desk {

// The module's own screens, with what each is for and the key that opens it from anywhere.
class ScreensPage : public Page {
    Q_DECLARE_TR_FUNCTIONS(desk::ScreensPage)

  public:
    explicit ScreensPage(Desk& desk);
    QString Chapter() const override { return "Screens"; }

  private:
    void Fill();

    QTreeWidget* list_;
};

}  // namespace desk
