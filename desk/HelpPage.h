#pragma once

#include <QCoreApplication>

#include "desk/Page.h"

class QTextBrowser;

namespace desk {

// The manual, at a chapter. It lies inside the library: no network and no file is needed.
class HelpPage : public Page {
    Q_DECLARE_TR_FUNCTIONS(desk::HelpPage)

  public:
    // The chapter by its heading; at the beginning for "".
    HelpPage(Desk& desk, const QString& chapter);

  private:
    void GoTo(const QString& chapter);
    void Follow(const QString& link);

    QTextBrowser* text_;
};

}  // namespace desk
