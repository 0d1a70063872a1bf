#include "host/commands/OpenBooks.h"

#include <exception>
#include <optional>

#include "core/modGeneral.h"
#include "host/commands/TerminalBoxes.h"
#include "platform/ado/Constants.h"

namespace host {

OpenBooks::OpenBooks(const std::string& folder, Boxes boxes) : failures_(std::uncaught_exceptions()) {
    std::optional<TerminalBoxes> terminal;
    if (boxes == Boxes::OnTerminal) terminal.emplace();
    host_.dataPath(folder.ends_with("/") ? folder : folder + "/");
    host_.StartDataConn();
}

OpenBooks::~OpenBooks() noexcept(false) {
    if (std::uncaught_exceptions() == failures_) Close();
}

void OpenBooks::Close() {
    const ado::ConnectionPtr& books = qm::shared().Connection;
    if (books && books->State() == ado::adStateOpen) books->Close();
}

}  // namespace host
