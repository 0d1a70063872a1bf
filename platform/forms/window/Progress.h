#pragma once

#include <functional>
#include <memory>
#include <string>

namespace forms {

// A wait that shows how far it is. The box appears when it has lasted half a second. While it lives, keys and
// clicks for all other windows are dropped. Cancel is for work that stopping leaves whole; anything else is
// waited for.
class Progress {
  public:
    enum class Cancel { None, Offered };
    Progress(const std::string& what, int steps, Cancel cancel = Cancel::None);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    // Says that `done` of the steps are done and keeps the box alive. False once the user has cancelled.
    bool Step(int done);
    bool Visible() const;

  private:
    class Box;
    std::unique_ptr<Box> box_;
};

}  // namespace forms
