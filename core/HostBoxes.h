#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace qm {

// Where the message boxes of a host without a person go. None of these waits for anybody; a box that asks is
// answered vbNo, any other vbOK.

// The host's own routine for boxes (see QmSetBoxHandler); nothing where it has set none. An answer of 0 is
// the one that a box without a person gets.
std::optional<int> AskHost(const std::string& text, int flags, const std::string& title);

// As QM_BOXES says: "stderr" writes a line to the standard error stream, "log" one with the time to
// boxes.log in $XDG_STATE_HOME/qmaccounts, "none" nothing; any other word is taken as "stderr", and a file
// that cannot be written, too. Nothing where QM_BOXES is not set.
std::optional<int> SendAside(const std::string& text, int flags, const std::string& title);

int TellStandardError(const std::string& text, int flags, const std::string& title);

}  // namespace qm
