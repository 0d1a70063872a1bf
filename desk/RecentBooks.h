#pragma once

#include <QStringList>

namespace desk {

// The books that this user opened or copied to last, the latest first, by their whole addresses.
class RecentBooks {
  public:
    static constexpr int Most = 8;

    static QStringList All();
    static void Add(const QString& place);
};

}  // namespace desk
