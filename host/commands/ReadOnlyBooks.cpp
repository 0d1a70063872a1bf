#include "host/commands/ReadOnlyBooks.h"

#include "core/DBCode.h"
#include "core/ErrorModule.h"
#include "core/modGeneral.h"
#include "host/commands/TerminalBoxes.h"

namespace host {

ReadOnlyBooks::ReadOnlyBooks(const std::string& folder) {
    qm::shared().DataPath = folder.ends_with("/") ? folder : folder + "/";
    const TerminalBoxes boxes;
    qm::OpenConnection(qm::BooksFile);
}

ReadOnlyBooks::~ReadOnlyBooks() {
    qm::SkipOnError([] { qm::Conn().Close(); });
    qm::shared() = {};
}

}  // namespace host
