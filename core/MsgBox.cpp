#include "core/MsgBox.h"

#include <utility>

#include "core/HostBoxes.h"
#include "core/Screens.h"
#include "core/modGeneral.h"
#include "platform/ado/Constants.h"
#include "platform/ado/Maintenance.h"
#include "platform/basic/Display.h"
#include "platform/basic/Error.h"

namespace qm {
namespace {

MsgBoxPort& Port() {
    static MsgBoxPort port;
    return port;
}

// To the host's own routine, to the screens where they are open, aside where nobody watches, to screens that
// are loaded for it, or to the standard error stream.
int Show(const std::string& text, int flags, const std::string& title) {
    if (const auto answer = AskHost(text, flags, title)) return *answer;
    if (!Port())
        if (const auto answer = SendAside(text, flags, title)) return *answer;
    if (!Port() && DisplayIsThere() && basic::DisplayAnswers()) LoadScreens();
    return Port() ? Port()(text, flags, title) : TellStandardError(text, flags, title);
}

// A box that tells of something done must not be undone by a power cut. Where the disk fails, that is told
// first, and the box comes all the same: its caller goes on as it is told.
void PutOnDisk() {
    const ado::ConnectionPtr& books = shared().Connection;
    if (!books || books->State() != ado::adStateOpen) return;
    try {
        ado::Flush(*books);
    } catch (const basic::Error& failure) {
        Show(failure.Description, vbOKOnly, AppTitle);
    }
}

}  // namespace

int MsgBox(const std::string& text, int flags, const std::string& title) {
    if ((flags & vbInformation) != 0) PutOnDisk();
    return Show(text, flags, title);
}

MsgBoxPort SetMsgBoxPort(MsgBoxPort port) {
    return std::exchange(Port(), std::move(port));
}

}  // namespace qm
