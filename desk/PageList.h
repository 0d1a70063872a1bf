#pragma once

#include <QListWidget>

namespace desk {

// The list of pages at the left, each with the key that leads there.
class PageList : public QListWidget {
  public:
    // `go` hears of a page that the user chooses.
    PageList(QWidget* parent, std::function<void(const QString& key)> go);

    void Mark(const QString& key);  // as the one that is shown; goes nowhere
    QString Marked() const;         // "" for none
    void SetNarrow(bool narrow);    // without the keys

  private:
    std::function<void(const QString& key)> go_;
};

}  // namespace desk
