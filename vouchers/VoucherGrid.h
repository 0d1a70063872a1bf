#pragma once

#include <optional>
#include <string>

#include "core/LedgerSide.h"
#include "platform/ado/Recordset.h"
#include "platform/forms/grid/VSFlexGrid.h"
#include "vouchers/VoucherPosting.h"

namespace qm {

// Columns of the voucher's grid. Changed: its checked state marks a saved line as edited, its data is the
// ledger as loaded. Number: that of a loaded line. Ledger: its data is the ledger's id.
enum VoucherColumn { Changed, Number, Side, Ledger, Balance, DrAmount, CrAmount, Particulars };

// The lines of a voucher in its grid, and the four rows below them: a spare row, a rule, the captions of the
// totals, the totals. The last line always shows what is still missing. Amounts are rupees.
class VoucherGrid {
  public:
    explicit VoucherGrid(forms::VSFlexGrid& grid) : grid_(grid) {}

    void SetupVoucherGrid();              // two rows, eight columns, the heading
    void AddLoaded(ado::Recordset& row);  // fills the last row from a row of tb_Ledger and adds one
    void AddFoot();                       // the four rows below the lines
    void MakeNew();                       // loaded lines become new ones, without the balance noted in them
    void Empty();                         // back to the heading and one row

    int LastRow() const { return grid_.Rows() - 1; }
    int LastLine() const { return LastRow() - 4; }
    bool IsLine(int row) const { return row < LastRow() - 3; }
    VoucherLine Line(int row) const;
    std::optional<LedgerSide> SideOf(int row) const;

    // What the lines above a row lack for their sides to be equal, as a plain number.
    std::string OpenDifference(int row) const;
    void SetBalancingLine();            // overwrites the user's own figure on the last line
    void MoveAmountToItsSide(int row);  // after the side changed; balances if there was one
    // Opens the next line on the other side with what is missing, even if nothing is. Kept 42.
    void OpenLine(int after);
    void ShowVoucherTotals();
    double ShownTotal(int column) const;  // as displayed, to 2 places; blank is 0

    void MarkChanged(int row);  // of a saved line; nothing on a new one
    void Clear(int row, int column);
    void DeleteLine(int row);  // a new line goes, a saved one is hidden and reversed at Save

  private:
    double Sum(int column, int lastRow) const;  // of the lines that are not hidden
    void PutDifference(int line);

    forms::VSFlexGrid& grid_;
};

}  // namespace qm
