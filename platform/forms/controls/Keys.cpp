#include "platform/forms/controls/Keys.h"

#include <QKeyEvent>
#include <utility>

#include "platform/forms/controls/Control.h"

namespace forms {

namespace {

constexpr int OtherKey = 255;

}  // namespace

int KeyCodeOf(const QKeyEvent& key) {
    static constexpr std::pair<int, int> others[] = {
        {Qt::Key_Backspace, 8}, {Qt::Key_Tab, 9},     {Qt::Key_Backtab, 9},   {Qt::Key_Return, 13},
        {Qt::Key_Enter, 13},    {Qt::Key_Shift, 16},  {Qt::Key_Control, 17},  {Qt::Key_Alt, 18},
        {Qt::Key_Escape, 27},   {Qt::Key_PageUp, 33}, {Qt::Key_PageDown, 34}, {Qt::Key_End, 35},
        {Qt::Key_Home, 36},     {Qt::Key_Left, 37},   {Qt::Key_Up, 38},       {Qt::Key_Right, 39},
        {Qt::Key_Down, 40},     {Qt::Key_Insert, 45}, {Qt::Key_Delete, 46}};
    const int code = key.key();
    for (const auto& [theirs, ours] : others)
        if (code == theirs) return ours;
    if (code >= Qt::Key_F1 && code <= Qt::Key_F12) return code - Qt::Key_F1 + 112;
    const bool letterOrDigit =
        (code >= Qt::Key_A && code <= Qt::Key_Z) || (code >= Qt::Key_0 && code <= Qt::Key_9);
    if (letterOrDigit || code == Qt::Key_Space) return code;
    return key.text().isEmpty() ? 0 : OtherKey;  // the codes of '.' and '%' would read as Delete and Left
}

int KeyAsciiOf(const QKeyEvent& key) {
    switch (key.key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return vbKeyReturn;
        case Qt::Key_Escape:
            return vbKeyEscape;
        case Qt::Key_Backspace:
            return vbKeyBack;
        default:
            break;
    }
    const bool control = key.modifiers() & Qt::ControlModifier;
    const bool alt = key.modifiers() & Qt::AltModifier;
    if (control != alt || key.text().isEmpty()) return 0;
    const QChar c = key.text().front();
    return c.isPrint() ? c.unicode() : 0;
}

bool OpensList(const QKeyEvent& key) {
    return key.key() == Qt::Key_F4 || (key.key() == Qt::Key_Down && key.modifiers() & Qt::AltModifier);
}

int ShiftOf(Qt::KeyboardModifiers modifiers) {
    return (modifiers & Qt::ShiftModifier ? vbShiftMask : 0) |
           (modifiers & Qt::ControlModifier ? vbCtrlMask : 0) | (modifiers & Qt::AltModifier ? vbAltMask : 0);
}

}  // namespace forms
