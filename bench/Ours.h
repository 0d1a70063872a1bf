#pragma once

#include <filesystem>

#include "core/clQm.h"
#include "core/modGeneral.h"

namespace bench {

// The class on a books file, as a host has it.
class Ours {
  public:
    explicit Ours(const std::filesystem::path& folder) {
        host_.dataPath(folder.string() + "/");
        host_.StartDataConn();
    }
    qm::clQm& Host() { return host_; }
    ado::Connection& Conn() { return qm::Conn(); }

  private:
    qm::clQm host_;
};

}  // namespace bench
