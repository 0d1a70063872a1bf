#pragma once

#include <QCoreApplication>
#include <QStackedWidget>

namespace desk {

// The room of a view's rows: they stand in it, or the words why there are none.
class SheetRoom : public QStackedWidget {
    Q_DECLARE_TR_FUNCTIONS(desk::SheetRoom)

  public:
    SheetRoom(QWidget* rows, QWidget* parent);

    void SetEmpty(const QString& title, const QString& text);  // why there may be no rows, and what to do
    void ShowRows() { Turn(rows_); }
    void ShowEmpty() { Turn(empty_); }
    void ShowUnread() { Turn(unread_); }  // the question got no answer

  private:
    void Turn(QWidget* to);

    QWidget *rows_, *empty_ = nullptr, *unread_;
};

}  // namespace desk
