#include "desk/LastFolder.h"

#include <QDir>
#include <QFileInfo>

#include "desk/Settings.h"

namespace desk {

QString LastFolder::Path() const {
    const QString kept = Settings().value(key_).toString();
    return !kept.isEmpty() && QFileInfo(kept).isDir() ? kept : QDir::homePath();
}

void LastFolder::KeepOf(const QString& file) const {
    Keep(QFileInfo(file).absolutePath());
}

void LastFolder::Keep(const QString& folder) const {
    Settings().setValue(key_, folder);
}

}  // namespace desk
