#include "platform/ado/store/IndexName.h"

#include <cstddef>

#include "platform/basic/Text.h"

namespace ado {

std::string IndexNameFor(const std::string& index, const std::string& source, const std::string& target) {
    const std::size_t at = basic::FoldCase(index).find(basic::FoldCase(source));
    if (at == std::string::npos) return index + "_" + target;
    return index.substr(0, at) + target + index.substr(at + source.size());
}

}  // namespace ado
