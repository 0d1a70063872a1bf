#include "core/Boxes.h"

namespace qm {

void Tell(const std::string& text) {
    MsgBox(text, vbInformation, AppTitle);
}

bool Ask(const std::string& question, int flags) {
    return MsgBox(question, flags, AppTitle) == vbYes;
}

}  // namespace qm
