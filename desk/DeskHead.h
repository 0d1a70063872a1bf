#pragma once

#include <QCoreApplication>
#include <QFrame>
#include <functional>
#include <string>

#include "desk/SearchField.h"

class QComboBox;
class QLabel;
class QMenu;

namespace desk {

class Books;

// The head of the desk: which books these are, the year, the search field, and a menu of what seldom matters.
class DeskHead : public QFrame {
    Q_DECLARE_TR_FUNCTIONS(desk::DeskHead)

  public:
    struct Handlers {
        SearchField::Source Search;
        std::function<void()> LeaveSearch;
        std::function<void(const std::string& shortForm)>
            WantYear;  // one was chosen; nothing has changed yet
    };

    DeskHead(QWidget& window, Handlers handlers);

    void ShowBooks(Books& books);  // anew: name, place, years; empty where none are open
    SearchField& Search() { return *search_; }
    QMenu& Menu() { return *menu_; }  // empty at first

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void ElidePlace();

    QLabel *firm_, *place_;
    QComboBox* year_;
    SearchField* search_;
    QMenu* menu_;
    QString address_;
};

}  // namespace desk
