#pragma once

#include <string>

#include "core/clQm.h"

namespace host {

// The class on the books of a folder, opened as any host opens them: dataPath, then StartDataConn, which
// begins the first year on delivered books. Raises what opening raises. The end closes them unless Close has,
// and raises what that raises, unless something else is on its way: what could not be closed was not done.
class OpenBooks {
  public:
    enum class Boxes { OnTerminal, InWindow };  // what opening has to tell

    explicit OpenBooks(const std::string& folder, Boxes boxes = Boxes::OnTerminal);
    ~OpenBooks() noexcept(false);
    OpenBooks(const OpenBooks&) = delete;
    OpenBooks& operator=(const OpenBooks&) = delete;
    qm::clQm& Host() { return host_; }
    void Close();  // before a success is told

  private:
    int failures_;  // that were on their way at the beginning
    qm::clQm host_;
};

}  // namespace host
