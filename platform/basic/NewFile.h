#pragma once

#include <filesystem>
#include <functional>
#include <ostream>
#include <string>

namespace basic {

// A file that is put together beside its place, in a folder of its own that only the user can enter, and gets
// its name only when it is whole: until then, and where anything fails, what bore the name stands unchanged.
class NewFile {
  public:
    // Raises 5 with the system's reason where the file's folder is missing or cannot be written, and where a
    // device or a pipe bears the name.
    explicit NewFile(std::filesystem::path file);
    ~NewFile();  // takes away what was not published
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    const std::filesystem::path& Staging() const { return staging_; }  // where it is put together
    std::filesystem::path PassingFolder() const { return staging_.parent_path(); }

    // Takes the name, over what bore it, and is on the disk when this returns. Raises 5 with the system's
    // reason.
    void Publish();

  private:
    std::filesystem::path file_, staging_;
};

// Writes a text into such a file and publishes it. Raises as NewFile, what `write` raises, and 5 where not
// all of it could be written.
void WriteNewFile(const std::filesystem::path& file, const std::function<void(std::ostream&)>& write);

// Writes to a stream that stands and flushes it; `name` is what a failure calls it. Raises what `write`
// raises, and 5 with the system's reason where not all of it could be written.
void WriteWhole(std::ostream& out, const std::string& name, const std::function<void(std::ostream&)>& write);

}  // namespace basic
