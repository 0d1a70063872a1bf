#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace host {

// The folder in which a new file is to stand, made if it is missing, with a staging folder inside where the
// file is put together. Until Publish has run, the destructor takes away everything that this object made.
class BooksFolder {
  public:
    // Raises basic::Error where the folder holds such a file already or cannot be made or written.
    BooksFolder(std::filesystem::path folder, std::string file);
    ~BooksFolder();
    BooksFolder(const BooksFolder&) = delete;
    BooksFolder& operator=(const BooksFolder&) = delete;

    const std::filesystem::path& Staging() const { return staging_; }

    // Moves the complete file from the staging folder to its place, on disk when this returns; never over
    // another file.
    void Publish();

  private:
    void MakeFolder();
    void MakeStaging();
    void Undo() noexcept;

    std::filesystem::path folder_, target_, staging_;
    std::vector<std::filesystem::path> made_;  // folders, outermost first
    std::string file_;
};

}  // namespace host
