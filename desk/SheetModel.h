#pragma once

#include <QAbstractItemModel>
#include <exception>
#include <functional>
#include <memory>
#include <vector>

#include "desk/ShownSheet.h"

namespace desk {

// A sheet behind the toolkit's views, as a list or as a tree by the levels of its rows. Nothing is kept of
// its cells: a sheet that reads by window is read as it is painted.
class SheetModel : public QAbstractItemModel {
  public:
    enum class Shape { Table, Tree };
    static constexpr int CellRole = Qt::UserRole;  // the text without groups, as other programs read it

    // A row that cannot be read shows empty cells; `failed` hears why.
    SheetModel(Shape shape, std::function<void(std::exception_ptr)> failed);

    void Set(std::shared_ptr<const ShownSheet> sheet);
    const ShownSheet* Sheet() const { return sheet_.get(); }
    std::size_t RowOf(const QModelIndex& index) const { return index.internalId(); }  // among those shown
    QModelIndex IndexOf(std::size_t row) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    static constexpr std::size_t None = static_cast<std::size_t>(-1);
    struct Node {
        std::size_t Head = None;
        int Place = 0;  // among those below its head
        std::vector<std::size_t> Below;
    };
    const std::vector<std::size_t>* BelowOf(const QModelIndex& parent) const;  // null: none
    QVariant Text(std::size_t row, std::size_t column, int role) const;

    Shape shape_;
    std::function<void(std::exception_ptr)> failed_;
    std::shared_ptr<const ShownSheet> sheet_;
    std::vector<Node> nodes_;  // of a tree
    std::vector<std::size_t> top_;
};

}  // namespace desk
