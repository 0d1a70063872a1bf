#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace queries {

// The words that are looked for in lists that are read whole.
class Words {
  public:
    explicit Words(const std::string& words);

    // Whether each stands somewhere in the texts, without regard to case; so also where there is none.
    bool In(const std::vector<std::string_view>& texts) const;

  private:
    std::vector<std::string> folded_;
};

}  // namespace queries
