#include "host/commands/TerminalBoxes.h"

#include <iostream>
#include <utility>

namespace host {

TerminalBoxes::TerminalBoxes()
    : before_(qm::SetMsgBoxPort([](const std::string& text, int, const std::string&) {
          std::cerr << "qmhost: " << text << "\n";
          return qm::vbOK;
      })) {}

TerminalBoxes::~TerminalBoxes() {
    qm::SetMsgBoxPort(std::move(before_));
}

}  // namespace host
