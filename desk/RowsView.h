#pragma once

#include "desk/SheetModel.h"

class QAbstractItemView;
class QHeaderView;
class QWidget;

namespace desk {

// The toolkit's view for a sheet's rows, as all of the desk look: a table or a tree, whole rows chosen, no
// cell edited. The parent owns it.
QAbstractItemView* MakeRowsView(SheetModel::Shape shape, QWidget* parent);
QHeaderView& HeaderOf(QAbstractItemView& view);  // of one of these

}  // namespace desk
