#pragma once

#include <string>

namespace host {

// The shared connection on the books of a folder without the class's start, which would begin the first year:
// for commands that look and change nothing. Closed at the end.
class ReadOnlyBooks {
  public:
    explicit ReadOnlyBooks(const std::string& folder);
    ~ReadOnlyBooks();
    ReadOnlyBooks(const ReadOnlyBooks&) = delete;
    ReadOnlyBooks& operator=(const ReadOnlyBooks&) = delete;
};

}  // namespace host
