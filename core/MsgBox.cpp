#include "core/MsgBox.h"

#include <iostream>
#include <utility>

#include "core/Screens.h"
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

}  // namespace

int MsgBox(const std::string& text, int flags, const std::string& title) {
    if (!Port() && DisplayIsThere()) LoadScreens();
    return Port() ? Port()(text, flags, title) : TellStandardError(text, flags, title);
}

MsgBoxPort SetMsgBoxPort(MsgBoxPort port) {
    return std::exchange(Port(), std::move(port));
}

}  // namespace qm
