#pragma once

#include <QHash>
#include <QIcon>
#include <cstdint>
#include <string>

namespace forms {

inline constexpr std::int32_t ElementNotFound = 35601;

// Pictures by key, for the nodes of a tree.
class ImageList {
  public:
    // A file or a resource such as ":/forms/icons/new.svg".
    void Add(const std::string& key, const std::string& image);
    QIcon Icon(const std::string& key) const;  // raises 35601 for a key that is not there

  private:
    QHash<QString, QIcon> icons_;
};

}  // namespace forms
