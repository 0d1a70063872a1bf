#include "platform/forms/controls/Label.h"

#include <QIcon>
#include <QMouseEvent>

#include "platform/forms/controls/Text.h"

namespace forms {
namespace {

constexpr const char* PictureProperty = "picture";

}  // namespace

Label::Label(QWidget* parent) : QLabel(parent), Control(this, Focus::Never), Click(this), MouseMove(this) {
    setTextFormat(Qt::PlainText);
    setMouseTracking(true);
}

std::string Label::Caption() const {
    return FromQt(text());
}
void Label::SetCaption(const std::string& caption) {
    setText(ToQt(caption));
}
unsigned Label::ForeColor() const {
    return FromColor(palette().color(QPalette::WindowText));
}

void Label::SetForeColor(unsigned colour) {
    QPalette colours = palette();
    colours.setColor(QPalette::WindowText, ToColor(colour));
    setPalette(colours);
}

void Label::mousePressEvent(QMouseEvent* event) {
    QLabel::mousePressEvent(event);
    if (Click) event->accept();  // it does not drag the form then
}

void Label::mouseReleaseEvent(QMouseEvent* event) {
    QLabel::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) Click.Fire();
}

void Label::mouseMoveEvent(QMouseEvent* event) {
    QLabel::mouseMoveEvent(event);
    if (!MouseMove) return;
    event->accept();  // it is not the form's then
    MouseMove.Fire();
}

Frame::Frame(QWidget* parent) : QGroupBox(parent), Control(this, Focus::Never) {
    setMouseTracking(true);
}
std::string Frame::Caption() const {
    return FromQt(title());
}
void Frame::SetCaption(const std::string& caption) {
    setTitle(ToQt(caption));
}

PictureBox::PictureBox(QWidget* parent)
    : QLabel(parent), Control(this, Focus::Never), MouseDown(this), MouseMove(this), MouseUp(this) {}

std::string PictureBox::Picture() const {
    return FromQt(property(PictureProperty).toString());
}

void PictureBox::FireMouse(const Event<int, int, int>& what, const QMouseEvent& event) {
    const QPoint place = event.position().toPoint();
    const int button = event.buttons() & Qt::RightButton || event.button() == Qt::RightButton ? 2 : 1;
    what.Fire(button, TwipsFromPixels(place.x(), this), TwipsFromPixels(place.y(), this));
}

void PictureBox::mousePressEvent(QMouseEvent* event) {
    FireMouse(MouseDown, *event);
}
void PictureBox::mouseMoveEvent(QMouseEvent* event) {
    FireMouse(MouseMove, *event);
}
void PictureBox::mouseReleaseEvent(QMouseEvent* event) {
    FireMouse(MouseUp, *event);
}

}  // namespace forms
