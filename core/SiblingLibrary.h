#pragma once

#include <string>

namespace qm {

// A library that stands beside libqmcls.so and is loaded when it is first asked for, never unloaded: the
// toolkit does not survive that.
class SiblingLibrary {
  public:
    // Its file, and what it holds, as an error tells it: "The screens".
    SiblingLibrary(std::string file, std::string what);

    // The routine of that name; null where the library cannot be loaded or lacks it.
    template <class Routine>
    Routine* Find(const char* name) {
        return reinterpret_cast<Routine*>(Symbol(name));
    }
    // The same, but raises 48 "... cannot be loaded" instead of null.
    template <class Routine>
    Routine* Need(const char* name) {
        auto* const routine = Find<Routine>(name);
        if (routine == nullptr) RaiseMissing();
        return routine;
    }

  private:
    void* Symbol(const char* name);
    [[noreturn]] void RaiseMissing() const;

    std::string file_, what_;
    void* library_ = nullptr;
    bool tried_ = false;
};

}  // namespace qm
