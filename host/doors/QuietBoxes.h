#pragma once

#include <string>
#include <utility>

#include "core/MsgBox.h"

namespace host {

// While it lives no box is shown: for routines of the module that tell of each row of a long file.
class QuietBoxes {
  public:
    QuietBoxes()
        : before_(qm::SetMsgBoxPort([](const std::string&, int, const std::string&) { return qm::vbOK; })) {}
    ~QuietBoxes() { qm::SetMsgBoxPort(std::move(before_)); }
    QuietBoxes(const QuietBoxes&) = delete;
    QuietBoxes& operator=(const QuietBoxes&) = delete;

  private:
    qm::MsgBoxPort before_;
};

}  // namespace host
