#include "platform/forms/controls/Control.h"

#include <QColor>
#include <QPalette>
#include <QStyle>
#include <cmath>

#include "platform/forms/controls/ControlWindow.h"
#include "platform/forms/controls/Text.h"

namespace forms {
namespace {

constexpr int TwipsPerInch = 1440;

}  // namespace

// The mouse never moves the focus by itself: the event filter does, so that Validate can hold it.
Control::Control(QWidget* widget, Focus focus)
    : GotFocus(widget), LostFocus(widget), Validate(widget), widget_(widget), focus_(focus) {
    widget->setFocusPolicy(focus == Focus::Takes ? Qt::TabFocus : Qt::NoFocus);
}

std::string Control::Name() const {
    return FromQt(widget_->objectName());
}
bool Control::Enabled() const {
    return widget_->isEnabledTo(widget_->parentWidget());
}
void Control::SetEnabled(bool enabled) {
    widget_->setEnabled(enabled);
}
bool Control::Visible() const {
    return !widget_->isHidden();
}
void Control::SetVisible(bool visible) {
    widget_->setVisible(visible);
}
std::string Control::ToolTipText() const {
    return FromQt(widget_->toolTip());
}
void Control::SetToolTipText(const std::string& text) {
    widget_->setToolTip(ToQt(text));
}

int Control::Left() const {
    return TwipsFromPixels(widget_->x(), widget_);
}
int Control::Top() const {
    return TwipsFromPixels(widget_->y(), widget_);
}
int Control::Width() const {
    return TwipsFromPixels(widget_->width(), widget_);
}
int Control::Height() const {
    return TwipsFromPixels(widget_->height(), widget_);
}
void Control::Move(int left, int top, int width, int height) {
    const auto pixels = [this](int twips) { return PixelsFromTwips(twips, widget_); };
    widget_->setGeometry(pixels(left), pixels(top), pixels(width), pixels(height));
}

void Control::SetFocus() {
    ControlWindow* const window = ControlWindow::Of(widget_);
    if (!window) return;
    if (window->Active() == this) StartOver();
    window->MoveFocus(*this);
}

void Control::Restyle() {
    widget_->style()->unpolish(widget_);
    widget_->style()->polish(widget_);
}

Control* Control::Of(QWidget* widget) {
    for (; widget; widget = widget->parentWidget())
        if (auto* control = dynamic_cast<Control*>(widget)) return control;
    return nullptr;
}

int PixelsFromTwips(int twips, const QWidget* widget) {
    return static_cast<int>(std::lround(twips * widget->logicalDpiX() / double{TwipsPerInch}));
}

int TwipsFromPixels(int pixels, const QWidget* widget) {
    return static_cast<int>(std::lround(pixels * double{TwipsPerInch} / widget->logicalDpiX()));
}

QColor ToColor(unsigned colour) {
    if (colour == vbHighlight) return QPalette().color(QPalette::Highlight);
    return QColor(static_cast<int>(colour & 0xFF), static_cast<int>(colour >> 8 & 0xFF),
                  static_cast<int>(colour >> 16 & 0xFF));
}

unsigned FromColor(const QColor& colour) {
    return static_cast<unsigned>(colour.red() | colour.green() << 8 | colour.blue() << 16);
}

}  // namespace forms
