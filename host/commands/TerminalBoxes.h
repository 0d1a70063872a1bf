#pragma once

#include <string>

#include "core/MsgBox.h"

namespace host {

// While it lives, boxes are lines on the standard error stream, also where a display is there: for commands
// that open no window.
class TerminalBoxes {
  public:
    TerminalBoxes();
    ~TerminalBoxes();
    TerminalBoxes(const TerminalBoxes&) = delete;
    TerminalBoxes& operator=(const TerminalBoxes&) = delete;

  private:
    qm::MsgBoxPort before_;
};

}  // namespace host
