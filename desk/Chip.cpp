#include "desk/Chip.h"

#include <QStyle>
#include <utility>

namespace desk {

Chip::Chip(const QString& name, const QString& caption, std::function<void(QMenu&)> fill)
    : caption_(caption) {
    auto* const menu = new QMenu(this);
    setObjectName("chip");
    menu->setObjectName(name);
    setPopupMode(QToolButton::InstantPopup);
    setMenu(menu);
    connect(menu, &QMenu::aboutToShow, this, [menu, fill = std::move(fill)] {
        menu->clear();
        fill(*menu);
    });
    SetValue({});
}

void Chip::SetValue(const QString& value) {
    const QString plain = QString(caption_).remove('&');
    setText((value.isEmpty() ? caption_ : QString(value).replace('&', "&&")) + QString::fromUtf8(" \u25BE"));
    setAccessibleName(value.isEmpty() ? plain : plain + ": " + value);
    setProperty("set", !value.isEmpty());
    style()->unpolish(this);
    style()->polish(this);
    // The letter goes on working where the caption has given way to the value.
    setShortcut(QKeySequence::mnemonic(caption_));
}

ChoiceChip::ChoiceChip(const QString& name, const QString& caption, QStringList choices,
                       std::function<void()> changed)
    : Chip(name, caption,
           [this](QMenu& menu) {
               for (int choice = 0; choice < choices_.size(); ++choice) {
                   QAction* const action = menu.addAction(choices_[choice], this, [this, choice] {
                       Choose(choice);
                       changed_();
                   });
                   action->setCheckable(true);
                   action->setChecked(choice == choice_);
                   action->setEnabled(!forbidden_.contains(choice));
               }
           }),
      choices_(std::move(choices)),
      changed_(std::move(changed)) {}

void ChoiceChip::Choose(int choice) {
    choice_ = choice;
    SetValue(choice == 0 ? QString() : QString(choices_[choice]).remove('&'));
}

}  // namespace desk
