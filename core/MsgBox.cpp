#include "core/MsgBox.h"

#include <iostream>
#include <utility>

#include "core/Screens.h"
#include "core/modGeneral.h"
#include "platform/ado/Constants.h"
#include "platform/ado/Maintenance.h"
#include "platform/basic/Display.h"
#include "platform/basic/Text.h"

namespace qm {
namespace {

MsgBoxPort& Port() {
    static MsgBoxPort port;
    return port;
}

std::string WithPlainLineEnds(const std::string& text) {
    return basic::Replace(basic::Replace(text, "\r\n", "\n"), "\r", "\n");
}

int TellStandardError(const std::string& text, int flags, const std::string& title) {
    std::cerr << (title.empty() ? "" : "[" + title + "] ") << WithPlainLineEnds(text) << std::endl;
    return (flags & vbYesNo) != 0 ? vbNo : vbOK;
}

// A box that tells of something done must not be undone by a power cut.
void PutOnDisk() {
    const ado::ConnectionPtr& books = shared().Connection;
    if (books && books->State() == ado::adStateOpen) ado::Flush(*books);
}

}  // namespace

int MsgBox(const std::string& text, int flags, const std::string& title) {
    if ((flags & vbInformation) != 0) PutOnDisk();
    if (!Port() && DisplayIsThere() && basic::DisplayAnswers()) LoadScreens();
    return Port() ? Port()(text, flags, title) : TellStandardError(text, flags, title);
}

MsgBoxPort SetMsgBoxPort(MsgBoxPort port) {
    return std::exchange(Port(), std::move(port));
}

}  // namespace qm
