#include "platform/basic/Control.h"

#include "platform/basic/Error.h"

namespace basic {

void Control::SetText(const std::string&) {
    Raise(error::NotSupported);
}
void Control::SetValue(int) {
    Raise(error::NotSupported);
}
void Control::SetListIndex(int) {
    Raise(error::NotSupported);
}
void Control::SetLocked(bool) {
    Raise(error::NotSupported);
}

}  // namespace basic
