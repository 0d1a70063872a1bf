#include "core/Quoting.h"

#include "platform/basic/Text.h"

namespace qm {

std::string Quoted(const std::string& text) {
    return '"' + text + '"';
}

std::string QuotedDoubled(const std::string& text) {
    return "'" + basic::Replace(text, "'", "''") + "'";
}

}  // namespace qm
