#pragma once

#include <QAction>
#include <QFormLayout>
#include <QMenu>
#include <QString>
#include <QStringList>
#include <QToolButton>
#include <QWidgetAction>
#include <functional>

#include "desk/AtOnce.h"

namespace desk {

// A filter as a small button with a menu. One that narrows shows to what, and is coloured.
class Chip : public AtOnce<QToolButton> {
  public:
    // `name` is the menu's; the caption's letter with & opens it, whatever the chip shows.
    Chip(const QString& name, const QString& caption, std::function<void(QMenu&)> fill);
    void SetValue(const QString& value);  // "" where nothing is narrowed

  private:
    QString caption_;
};

// A chip with a few choices, of which the first narrows nothing.
class ChoiceChip : public Chip {
  public:
    // `changed` hears of each choice of the user.
    ChoiceChip(const QString& name, const QString& caption, QStringList choices,
               std::function<void()> changed);
    int Choice() const { return choice_; }             // by its place
    void Choose(int choice);                           // from elsewhere: nobody hears of it
    void Forbid(int choice) { forbidden_ << choice; }  // it stands greyed

  private:
    QStringList choices_;
    std::function<void()> changed_;
    QList<int> forbidden_;
    int choice_ = 0;
};

// A panel of boxes in a chip's menu. What it gives is triggered by Enter in a box that has no use for it.
template <class Fill>
QAction* AddForm(QMenu& menu, Fill fill) {
    auto* const panel = new QWidget(&menu);
    auto* const form = new QFormLayout(panel);
    form->setContentsMargins(12, 8, 12, 8);
    form->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    fill(*panel, *form);
    // The arrows of the menu lead into the panel's first box; what is typed goes there where it is alone.
    panel->setFocusPolicy(Qt::StrongFocus);
    panel->setFocusProxy(panel->nextInFocusChain());
    auto* const action = new QWidgetAction(&menu);
    action->setDefaultWidget(panel);
    menu.addAction(action);
    if (menu.actions().size() == 1) panel->setFocus();
    return action;
}

}  // namespace desk
