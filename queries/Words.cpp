#include "queries/Words.h"

#include <algorithm>
#include <sstream>

#include "platform/basic/Text.h"

namespace queries {

Words::Words(const std::string& words) {
    std::istringstream text(words);
    for (std::string word; text >> word;) folded_.push_back(basic::FoldCase(word));
}

bool Words::In(const std::vector<std::string_view>& texts) const {
    if (folded_.empty()) return true;
    std::string all;
    for (const std::string_view text : texts) all += basic::FoldCase(text) + '\n';
    return std::all_of(folded_.begin(), folded_.end(),
                       [&](const std::string& word) { return all.find(word) != all.npos; });
}

}  // namespace queries
