#include "platform/forms/window/Style.h"

#include <QApplication>
#include <QFile>
#include <QIcon>
#include <QPalette>
#include <QStyleFactory>
#include <QWidget>

static void RegisterResources() {
    Q_INIT_RESOURCE(forms);
}  // must stand outside of any namespace

namespace forms {
namespace {

QPalette Colours() {
    const QColor ink(0x1F2A33), paper(0xFFFFFF), ground(0xF4F6F7), line(0xC6CED5), accent(0x2B6A94),
        faint(0x8A97A1);
    QPalette colours;
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
        colours.setColor(role, ink);
    for (const auto role : {QPalette::Window, QPalette::AlternateBase}) colours.setColor(role, ground);
    for (const auto role : {QPalette::Base, QPalette::Button, QPalette::ToolTipBase, QPalette::Light})
        colours.setColor(role, paper);
    for (const auto role : {QPalette::Mid, QPalette::Midlight}) colours.setColor(role, line);
    colours.setColor(QPalette::Dark, faint);
    colours.setColor(QPalette::PlaceholderText, faint);
    colours.setColor(QPalette::Highlight, accent);
    colours.setColor(QPalette::HighlightedText, paper);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        colours.setColor(QPalette::Disabled, role, faint);
    colours.setColor(QPalette::Disabled, QPalette::Base, ground);
    colours.setColor(QPalette::Disabled, QPalette::Button, ground);
    colours.setColor(QPalette::Disabled, QPalette::Highlight, line);
    return colours;
}

QString Sheet() {
    RegisterResources();
    QFile file(":/forms/style.qss");
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

}  // namespace

void Style::SetForApplication() {
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QApplication::setPalette(Colours());
    RegisterResources();
    QApplication::setWindowIcon(QIcon(":/forms/icons/program.svg"));
}

void Style::Apply(QWidget& window) {
    static const QString sheet = Sheet();
    window.setPalette(Colours());
    window.setStyleSheet(sheet);
}

}  // namespace forms
