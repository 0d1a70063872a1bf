#pragma once

#include <cstdint>
#include <string>

#include "platform/ado/Connection.h"

namespace qm {

// A copy of the open books, in a folder of its own, that stands in their place while pictures are drawn: what
// screens write as they open, and the order that books without one are lent, never reaches the books
// themselves. The end brings the books back and removes the copy. Raises what copying and opening raise.
class PictureBooks {
  public:
    PictureBooks();
    ~PictureBooks();
    PictureBooks(const PictureBooks&) = delete;
    PictureBooks& operator=(const PictureBooks&) = delete;

  private:
    // Made first and removed last, also where the copy fails.
    struct Folder {
        Folder();
        ~Folder();
        std::string path;  // ends in "/"
    };

    Folder folder_;
    ado::ConnectionPtr books_;
};

// The highest number in a field of a table of the current year, 0 if there is none.
std::int32_t Highest(const std::string& field, const std::string& table);

}  // namespace qm
