#include "purchasing/OrderReceiptGrid.h"

#include "core/Boxes.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "shell/EntryChecks.h"

namespace qm {
namespace {

constexpr int HeadingHeight = 500;  // twips

}  // namespace

void OrderReceiptGrid::Prepare() const {
    grid_->SetCols(Columns);
    grid_->SetCol(QtyCol);  // the first that is entered
    grid_->SetEditable(true);
}

void OrderReceiptGrid::Setup(bool isNew) const {
    grid_->SetRows(1);
    const ItemHeading headings[] = {{.Text = "", .Hidden = true},
                                    {"Item\r\nCode", 700},
                                    {"Item\r\nName", 2500},
                                    {.Text = "Unit\r\nRate", .Width = 1200, .Figures = true},
                                    {.Text = "Qty.\r\nOrdered", .Width = 1300, .Figures = true},
                                    {.Text = "Qty. Prev.\r\nReceived", .Width = 1400, .Figures = true},
                                    {.Text = "Qty.\r\nReceived", .Width = 1300, .Figures = true},
                                    {"Remarks", 2600}};
    SetHeadings(headings);
    grid_->SetRowHeight(0, HeadingHeight);
    grid_->SetColHidden(PreviousCol, !isNew);
}

void OrderReceiptGrid::BeforeEdit(int row, int col, bool& cancel) const {
    cancel = IsInFooter(*grid_, row) || (col != QtyCol && col != NoteCol) ||
             (col == QtyCol && Outstanding(row) == 0) || (col == NoteCol && Received(row) == 0);
    LimitLength(col);
}

void OrderReceiptGrid::ValidateEdit(int row, int col, bool& cancel) const {
    const std::string text = basic::Trim(grid_->EditText());
    if (col != QtyCol || text.empty()) return;
    if (!IsQuantity(text, "Please enter valid numeric quantity")) {
        cancel = true;
    } else if (Outstanding(row) < basic::PrefixValue(text)) {
        Tell("Quantity received cannot be more than '" + basic::NumberText(Outstanding(row)) + "'");
        cancel = true;
    }
}

}  // namespace qm
