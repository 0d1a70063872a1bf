#pragma once

#include <filesystem>

#include <stdlib.h>

// A fresh folder of a test's own, gone when the test ends.
class TempFolder {
  public:
    TempFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "qm-XXXXXX").string();
        if (!mkdtemp(name.data())) abort();
        path_ = name;
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    operator const std::filesystem::path&() const { return path_; }
    std::filesystem::path operator/(const std::filesystem::path& name) const { return path_ / name; }
    bool IsEmpty() const { return std::filesystem::is_empty(path_); }

  private:
    std::filesystem::path path_;
};
