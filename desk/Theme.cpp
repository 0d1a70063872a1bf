#include "desk/Theme.h"

#include <QApplication>
#include <QFile>
#include <QFontMetrics>
#include <QPalette>
#include <QWidget>
#include <utility>

#include "desk/Settings.h"

namespace desk {
namespace {

constexpr const char* Key = "colours";

const Colours& Light() {
    static const Colours colours{.dark = false,
                                 .ink = 0x1F2A33,
                                 .faint = 0x5B6873,
                                 .paper = 0xFFFFFF,
                                 .ground = 0xF4F6F7,
                                 .line = 0xD9DFE4,
                                 .accent = 0x2B6A94,
                                 .onAccent = 0xFFFFFF,
                                 .chosen = 0xDCEAF3,
                                 .warning = 0xFFF3D6,
                                 .warningInk = 0x5C4300,
                                 .fault = 0xFBE4E1,
                                 .faultInk = 0x84190E};
    return colours;
}

const Colours& Dark() {
    static const Colours colours{.dark = true,
                                 .ink = 0xE3E8EC,
                                 .faint = 0x9AA7B1,
                                 .paper = 0x1D2328,
                                 .ground = 0x15191D,
                                 .line = 0x343E46,
                                 .accent = 0x74B4DE,
                                 .onAccent = 0x0E1519,
                                 .chosen = 0x24394A,
                                 .warning = 0x3B3015,
                                 .warningInk = 0xF3D58F,
                                 .fault = 0x45231F,
                                 .faultInk = 0xF6BAB1};
    return colours;
}

QPalette Palette(const Colours& c) {
    QPalette palette;
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText,
                            QPalette::BrightText, QPalette::HighlightedText})
        palette.setColor(role, c.ink);
    for (const auto role : {QPalette::Window, QPalette::AlternateBase}) palette.setColor(role, c.ground);
    for (const auto role : {QPalette::Base, QPalette::Button, QPalette::ToolTipBase, QPalette::Light})
        palette.setColor(role, c.paper);
    for (const auto role : {QPalette::Mid, QPalette::Midlight, QPalette::Dark})
        palette.setColor(role, c.line);
    palette.setColor(QPalette::Highlight, c.chosen);
    palette.setColor(QPalette::Link, c.accent);
    palette.setColor(QPalette::PlaceholderText, c.faint);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, c.faint);
    return palette;
}

// The sheet names colours by their role: "@line".
QString Sheet(const Colours& c) {
    QFile file(":/desk/desk.qss");
    if (!file.open(QIODevice::ReadOnly)) return {};
    QString sheet = QString::fromUtf8(file.readAll());
    const std::pair<const char*, QColor> roles[] = {
        {"@ink", c.ink},           {"@faint", c.faint},   {"@paper", c.paper},
        {"@ground", c.ground},     {"@line", c.line},     {"@accent", c.accent},
        {"@onAccent", c.onAccent}, {"@chosen", c.chosen}, {"@warningInk", c.warningInk},
        {"@warning", c.warning},   {"@fault", c.fault}};
    sheet.replace("@look", c.dark ? "dark" : "light");
    sheet.replace("@onAccent", c.onAccent.name());  // before those that begin alike
    sheet.replace("@faultInk", c.faultInk.name());
    for (const auto& [role, colour] : roles) sheet.replace(role, colour.name());
    return sheet;
}

bool systemIsDark = false;

bool DigitsAreEven(const QFont& font) {
    const QFontMetrics metrics(font);
    for (const char digit : {'0', '2', '3', '4', '5', '6', '7', '8', '9'})
        if (metrics.horizontalAdvance(QLatin1Char(digit)) != metrics.horizontalAdvance(QLatin1Char('1')))
            return false;
    return true;
}

}  // namespace

Theme::Choice Theme::Chosen() {
    return static_cast<Choice>(Settings().value(Key, 0).toInt());
}

void Theme::Choose(Choice choice) {
    Settings().setValue(Key, static_cast<int>(choice));
}

const Colours& Theme::Now() {
    const Choice choice = Chosen();
    return choice == Choice::Dark || (choice == Choice::System && systemIsDark) ? Dark() : Light();
}

void Theme::Apply(QWidget& window) {
    const Colours& colours = Now();
    window.setPalette(Palette(colours));
    window.setStyleSheet(Sheet(colours));
}

// The application bears the colours of the module's screens, which lie over those of the system.
void Theme::ReadSystem() {
    const QPalette ours = QApplication::palette();
    QApplication::setPalette(QPalette());
    systemIsDark = QApplication::palette().color(QPalette::Window).lightness() < 128;
    QApplication::setPalette(ours);
}

QFont Theme::Figures(const QFont& font) {
    if (DigitsAreEven(font)) return font;
    QFont even = font;
    even.setFamily("DejaVu Sans");
    return even;
}

}  // namespace desk
