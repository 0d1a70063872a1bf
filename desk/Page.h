#pragma once

#include <QPointer>
#include <QWidget>

#include "desk/Desk.h"

class QHBoxLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace desk {

// One page of the desk: a head with its title and its actions, below it what it shows. A page is made when
// it is first gone to and keeps its row, filter and scroll while others are shown.
class Page : public QWidget {
  public:
    Page(Desk& desk, const QString& title);

    QString Title() const;                          // as the head has it
    virtual QString Chapter() const { return {}; }  // of the manual, which F1 opens there; "" its first
    virtual void Refresh() {}                       // the books have changed, or the year
    void TakeFocus();                               // to where it was when the page was left
    void KeepFocus();

  protected:
    void showEvent(QShowEvent* event) override;
    virtual bool TabsAsRead() const { return true; }  // Tab goes from the head downwards, as the page is read
    Desk& desk() const { return desk_; }
    QVBoxLayout& Body() { return *body_; }
    void SetTitle(const QString& title);
    void SetSubtitle(const QString& subtitle);
    // A button at the right of the head, with a key, if any.
    QPushButton& AddAction(const QString& caption, const QKeySequence& key, std::function<void()> act);
    void AddToHead(QWidget* widget);
    void AddKey(const QKeySequence& key, std::function<void()> act);  // wherever the focus is on the page
    void SetFirstFocus(QWidget* widget) { focus_ = widget; }

  private:
    void OrderTabs();

    Desk& desk_;
    QHBoxLayout* head_;
    QVBoxLayout* body_;
    QLabel *title_, *subtitle_;
    QPointer<QWidget> focus_;
};

}  // namespace desk
