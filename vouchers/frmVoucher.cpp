#include "vouchers/frmVoucher.h"

#include <utility>

#include "core/Boxes.h"
#include "core/DBCode.h"
#include "core/ErrorModule.h"
#include "core/GeneralUtils.h"
#include "core/LedgerSide.h"
#include "core/NextNumber.h"
#include "core/VoucherType.h"
#include "core/modGeneral.h"
#include "platform/basic/Clock.h"
#include "platform/basic/Number.h"
#include "shell/EntryChecks.h"

namespace qm {
namespace {

constexpr const char* NewVoucher = "<New>";

}  // namespace

void frmVoucher::Load(std::int32_t trnNo) {
    Prepare();
    LoadVoucher(trnNo);
    Show(forms::vbModal);
}

void frmVoucher::LoadCopy(std::int32_t trnNo) {
    Prepare();
    LoadVoucher(trnNo);
    ui().dtpDate->SetValue(basic::Clock::Today());
    ui().txtVoucherNo->SetText(NewVoucher);
    CurrentTrnNo = 0;
    lines_->MakeNew();
    Show(forms::vbModal);
}

void frmVoucher::Prepare() {
    ui().vsCombo->SetContainer(*ui().vsVoucher);
    ui().dtpDate->SetValue(basic::Clock::Today());
}

void frmVoucher::SetCallingForm(forms::Form& form, std::function<void()> refresh) {
    CallingForm = form.Reference();
    refreshCaller_ = std::move(refresh);
}

void frmVoucher::Wire() {
    lines_.emplace(*ui().vsVoucher);
    ui().cmbVoucherType->Validate = [this](bool&) { cmbVoucherType_Validate(); };
    ui().cmdNew->Click = [this] { cmdNew_Click(); };
    ui().cmdUndo->Click = [this] { cmdUndo_Click(); };
    ui().cmdSave->Click = [this] { cmdSave_Click(); };
    ui().cmdExit->Click = [this] { cmdExit_Click(); };
    WireGrid();
}

void frmVoucher::Form_Load() {
    FillComboFromArray(*ui().cmbVoucherType, VoucherTypeWords());
}

std::vector<forms::Form::Command> frmVoucher::CtrlCommands() {
    return {
        {'N', [this] { cmdNew_Click(); }},
        {'Z', [this] { cmdUndo_Click(); }},
        {'S', [this] { cmdSave_Click(); }},
        {'X', [this] { cmdExit_Click(); }},
    };
}

void frmVoucher::Form_Unload() {
    const auto caller = CallingForm.lock();
    if (caller && caller->Loaded()) refreshCaller_();
    ledgers_.Close();
}

// The voucher is found by its number alone; date and type come from its first row. A number without rows is
// shown with empty lines.
void frmVoucher::LoadVoucher(std::int32_t trnNo) {
    ui().txtVoucherNo->SetText(trnNo < 1 ? NewVoucher : std::to_string(trnNo));
    CurrentTrnNo = trnNo;
    lines_->SetupVoucherGrid();
    ado::Recordset rows;
    rows.Open("Select * From tb_Ledger" + shared().FinYear + " Where LedgerTrnNo = " + std::to_string(trnNo),
              shared().Connection, ado::adOpenStatic, ado::adLockReadOnly);
    if (!rows.Eof()) {
        ui().dtpDate->SetValue(basic::ToDate(DateNumber(rows["LedgerTxnDate"])));
        ui().cmbVoucherType->SetText(basic::TextOrEmpty(rows["LedgerTrnType"]));
    }
    for (; !rows.Eof(); rows.MoveNext()) lines_->AddLoaded(rows);
    lines_->AddFoot();
    lines_->ShowVoucherTotals();
}

void frmVoucher::cmbVoucherType_Validate() {
    ui().cmbVoucherType->SetEnabled(ui().cmbVoucherType->Text().empty());
}

// Type and date stay as they were.
void frmVoucher::cmdNew_Click() {
    CurrentTrnNo = 0;
    lines_->Empty();
    LoadVoucher(0);
    ui().cmbVoucherType->SetEnabled(true);
    ui().cmbVoucherType->SetFocus();
    ui().cmbVoucherType->OpenList();
}

void frmVoucher::cmdUndo_Click() {
    ui().cmbVoucherType->SetEnabled(true);
    lines_->Empty();
    LoadVoucher(CurrentTrnNo);
}

// Each line is committed by itself: after a failure the lines before it stand, and "<New>" stands too.
// Kept 40.
void frmVoucher::cmdSave_Click() {
    try {
        if (!ValidateVoucher()) return;
        if (ui().txtVoucherNo->Text() == NewVoucher)
            CurrentTrnNo = NextNumber("Select Max(LedgerTrnNo) As High From tb_Ledger" + shared().FinYear);
        VoucherPosting posting(CurrentTrnNo, basic::ToLong(DateNumber(ui().dtpDate->Value())),
                               ui().cmbVoucherType->Text());
        for (int row = 1; row <= lines_->LastLine(); ++row) {
            Conn().BeginTrans();
            posting.Post(lines_->Line(row));
            Conn().CommitTrans();
        }
        Tell("Voucher Saved with no. '" + std::to_string(CurrentTrnNo) + "'");
        cmdNew_Click();
    } catch (const basic::Error& error) {
        RollbackOpen();
        Tell("Cannot save Voucher");
        if (error.Number != 0) LogError(Name(), error);
    }
}

bool frmVoucher::Refuse(const std::string& text) {
    Tell(text);
    return false;
}

void frmVoucher::AskForType() {
    Refuse("Please select a voucher type");
    ui().cmbVoucherType->SetFocus();
    ui().cmbVoucherType->OpenList();
}

bool frmVoucher::ValidateVoucher() {
    if (ui().cmbVoucherType->Text().empty()) {
        AskForType();
        return false;
    }
    if (!DateIsInYear(*ui().dtpDate)) return false;
    if (lines_->ShownTotal(DrAmount) != lines_->ShownTotal(CrAmount))
        return Refuse("Mismatch between Credit & Debit Balance\r\n\r\nPlease recheck your entries");
    for (int row = 1; row <= lines_->LastLine(); ++row)
        if (!ui().vsVoucher->RowHidden(row) && !ValidateLine(row)) return false;
    if (ui().vsVoucher->TextMatrix(1, Ledger).empty()) {
        Refuse("Please enter atleast one transaction to save the voucher");
        ui().vsVoucher->SetFocus();
        return false;
    }
    return true;
}

bool frmVoucher::ValidateLine(int row) {
    forms::VSFlexGrid& grid = *ui().vsVoucher;
    const auto side = lines_->SideOf(row);
    if (!side) return true;
    const bool debit = side == LedgerSide::Debit;
    if (grid.TextMatrix(row, Ledger).empty()) {
        Refuse(debit ? "Please select a ledger to be debited" : "Please select a ledger to be credited");
        grid.SetFocus();
        grid.Select(row, Ledger);
        grid.EditCell();
        return false;
    }
    const int amount = debit ? DrAmount : CrAmount;
    if (grid.TextMatrix(row, amount).empty()) {
        Refuse(debit ? "Please enter the debit amount" : "Please enter the credit amount");
        grid.SetFocus();
        grid.Select(row, amount);
        return false;
    }
    return true;
}

}  // namespace qm
