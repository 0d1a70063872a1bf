#pragma once

#include <QDateTime>
#include <QString>
#include <optional>
#include <string>

namespace desk {

// The last backup that this user made at the desk of some books. The books themselves do not know of it.
struct LastBackup {
    QString File, Figures;  // "142 lines of vouchers, debit 9,12,000.00"
    QDateTime At;

    // Of the books at an address, in place of what was kept before.
    static std::optional<LastBackup> Of(const std::string& address);
    void Keep(const std::string& address) const;
};

}  // namespace desk
