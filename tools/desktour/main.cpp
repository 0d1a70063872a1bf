// Draws every page of the desk into a folder, light and dark: "desk-overview@100.png",
// "desk-overview-dark@100.png".
#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>
#include <cstdio>
#include <exception>

#include "desk/Theme.h"
#include "tools/desktour/DeskTour.h"

namespace {

namespace fs = std::filesystem;

// With settings of its own, so that what a user chose neither shows nor changes.
void Draw(const fs::path& to, const QSize& size, desk::Theme::Choice look) {
    const QTemporaryDir folder;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.filePath("settings"));
    desk::Theme::Choose(look);
    qputenv("HOME", folder.path().toUtf8());  // the place of the books is seen
    const tour::DeskTour desks(folder.path().toStdString());
    desk::DeskWindow window;
    window.resize(size);
    window.show();
    window.activateWindow();
    desks.Walk(window, [&](const std::string& name, QWidget& shown) {
        const std::string file = "desk-" + name + (look == desk::Theme::Choice::Dark ? "-dark" : "") + '@' +
                                 std::to_string(qRound(window.devicePixelRatioF() * 100)) + ".png";
        if (!shown.grab().save(QString::fromStdString((to / file).string()), "PNG", 0))
            throw std::runtime_error("cannot write " + (to / file).string());
    });
}

}  // namespace

extern "C" void qmAttachScreens();

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    int width = 1280, height = 800;
    if (argc < 2 || (argc > 2 && std::sscanf(argv[2], "%dx%d", &width, &height) != 2)) {
        std::fputs("usage: deskpictures FOLDER [WIDTHxHEIGHT]\n", stderr);
        return 2;
    }
    try {
        qmAttachScreens();
        const fs::path to = fs::absolute(argv[1]);
        fs::create_directories(to);
        for (const auto look : {desk::Theme::Choice::Light, desk::Theme::Choice::Dark})
            Draw(to, {width, height}, look);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "deskpictures: %s\n", error.what());
        return 1;
    }
}
