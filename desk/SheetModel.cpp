#include "desk/SheetModel.h"

#include <QFont>
#include <utility>

#include "desk/Figures.h"
#include "desk/Heads.h"
#include "queries/sheets/Cell.h"

namespace desk {

SheetModel::SheetModel(Shape shape, std::function<void(std::exception_ptr)> failed)
    : shape_(shape), failed_(std::move(failed)) {}

void SheetModel::Set(std::shared_ptr<const ShownSheet> sheet) {
    beginResetModel();
    sheet_ = std::move(sheet);
    nodes_.clear();
    top_.clear();
    if (shape_ == Shape::Tree && sheet_) {
        nodes_.resize(sheet_->Rows());
        std::vector<std::size_t> heads;
        for (std::size_t row = 0; row < nodes_.size(); ++row) {
            heads.resize(std::min(heads.size(), static_cast<std::size_t>(sheet_->Level(row))));
            nodes_[row].Head = heads.empty() ? None : heads.back();
            std::vector<std::size_t>& siblings = heads.empty() ? top_ : nodes_[heads.back()].Below;
            nodes_[row].Place = static_cast<int>(siblings.size());
            siblings.push_back(row);
            heads.push_back(row);
        }
    }
    endResetModel();
}

const std::vector<std::size_t>* SheetModel::BelowOf(const QModelIndex& parent) const {
    if (shape_ == Shape::Table) return nullptr;
    return parent.isValid() ? &nodes_[parent.internalId()].Below : &top_;
}

QModelIndex SheetModel::IndexOf(std::size_t row) const {
    if (!sheet_ || row >= sheet_->Rows()) return {};
    return createIndex(shape_ == Shape::Tree ? nodes_[row].Place : static_cast<int>(row), 0, row);
}

QModelIndex SheetModel::index(int row, int column, const QModelIndex& parent) const {
    if (!hasIndex(row, column, parent)) return {};
    const auto* const below = BelowOf(parent);
    const auto place = static_cast<std::size_t>(row);
    return createIndex(row, column, below ? (*below)[place] : place);
}

QModelIndex SheetModel::parent(const QModelIndex& index) const {
    if (shape_ == Shape::Table || !index.isValid()) return {};
    const std::size_t head = nodes_[index.internalId()].Head;
    return head == None ? QModelIndex() : createIndex(nodes_[head].Place, 0, head);
}

int SheetModel::rowCount(const QModelIndex& parent) const {
    if (!sheet_ || parent.column() > 0) return 0;
    if (const auto* const below = BelowOf(parent)) return static_cast<int>(below->size());
    return parent.isValid() ? 0 : static_cast<int>(sheet_->Rows());
}

int SheetModel::columnCount(const QModelIndex&) const {
    return sheet_ ? static_cast<int>(sheet_->Columns().size()) : 0;
}

QVariant SheetModel::Text(std::size_t row, std::size_t column, int role) const {
    try {
        const queries::Kind kind = sheet_->Columns()[column].kind;
        const basic::Value value = sheet_->At(row, column);
        return role == CellRole ? QString::fromStdString(queries::Plain(kind, value)) : CellText(kind, value);
    } catch (...) {
        failed_(std::current_exception());
        return {};
    }
}

QVariant SheetModel::data(const QModelIndex& index, int role) const {
    if (!sheet_ || !index.isValid()) return {};
    const auto column = static_cast<std::size_t>(index.column());
    switch (role) {
        case Qt::DisplayRole:
        case CellRole:
            return Text(RowOf(index), column, role);
        case Qt::TextAlignmentRole:
            return headerData(index.column(), Qt::Horizontal, role);
        case Qt::FontRole:
            if (shape_ == Shape::Tree && nodes_[RowOf(index)].Head == None) {
                QFont bold;
                bold.setBold(true);
                return bold;
            }
            return {};
        default:
            return {};
    }
}

QVariant SheetModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (!sheet_ || orientation != Qt::Horizontal) return {};
    const queries::Column& column = sheet_->Columns()[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole) return HeadOf(column);
    if (role == Qt::TextAlignmentRole)
        return static_cast<int>(Qt::AlignVCenter |
                                (queries::IsFigure(column.kind) ? Qt::AlignRight : Qt::AlignLeft));
    return {};
}

}  // namespace desk
