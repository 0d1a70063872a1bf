#pragma once

#include <filesystem>

namespace host {

// A folder for passing use that only its owner can enter; it goes with this object and all that is in it.
class PassingFolder {
  public:
    PassingFolder();  // raises basic::Error where none can be made
    ~PassingFolder();
    PassingFolder(const PassingFolder&) = delete;
    PassingFolder& operator=(const PassingFolder&) = delete;
    const std::filesystem::path& Path() const { return path_; }

  private:
    std::filesystem::path path_;
};

}  // namespace host
