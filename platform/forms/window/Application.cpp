#include "platform/forms/window/Application.h"

#include <QApplication>
#include <QCursor>
#include <QLoggingCategory>
#include <QThread>
#include <clocale>

#include "platform/basic/Error.h"
#include "platform/forms/window/Display.h"
#include "platform/forms/window/Style.h"

namespace forms {
namespace {

// "Can't create object": the number for a part that cannot start here.
constexpr std::int32_t NoWindows = 429;

[[noreturn]] void Refuse(const char* why) {
    throw basic::Error(NoWindows, why, "forms.Application");
}

// Never destroyed: windows and their style may be in use until the process ends.
void MakeApplication() {
    static int argc = 1;
    static char name[] = "qmhost";  // the desktop finds the program's entry and icon by it
    static char* argv[] = {name, nullptr};
    new QApplication(argc, argv);
    // It takes the user's comma for the whole process; the libraries below write their figures with a point.
    std::setlocale(LC_NUMERIC, "C");
    QApplication::setApplicationName(name);
    QApplication::setDesktopFileName(name);
    QApplication::setQuitOnLastWindowClosed(false);
    Style::SetForApplication();
}

int screenPointer = vbDefault;

}  // namespace

bool DisplayAvailable() {
    const QCoreApplication* running = QCoreApplication::instance();
    return running ? qobject_cast<const QApplication*>(running) != nullptr : DisplayAnswers();
}

// The platform that draws to memory tells at each window what it cannot do, and none of it matters there.
void DrawToMemory() {
    if (QCoreApplication::instance() || qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) return;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QLoggingCategory::setFilterRules("default.warning=false");
}

void EnsureApplication() {
    if (!QCoreApplication::instance()) {
        if (!DisplayAnswers())
            Refuse(
                "The screens cannot be shown: there is no display. Start the program where DISPLAY or "
                "WAYLAND_DISPLAY "
                "names one that answers.");
        MakeApplication();
    }
    if (!qobject_cast<QApplication*>(QCoreApplication::instance()))
        Refuse("The screens cannot be shown: the host runs an application without windows.");
    if (QThread::currentThread() != QCoreApplication::instance()->thread())
        Refuse("The screens can be shown only on the thread that runs the application's windows.");
}

bool ApplicationStands() {
    return QCoreApplication::instance() != nullptr;
}

void SetMousePointer(int pointer) {
    if (pointer == screenPointer) return;
    screenPointer = pointer;
    if (pointer == vbHourglass) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
        QApplication::restoreOverrideCursor();
    }
}

WaitPointer::WaitPointer() : before_(screenPointer) {
    SetMousePointer(vbHourglass);
}
WaitPointer::~WaitPointer() {
    SetMousePointer(before_);
}

PointerPause::PointerPause() : before_(screenPointer) {
    SetMousePointer(vbDefault);
}
PointerPause::~PointerPause() {
    SetMousePointer(before_);
}

}  // namespace forms
