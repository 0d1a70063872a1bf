#include "desk/RecentBooks.h"

#include "desk/Settings.h"

namespace desk {
namespace {

constexpr const char* Key = "recent";

}  // namespace

QStringList RecentBooks::All() {
    return Settings().value(Key).toStringList();
}

void RecentBooks::Add(const QString& place) {
    QStringList all = All();
    all.removeAll(place);
    all.prepend(place);
    Settings().setValue(Key, all.mid(0, Most));
}

}  // namespace desk
