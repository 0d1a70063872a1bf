#include "inventory/BillBoxes.h"

#include "core/DBCode.h"
#include "platform/basic/Clock.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "shell/EntryChecks.h"

namespace qm {

void BillBoxes::Wire(const std::function<void()>& recalc) const {
    for (forms::TextBox* input : {discount_, taxRate_, otherCharges_, roundOff_}) {
        input->Change = recalc;
        input->KeyPress = [](int& keyAscii) { KeepFigures(keyAscii); };
        input->Validate = [input](bool& cancel) {
            if (IsQuantity(input->Text())) return;
            input->SetText("");
            cancel = true;
        };
    }
}

double BillBoxes::Prefix(const forms::TextBox& box) {
    return basic::PrefixValue(box.Text());
}

Bill BillBoxes::Entered(std::int32_t txnNo) const {
    return {.TxnNo = txnNo,
            .Date = date_->Value(),
            .Narration = basic::Trim(narration_->Text()),
            .Amount = Prefix(*totalAmt_),
            .Credit = {},
            .Debit = {},
            .BillNo = billNo_->Text(),
            .Discount = Discount(),
            .TaxRate = Prefix(*taxRate_),
            .OtherCharges = Prefix(*otherCharges_)};
}

void BillBoxes::ShowBillTotal(double sum) const {
    billTotal_->SetText(sum == 0 ? "" : BillFigures::Shown(sum));
}

void BillBoxes::Recalc(BillRule rule) const {
    BillFigures bill{.BillTotal = billTotal_->Text(),
                     .Discount = discount_->Text(),
                     .TaxRate = taxRate_->Text(),
                     .OtherCharges = otherCharges_->Text(),
                     .RoundOff = roundOff_->Text()};
    bill.Reckon(rule);
    amtAfterTax_->SetText(bill.AmtAfterTax);
    totalAmt_->SetText(bill.TotalAmt);
    netAmt_->SetText(bill.NetAmt);
}

void BillBoxes::Show(ado::Recordset& bill) const {
    date_->SetValue(basic::ToDate(DateNumber(bill["LedgerTxnDate"])));
    billNo_->SetText(basic::TextOrEmpty(bill["BillID"]));
    narration_->SetText(basic::TextOrEmpty(bill["LedgerNarration"]));
    discount_->SetText(basic::TextOrEmpty(bill["BillDiscount"]));
    taxRate_->SetText(basic::TextOrEmpty(bill["BillTaxRate"]));
    otherCharges_->SetText(basic::TextOrEmpty(bill["BillOtherCharges"]));
}

void BillBoxes::Empty() const {
    date_->SetValue(basic::Clock::Today());
    for (forms::TextBox* box : {billNo_, narration_, discount_, taxRate_, otherCharges_}) box->SetText("");
}

void BillBoxes::SetSaved(bool saved, std::initializer_list<forms::ComboBox*> ledgers) const {
    if (!saved) {
        Empty();
        roundOff_->SetText("");
        for (forms::ComboBox* ledger : ledgers) ledger->SetListIndex(-1);
    }
    date_->SetEnabled(!saved);
    for (forms::TextBox* box : {billNo_, narration_, discount_, taxRate_, otherCharges_, roundOff_})
        box->SetLocked(saved);
    for (forms::ComboBox* ledger : ledgers) ledger->SetLocked(saved);
    save_->SetEnabled(!saved);
}

}  // namespace qm
