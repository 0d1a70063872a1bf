#include "desk/LastBackup.h"

#include <QStringList>
#include <QUrl>

#include "desk/Settings.h"

namespace desk {
namespace {

QString KeyOf(const std::string& address) {
    return "backups/" + QString::fromLatin1(QUrl::toPercentEncoding(QString::fromStdString(address)));
}

}  // namespace

std::optional<LastBackup> LastBackup::Of(const std::string& address) {
    const QStringList kept = Settings().value(KeyOf(address)).toStringList();
    if (kept.size() != 3) return {};
    return LastBackup{kept[0], kept[1], QDateTime::fromString(kept[2], Qt::ISODate)};
}

void LastBackup::Keep(const std::string& address) const {
    Settings().setValue(KeyOf(address), QStringList{File, Figures, At.toString(Qt::ISODate)});
}

}  // namespace desk
