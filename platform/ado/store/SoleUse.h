#pragma once

#include <string>
#include <utility>

#include <sys/types.h>

namespace ado {

using FileId = std::pair<dev_t, ino_t>;
FileId IdOf(const std::string& path);  // {0, 0} where nothing stands

// Tells the rest of this process that it has the file open, while it lives.
class OwnUse {
  public:
    explicit OwnUse(FileId file);
    ~OwnUse();
    OwnUse(const OwnUse&) = delete;
    OwnUse& operator=(const OwnUse&) = delete;

  private:
    FileId file_;
};

// Keeps every program out of a store while it lives, this one included, by the very lock with which the
// library finds out that it is the first to open the store. It waits for nobody.
class SoleUse {
  public:
    explicit SoleUse(const std::string& path);  // of the store, which stands
    ~SoleUse();
    SoleUse(const SoleUse&) = delete;
    SoleUse& operator=(const SoleUse&) = delete;

    bool Held() const { return handle_ >= 0; }  // False: somebody has it open, or nobody may write beside it

  private:
    int handle_ = -1;
};

}  // namespace ado
