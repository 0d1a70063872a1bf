#pragma once

#include <QCoreApplication>
#include <QKeySequence>
#include <QObject>
#include <QString>
#include <functional>

class QMenu;
class QWidget;

namespace desk {

class Desk;

// What works wherever the desk is: each command by its key, in a text box too, and some in the head's menu.
class Commands : public QObject {
    Q_DECLARE_TR_FUNCTIONS(desk::Commands)

  public:
    Commands(QWidget& window, Desk& desk, QMenu& menu);

    // What `act` raises is told in the bar. Without a caption there is no line in the menu.
    void Add(const QKeySequence& key, std::function<void()> act, const QString& caption = {});
    void AddRoads();  // to each page and screen, and back
    void AddLooks();  // the choice of colours, in the menu alone

  private:
    bool eventFilter(QObject* object, QEvent* event) override;

    QWidget& window_;
    Desk& desk_;
    QMenu& menu_;
};

}  // namespace desk
