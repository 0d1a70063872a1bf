#include "desk/Translations.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

namespace desk {

void LoadTranslations() {
    constexpr const char* name = "deskTranslation";
    QCoreApplication& application = *QCoreApplication::instance();
    if (application.findChild<QTranslator*>(name)) return;
    for (const QLocale& language : {QLocale(QLocale::English), QLocale()}) {
        auto* const texts = new QTranslator(&application);
        texts->setObjectName(name);
        if (texts->load(language, "desk", "_", ":/desk/translations")) application.installTranslator(texts);
    }
}

}  // namespace desk
