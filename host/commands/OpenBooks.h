#pragma once

#include <string>

#include "core/clQm.h"

namespace host {

// The class on the books of a folder, opened as any host opens them: dataPath, then StartDataConn, which
// begins the first year on delivered books. Raises what opening raises.
class OpenBooks {
  public:
    explicit OpenBooks(const std::string& folder);
    qm::clQm& Host() { return host_; }

  private:
    qm::clQm host_;
};

}  // namespace host
