#include "vouchers/VoucherGrid.h"

#include <cmath>

#include "core/Masks.h"
#include "platform/basic/Format.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"

namespace qm {
namespace {

constexpr int Columns = 8;
constexpr int RuleHeight = 50;

bool IsNought(const basic::Value& amount) {
    return basic::NumberOrZero(amount) == 0;
}

int AmountColumn(LedgerSide side) {
    return side == LedgerSide::Debit ? DrAmount : CrAmount;
}

}  // namespace

std::optional<LedgerSide> VoucherGrid::SideOf(int row) const {
    return SideOfMark(grid_.TextMatrix(row, Side));
}

void VoucherGrid::SetupVoucherGrid() {
    grid_.SetRows(2);
    grid_.SetCols(Columns);
    const struct {
        int Column;
        const char* Heading;
        int Width;
    } headings[] = {{Side, "Txn.", 0},       {Ledger, "Ledger", 2200}, {Balance, "Balance", 1600},
                    {DrAmount, "Dr.", 1450}, {CrAmount, "Cr.", 1450},  {Particulars, "Particulars", 3500}};
    for (const auto& [column, heading, width] : headings) {
        grid_.SetTextMatrix(0, column, heading);
        if (width > 0) grid_.SetColWidth(column, width);
    }
    grid_.SetGrowingCol(Ledger);
    grid_.SetColHidden(Changed, true);
    grid_.SetColHidden(Number, true);
    grid_.SetColBoolean(Changed, true);
    grid_.SetColComboList(Side, std::string(MarkOf(LedgerSide::Debit)) + "|" + MarkOf(LedgerSide::Credit));
    grid_.SetColComboList(Ledger, "Dummy");  // for its button: the list itself is another grid's
    for (const int column : {Balance, DrAmount, CrAmount}) {
        grid_.SetColFormat(column, AmountMask);
        grid_.SetColAlignment(column, forms::Alignment::Right);
    }
    grid_.SetCellAlignment(0, Side, 0, Particulars, forms::Alignment::Center);
    grid_.SetCellFontBold(0, Side, 0, Particulars, true);
    grid_.AutoSize(Side, Side);
    grid_.SetEditable(true);
}

void VoucherGrid::Empty() {
    grid_.SetRows(1);
    grid_.SetRows(2);
}

void VoucherGrid::MakeNew() {
    for (int row = 1; row <= LastLine(); ++row) {
        grid_.SetTextMatrix(row, Number, "");
        grid_.SetTextMatrix(row, Balance, "");
    }
}

// The test of the credit runs second and wins: a row with both amounts 0 reads "Dr.". Kept 41.
void VoucherGrid::AddLoaded(ado::Recordset& row) {
    const int line = LastRow();
    grid_.SetTextMatrix(line, Number, basic::TextOrEmpty(row["LedgerTrnNo"]));
    grid_.SetTextMatrix(line, Particulars, basic::TextOrEmpty(row["LedgerNarration"]));
    grid_.SetTextMatrix(line, Ledger, basic::TextOrEmpty(row["LedgerName"]));
    grid_.SetCellData(line, Changed, row["LedgerCode"]);
    grid_.SetCellData(line, Ledger, row["LedgerCode"]);
    grid_.SetTextMatrix(line, Balance, basic::TextOrEmpty(row["LedgerLedBal"]));
    const basic::Value debit = row["LedgerDrAmt"], credit = row["LedgerCrAmt"];
    const auto setSide = [&](LedgerSide side) { grid_.SetTextMatrix(line, Side, MarkOf(side)); };
    setSide(IsNought(debit) ? LedgerSide::Credit : LedgerSide::Debit);
    if (!IsNought(debit)) grid_.SetTextMatrix(line, DrAmount, basic::ToText(debit));
    setSide(IsNought(credit) ? LedgerSide::Debit : LedgerSide::Credit);
    if (!IsNought(credit)) grid_.SetTextMatrix(line, CrAmount, basic::ToText(credit));
    grid_.SetRows(grid_.Rows() + 1);
}

void VoucherGrid::AddFoot() {
    grid_.SetRows(grid_.Rows() + 4);
    const int last = LastRow();
    grid_.SetRowHeight(last - 2, RuleHeight);
    grid_.SetCellBackColor(last - 2, Side, last - 2, Particulars, forms::vbRed);
    grid_.SetTextMatrix(last - 1, DrAmount, "Total Dr.");
    grid_.SetTextMatrix(last - 1, CrAmount, "Total Cr.");
    grid_.SetTextMatrix(last, Balance, "Total Balance = ");
    grid_.SetCellFontBold(last - 1, Balance, last, CrAmount, true);
    grid_.SetCellFontItalic(last - 1, Balance, last, CrAmount, true);
    grid_.SetCellForeColor(last - 1, Balance, last, CrAmount, forms::vbRed);
}

VoucherLine VoucherGrid::Line(int row) const {
    return {.Removed = grid_.RowHidden(row),
            .Changed = grid_.CellChecked(row, Changed),
            .SavedNo = grid_.TextMatrix(row, Number),
            .Side = SideOf(row),
            .OldLedgerId = basic::TextOrEmpty(grid_.CellData(row, Changed)),
            .LedgerId = basic::TextOrEmpty(grid_.CellData(row, Ledger)),
            .LedgerName = grid_.TextMatrix(row, Ledger),
            .DrAmount = grid_.ValueMatrix(row, DrAmount),
            .CrAmount = grid_.ValueMatrix(row, CrAmount),
            .Narration = grid_.TextMatrix(row, Particulars)};
}

double VoucherGrid::Sum(int column, int lastRow) const {
    double sum = 0;
    for (int row = 1; row <= lastRow; ++row)
        if (!grid_.RowHidden(row)) sum += grid_.ValueMatrix(row, column);
    return sum;
}

std::string VoucherGrid::OpenDifference(int row) const {
    return basic::NumberText(std::abs(Sum(DrAmount, row - 1) - Sum(CrAmount, row - 1)));
}

void VoucherGrid::PutDifference(int line) {
    const LedgerSide side = SideOf(line).value_or(LedgerSide::Credit);
    grid_.SetTextMatrix(line, AmountColumn(side), OpenDifference(line));
    grid_.SetTextMatrix(line, AmountColumn(Other(side)), "");
}

void VoucherGrid::SetBalancingLine() {
    if (SideOf(LastLine())) PutDifference(LastLine());
}

void VoucherGrid::MoveAmountToItsSide(int row) {
    const auto side = SideOf(row);
    if (!side) return;
    const int right = AmountColumn(*side), wrong = AmountColumn(Other(*side));
    if (basic::Trim(grid_.TextMatrix(row, wrong)).empty()) return;
    grid_.SetTextMatrix(row, right, grid_.TextMatrix(row, wrong));
    grid_.SetTextMatrix(row, wrong, "");
    SetBalancingLine();
}

// On the side opposite to the one just left, which need not be the one that is short. Kept 42.
void VoucherGrid::OpenLine(int after) {
    grid_.AddItem("", LastRow() - 3);
    const int line = LastLine();
    if (const auto side = SideOf(after)) {
        grid_.SetTextMatrix(line, Side, MarkOf(Other(*side)));
        PutDifference(line);
    }
    grid_.SetTextMatrix(line, Particulars, grid_.TextMatrix(after, Particulars));
    grid_.Select(line, Side);
}

void VoucherGrid::ShowVoucherTotals() {
    for (const int column : {DrAmount, CrAmount}) {
        const double sum = Sum(column, LastRow() - 3);
        grid_.SetTextMatrix(LastRow(), column, sum > 0 ? "Rs." + basic::Format(sum, AmountMask) : "");
    }
    grid_.AutoSize(DrAmount, CrAmount);
}

double VoucherGrid::ShownTotal(int column) const {
    const std::string figure = basic::Mid(grid_.TextMatrix(LastRow(), column), 4);
    return figure.empty() ? 0 : basic::WholeNumber(figure);
}

void VoucherGrid::MarkChanged(int row) {
    if (!grid_.TextMatrix(row, Number).empty()) grid_.SetCellChecked(row, Changed, true);
}

void VoucherGrid::Clear(int row, int column) {
    grid_.SetTextMatrix(row, column, "");
}

void VoucherGrid::DeleteLine(int row) {
    if (grid_.TextMatrix(row, Number).empty())
        grid_.RemoveItem(row);
    else
        grid_.SetRowHidden(row, true);
}

}  // namespace qm
