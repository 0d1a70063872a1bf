#pragma once

#include "platform/forms/grid/VSFlexGrid.h"

namespace qm {

// The three rows below the items of a receipt's grid: an empty one, a red rule, the total. They stand in the
// same columns on both receipt screens, whatever these hold there. Kept 55: against an order, the total's
// column is that of the quantity received before, which is hidden while a saved receipt is viewed.
inline constexpr int FooterRows = 3;

void AddFooter(forms::VSFlexGrid& grid);
bool IsInFooter(const forms::VSFlexGrid& grid, int row);

// Adds up quantity times price over the items and shows the sum in the footer, 0 as nothing. Gives the sum.
double ShowGridTotal(forms::VSFlexGrid& grid, int qtyCol, int priceCol);

}  // namespace qm
