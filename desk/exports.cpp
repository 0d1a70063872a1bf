// What qmhost finds in this library by name.
#include <QCoreApplication>

#include "core/Screens.h"
#include "desk/DeskWindow.h"
#include "desk/Theme.h"
#include "platform/basic/Error.h"

// Shows the desk on the books of a folder or a server and returns when it has been closed.
extern "C" void qmShowDesk(const char* address) {
    qm::LoadScreens();
    if (!QCoreApplication::instance())
        throw basic::Error(
            429,
            "The desk cannot be shown: there is no display. Start the program where DISPLAY or "
            "WAYLAND_DISPLAY names one that answers.",
            "desk");
    desk::Theme::ReadSystem();
    desk::DeskWindow window;
    window.OpenBooks(address);
    window.Run();
}
