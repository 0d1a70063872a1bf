#include "desk/RowKeeper.h"

#include <QScrollBar>
#include <QTreeView>
#include <algorithm>
#include <utility>

namespace desk {
namespace {

constexpr std::size_t Near = 100, OpenAtFirst = 60;  // rows

}  // namespace

QModelIndex RowKeeper::IndexOf(std::size_t row) const {
    return model_.IndexOf(model_.Sheet()->ShownRow(row));
}

std::optional<std::size_t> RowKeeper::Current() const {
    const QModelIndex index = view_.currentIndex();
    if (!index.isValid() || !model_.Sheet()) return std::nullopt;
    return model_.Sheet()->RowOf(model_.RowOf(index));
}

void RowKeeper::SetCurrent(std::size_t row) {
    const QModelIndex index = IndexOf(row);
    view_.setCurrentIndex(index);
    view_.scrollTo(index);
}

// At once: a sheet that reads by window may tell other rows when the books have changed.
void RowKeeper::Remember() {
    if (const auto row = Current(); row && KeyOf) key_ = KeyOf(Sheet(), *row);
}

RowKeeper::Place RowKeeper::Where() const {
    Place place;
    place.Open = OpenHeads();
    const auto row = Current();
    if (!row) return place;
    place.Row = *row;
    place.Key = key_;
    const QRect line = view_.visualRect(view_.currentIndex());
    place.Above = line.top() / std::max(1, line.height());
    return place;
}

void RowKeeper::Return(const Place& place) {
    const std::size_t rows = Sheet().Rows();
    if (rows == 0) return;
    OpenAgain(place);
    SetCurrent(Find(place).value_or(std::min(place.Row, rows - 1)));
    const QRect now = view_.visualRect(view_.currentIndex());
    const int moved = now.top() / std::max(1, now.height()) - place.Above;
    view_.verticalScrollBar()->setValue(view_.verticalScrollBar()->value() + moved);
}

std::optional<std::size_t> RowKeeper::Find(const Place& place) const {
    const std::size_t rows = Sheet().Rows();
    if (!KeyOf || !place.Key.isValid())
        return rows == 0 ? std::nullopt : std::optional(std::min(place.Row, rows - 1));
    const auto among = [&](std::size_t from, std::size_t upto) -> std::optional<std::size_t> {
        for (std::size_t row = from; row < upto; ++row)
            if (KeyOf(Sheet(), row) == place.Key) return row;
        return std::nullopt;
    };
    // Near where it was, as a rule: a sheet that reads by window would have to look through all its rows.
    if (const auto row = among(place.Row - std::min(place.Row, Near), std::min(rows, place.Row + Near)))
        return row;
    return PlaceOf ? PlaceOf(Sheet(), place.Key) : among(0, rows);
}

QSet<QString> RowKeeper::OpenHeads() const {
    QSet<QString> open;
    const auto* const tree = qobject_cast<QTreeView*>(&view_);
    if (!tree || !KeyOf || !model_.Sheet()) return open;
    for (std::size_t row = 0; row < Sheet().Rows(); ++row)
        if (tree->isExpanded(IndexOf(row))) open += KeyOf(Sheet(), row).toString();
    return open;
}

// At first a short tree is open, and a long one shows its heads.
void RowKeeper::OpenAgain(const Place& place) {
    auto* const tree = qobject_cast<QTreeView*>(&view_);
    if (!tree) return;
    if (std::exchange(isFirst_, false)) {
        if (Sheet().Rows() <= OpenAtFirst) tree->expandAll();
        return;
    }
    if (!KeyOf) return;
    for (std::size_t row = 0; row < Sheet().Rows(); ++row)
        if (place.Open.contains(KeyOf(Sheet(), row).toString())) tree->setExpanded(IndexOf(row), true);
}

}  // namespace desk
