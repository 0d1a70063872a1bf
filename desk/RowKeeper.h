#pragma once

#include <QSet>
#include <QVariant>
#include <functional>
#include <optional>

#include "desk/SheetModel.h"

class QAbstractItemView;

namespace desk {

// Keeps the row of a view, its height in the window and the open heads of a tree, while another answer comes
// behind the view.
class RowKeeper {
  public:
    // Where the view stands.
    struct Place {
        QVariant Key;
        std::size_t Row = 0;
        int Above = 0;       // lines of the window over it
        QSet<QString> Open;  // heads of a tree
    };

    RowKeeper(QAbstractItemView& view, const SheetModel& model) : view_(view), model_(model) {}

    // What names a row, so that it is found again in a later answer; and, where the sheet can tell, where it
    // stands there. Without them a row keeps its number. Each may raise what reading raises.
    std::function<QVariant(const queries::Sheet&, std::size_t row)> KeyOf;
    std::function<std::optional<std::size_t>(const queries::Sheet&, const QVariant& key)> PlaceOf;

    std::optional<std::size_t> Current() const;  // of the sheet, whatever the order
    void SetCurrent(std::size_t row);
    void Remember();  // the name of the row that was just chosen
    Place Where() const;
    // To the same row at the same height; to one near it where it is gone. Raises what reading raises.
    void Return(const Place& place);

  private:
    const queries::Sheet& Sheet() const { return model_.Sheet()->Of(); }
    QModelIndex IndexOf(std::size_t row) const;
    QSet<QString> OpenHeads() const;
    void OpenAgain(const Place& place);
    std::optional<std::size_t> Find(const Place& place) const;

    QAbstractItemView& view_;
    const SheetModel& model_;
    QVariant key_;  // of the row that is chosen, as it was when it was chosen
    bool isFirst_ = true;
};

}  // namespace desk
