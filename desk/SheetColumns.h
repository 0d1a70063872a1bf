#pragma once

#include <QCoreApplication>
#include <QObject>
#include <QString>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "queries/Sheet.h"

class QHeaderView;
class QMenu;

namespace desk {

// The columns of a table: as wide as their kinds need, texts sharing the rest of the room, until the user
// chooses, moves or sizes them; that is kept for the user, under a name, for as long as the sheet has the
// same columns.
class SheetColumns : public QObject {
    Q_DECLARE_TR_FUNCTIONS(desk::SheetColumns)

  public:
    SheetColumns(QHeaderView& header, QString name);

    // Columns that are not shown until the user chooses them; set before the first Lay.
    void HideAtFirst(std::vector<std::string> names) { hidden_ = std::move(names); }
    void Lay(const queries::Sheet& sheet);  // for its columns; where they were laid before, nothing happens
    void Drop() { columns_.clear(); }       // there are none any more; the next are laid anew
    void MakeRoom(const std::vector<QString>& totals);  // for figures wider than usual
    void Fit();                                         // to the room, where the user has not sized them
    void FillMenu(QMenu& menu);               // a line for each column, and one that forgets all choices
    std::vector<std::size_t> Chosen() const;  // those that are shown, from left to right
    bool Shows(std::string_view name) const;
    std::function<void()> Showed;  // one that was hidden, because the user chose it

  private:
    QString Key() const;
    void Keep();
    void Forget();

    QHeaderView& header_;
    QString name_;
    bool IsHiddenAtFirst(int section) const;

    std::vector<queries::Column> columns_;
    std::vector<std::string> hidden_;
    std::vector<int> least_;  // pixels, for the widest total of each
    bool isOwn_ = false;      // the user has sized or moved them
    bool laying_ = false;     // what changes comes from here
};

}  // namespace desk
