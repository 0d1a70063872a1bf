#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace host {

// The folder in which a new file is to stand, made if it is missing, with a staging folder inside where the
// file is put together. Until Publish has run, the destructor takes away everything that this object made;
// what one that was killed left behind is taken away by the next in the same folder.
class BooksFolder {
  public:
    enum class Taken { Refuse, SetAside };  // what happens to a file that bears the name already

    // Raises basic::Error where the folder holds such a file already and it is not to be set aside, or where
    // the folder cannot be made or written.
    BooksFolder(std::filesystem::path folder, std::string file, Taken taken = Taken::Refuse);
    ~BooksFolder();
    BooksFolder(const BooksFolder&) = delete;
    BooksFolder& operator=(const BooksFolder&) = delete;

    const std::filesystem::path& Staging() const { return staging_; }

    // Moves the complete file from the staging folder to its place, on disk when this returns; never over
    // another file. What stood under its name, and a log without its books, is given a dated name. Raises,
    // too, where a log stands beside the complete file: it was not closed in order.
    void Publish();
    const std::vector<std::filesystem::path>& SetAside() const { return setAside_; }  // the dated names

  private:
    void MakeFolder();
    void SweepStagings() const;
    void MakeStaging();
    void MakeRoom();
    void Undo() noexcept;

    std::filesystem::path folder_, target_, staging_;
    std::vector<std::filesystem::path> made_;  // folders, outermost first
    std::vector<std::filesystem::path> setAside_;
    std::string file_;
    Taken taken_;
    int lock_ = -1;  // on the staging folder: its maker lives
};

}  // namespace host
