#include "platform/forms/controls/Button.h"

#include "platform/forms/controls/Text.h"

namespace forms {

CommandButton::CommandButton(QWidget* parent)
    : QPushButton(parent), Control(this, Focus::Takes), Click(this) {
    setAutoDefault(false);  // only the button that the designer names is the default
    connect(this, &QPushButton::clicked, this, [this] { Click.Fire(); });
}

std::string CommandButton::Caption() const {
    return FromQt(text());
}
void CommandButton::SetCaption(const std::string& caption) {
    setText(ToQt(caption));
}

CheckBox::CheckBox(QWidget* parent) : QCheckBox(parent), Control(this, Focus::Takes), Click(this) {
    connect(this, &QCheckBox::toggled, this, [this] { Click.Fire(); });
}

void CheckBox::nextCheckState() {
    if (!locked_) QCheckBox::nextCheckState();
}

OptionButton::OptionButton(QWidget* parent) : QRadioButton(parent), Control(this, Focus::Takes), Click(this) {
    connect(this, &QRadioButton::toggled, this, [this](bool on) {
        fired_ = on;
        if (on) Click.Fire();
    });
    connect(this, &QRadioButton::clicked, this, [this] {
        if (!std::exchange(fired_, false)) Click.Fire();
    });
}

void OptionButton::SetValue(int value) {
    if (value == 0) setAutoExclusive(false);  // the toolkit keeps one of a group chosen otherwise
    setChecked(value != 0);
    setAutoExclusive(true);
    fired_ = false;
}

}  // namespace forms
