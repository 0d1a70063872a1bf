#include "inventory/BillFooter.h"

#include "core/Masks.h"
#include "platform/basic/Format.h"

namespace qm {
namespace {

constexpr int LabelCol = 4, TotalCol = 5;
constexpr int RuleHeight = 50;  // twips

}  // namespace

void AddFooter(forms::VSFlexGrid& grid) {
    grid.SetRows(grid.Rows() + FooterRows);
    const int total = grid.Rows() - 1, rule = total - 1;
    grid.SetRowHeight(rule, RuleHeight);
    grid.SetCellBackColor(rule, 1, rule, grid.Cols() - 1, forms::vbRed);
    grid.SetTextMatrix(total, LabelCol, "Bill Total = ");
    grid.SetCellFontBold(total, LabelCol, total, LabelCol, true);
    grid.SetCellFontItalic(total, LabelCol, total, LabelCol, true);
    grid.SetCellForeColor(total, LabelCol, total, LabelCol, forms::vbRed);
}

bool IsInFooter(const forms::VSFlexGrid& grid, int row) {
    return row >= grid.Rows() - FooterRows;
}

double ShowGridTotal(forms::VSFlexGrid& grid, int qtyCol, int priceCol) {
    double sum = 0;
    for (int row = 1; !IsInFooter(grid, row); ++row)
        sum += grid.ValueMatrix(row, qtyCol) * grid.ValueMatrix(row, priceCol);
    grid.SetTextMatrix(grid.Rows() - 1, TotalCol, sum == 0 ? "" : "Rs. " + basic::Format(sum, AmountMask));
    grid.AutoSize(LabelCol, LabelCol);
    return sum;
}

}  // namespace qm
