// The events of the voucher's grid, and of the drop-down list of ledgers that lies over its ledger cells.
#include <utility>

#include "core/Boxes.h"
#include "core/LedgerSide.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "shell/EntryChecks.h"
#include "vouchers/frmVoucher.h"

namespace qm {
namespace {

constexpr int AmountLength = 9, NarrationLength = 99;
constexpr int ComboAllowance = 20;  // twips that the list is higher than its cell

bool IsAmount(int col) {
    return col == DrAmount || col == CrAmount;
}

}  // namespace

void frmVoucher::WireGrid() {
    forms::VSFlexGrid& grid = *ui().vsVoucher;
    grid.GotFocus = [this] { vsVoucher_GotFocus(); };
    grid.AfterRowColChange = [this](int, int, int, int) { vsVoucher_AfterRowColChange(); };
    grid.BeforeRowColChange = [this](int, int, int newRow, int, bool& cancel) {
        vsVoucher_BeforeRowColChange(newRow, cancel);
    };
    grid.BeforeEdit = [this](int row, int col, bool& cancel) { vsVoucher_BeforeEdit(row, col, cancel); };
    grid.StartEdit = [this](int row, int col, bool& cancel) { vsVoucher_StartEdit(row, col, cancel); };
    grid.ValidateEdit = [this](int, int col, bool& cancel) { vsVoucher_ValidateEdit(col, cancel); };
    grid.KeyPressEdit = [](int, int col, int& key) { vsVoucher_KeyPressEdit(col, key); };
    grid.AfterEdit = [this](int row, int col) { vsVoucher_AfterEdit(row, col); };
    grid.KeyDown = [this](int& keyCode, int shift) { vsVoucher_KeyDown(keyCode, shift); };
    grid.KeyPress = [this](int& key) { vsVoucher_KeyPress(key); };

    PrepareCombo();
    forms::VSFlexGrid& combo = *ui().vsCombo;
    combo.ValidateEdit = [this](int, int, bool& cancel) { vsCombo_ValidateEdit(cancel); };
    combo.AfterEdit = [this](int, int) { vsCombo_AfterEdit(); };
    combo.LostFocus = [this] { vsCombo_LostFocus(); };
    combo.EditDropped = [this] { vsCombo_EditDropped(); };
}

// One cell, whose list is that of the ledgers.
void frmVoucher::PrepareCombo() {
    forms::VSFlexGrid& combo = *ui().vsCombo;
    combo.SetFixedRows(0);
    combo.SetRows(1);
    combo.SetCols(1);
    combo.SetEditable(true);
    combo.SetColComboList(0, "Dummy");
    combo.SetVisible(false);
}

void frmVoucher::vsCombo_LostFocus() {
    ui().vsVoucher->SetFocus();
}

void frmVoucher::vsCombo_EditDropped() {
    ui().vsVoucher->SetFocus();
    ui().vsCombo->SetVisible(false);
}

void frmVoucher::vsVoucher_BeforeRowColChange(int newRow, bool& cancel) {
    if (!lines_->IsLine(newRow)) cancel = true;
}

void frmVoucher::vsVoucher_KeyPress(int& key) {
    typed_ = key >= ' ' ? basic::FromUtf16(std::u16string(1, static_cast<char16_t>(key))) : "";
}

void frmVoucher::vsVoucher_KeyPressEdit(int col, int& key) {
    if (IsAmount(col)) KeepFigures(key);
}

void frmVoucher::RefreshLedgerList() {
    FillLedgerList(
        LedgerListFor(ui().cmbVoucherType->Text(), ui().vsVoucher->TextMatrix(ui().vsVoucher->Row(), Side)));
}

void frmVoucher::FillLedgerList(LedgerListKind kind) {
    if (kind == LedgerListKind::Stays) return;
    forms::VSFlexGrid& combo = *ui().vsCombo;
    const std::string list = ledgers_.Fill(kind);
    combo.SetRows(0);
    combo.SetRows(1);
    combo.SetColComboList(0, list);
    combo.AutoSize(0, 0);
}

// With one line the cursor goes back to its side, whatever cell it stood on.
void frmVoucher::vsVoucher_GotFocus() {
    if (lines_->LastLine() == 1 || ui().vsVoucher->Col() < Side) ui().vsVoucher->Select(1, Side);
}

void frmVoucher::vsVoucher_AfterRowColChange() {
    RefreshLedgerList();
    if (ui().vsVoucher->Col() != Ledger) ui().vsCombo->SetVisible(false);
}

// A line takes its side first; an amount goes only into the column of its side. A removed line, on which the
// cursor may still stand, takes nothing more: what stands on it is what Save takes back.
void frmVoucher::RefuseEdit(int row, int col, bool& cancel) {
    ui().vsCombo->SetVisible(false);
    if (col == Balance || ui().vsVoucher->RowHidden(row)) {
        cancel = true;
        return;
    }
    if (ui().cmbVoucherType->Text().empty()) {
        cancel = true;
        return AskForType();
    }
    if (col == Side) return;
    const auto side = lines_->SideOf(row);
    cancel = !side || (col == DrAmount && side == LedgerSide::Credit) ||
             (col == CrAmount && side == LedgerSide::Debit);
    if (IsAmount(col)) ui().vsVoucher->SetEditMaxLength(AmountLength);
    if (col == Particulars) ui().vsVoucher->SetEditMaxLength(NarrationLength);
}

void frmVoucher::vsVoucher_BeforeEdit(int row, int col, bool& cancel) {
    RefuseEdit(row, col, cancel);
    if (cancel) typed_.clear();
}

// The ledger's cell is never edited itself: the list of ledgers opens over it.
void frmVoucher::vsVoucher_StartEdit(int row, int col, bool& cancel) {
    forms::VSFlexGrid& grid = *ui().vsVoucher;
    forms::VSFlexGrid& combo = *ui().vsCombo;
    const std::string typed = std::exchange(typed_, {});
    if (col != Ledger) return combo.SetVisible(false);
    cancel = true;
    if (const std::string& ledger = grid.TextMatrix(row, Ledger); !ledger.empty())
        combo.SetTextMatrix(0, 0, ledger);
    combo.Move(grid.CellLeft(), grid.CellTop(), grid.CellWidth(), grid.CellHeight() + ComboAllowance);
    combo.SetColWidth(0, grid.CellWidth());
    combo.SetVisible(true);
    combo.Select(0, 0);
    combo.SetFocus();
    // The letter that was typed on the cell is the first one that the list is narrowed by.
    combo.EditCell(typed);
}

// Fractions pass, whatever the words say.
void frmVoucher::vsVoucher_ValidateEdit(int col, bool& cancel) {
    const std::string text = ui().vsVoucher->EditText();
    if (!IsAmount(col) || text.empty() || basic::IsNumeric(text)) return;
    Tell("Please enter a valid numeric integer");
    cancel = true;
}

void frmVoucher::vsVoucher_AfterEdit(int row, int col) {
    lines_->MarkChanged(row);
    if (col == Side) {
        RefreshLedgerList();
        lines_->MoveAmountToItsSide(row);
        lines_->ShowVoucherTotals();
    }
    if (!IsAmount(col)) return;
    // The last line is finished: a new one opens, also when the voucher is in balance. Kept 42.
    if (row == lines_->LastLine() && ui().vsVoucher->TextMatrix(row + 1, Number).empty()) {
        lines_->OpenLine(row);
        RefreshLedgerList();
    } else {
        lines_->SetBalancingLine();
    }
    lines_->ShowVoucherTotals();
}

void frmVoucher::vsVoucher_KeyDown(int& keyCode, int shift) {
    const int row = ui().vsVoucher->Row(), col = ui().vsVoucher->Col();
    if (keyCode == forms::vbKeyDelete) DeleteByColumn(row, col, keyCode);
    const bool onwards = keyCode == forms::vbKeyTab && !(shift & forms::vbShiftMask);
    if (onwards && col == Particulars && row == lines_->LastLine()) {
        keyCode = 0;
        ui().cmdSave->SetFocus();
    }
}

void frmVoucher::DeleteByColumn(int row, int col, int& keyCode) {
    forms::VSFlexGrid& grid = *ui().vsVoucher;
    switch (std::exchange(keyCode, 0), col) {
        case Side:
            if (!lines_->SideOf(row)) return;
            if (Ask("This will delete the entire entry !!!\r\n\r\nAre you sure ?")) {
                lines_->DeleteLine(row);
                grid.Select(1, Side);
                lines_->ShowVoucherTotals();
            }
            return;
        case Ledger:
            lines_->Clear(row, Ledger);
            return lines_->Clear(row, Balance);
        case DrAmount:
        case CrAmount:
        case Particulars:
            lines_->Clear(row, col);
            return lines_->ShowVoucherTotals();
        default:
            return;
    }
}

// Looks at the one line above and no other. Leaving the list without a choice chooses no ledger.
void frmVoucher::vsCombo_ValidateEdit(bool& cancel) {
    const forms::VSFlexGrid& grid = *ui().vsVoucher;
    const int row = grid.Row();
    const std::string chosen = ui().vsCombo->ComboData();
    if (row < 2 || chosen.empty() || grid.TextMatrix(row - 1, Side) == grid.TextMatrix(row, Side) ||
        basic::TextOrEmpty(grid.CellData(row - 1, Ledger)) != chosen)
        return;
    Tell("Debit & Credit entries can't be posted in same ledger\r\n\r\nPlease select another one");
    cancel = true;
}

void frmVoucher::vsCombo_AfterEdit() {
    forms::VSFlexGrid& grid = *ui().vsVoucher;
    const int row = grid.Row();
    if (const std::string id = ui().vsCombo->ComboData(); !id.empty()) {
        grid.SetTextMatrix(row, Balance, ledgers_.LedgerBalanceText(id));
        grid.SetTextMatrix(row, Ledger, ui().vsCombo->ComboItem());
        grid.SetCellData(row, Ledger, id);
    }
    ui().vsCombo->SetVisible(false);
    lines_->MarkChanged(row);
    grid.Select(row, Ledger);
    grid.SetFocus();
}

}  // namespace qm
