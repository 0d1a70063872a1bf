#include "inventory/BillBoxes.h"

#include "core/DBCode.h"
#include "inventory/EntryChecks.h"
#include "platform/basic/Clock.h"
#include "platform/basic/Format.h"
#include "platform/basic/Number.h"

namespace qm {

void BillBoxes::Wire(const std::function<void()>& recalc) const {
    for (forms::TextBox* input : {discount_, taxRate_, otherCharges_, roundOff_}) {
        input->Change = recalc;
        input->KeyPress = KeepFigures;
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

// The mask drops the commas.
double BillBoxes::Whole(const forms::TextBox& box) {
    return basic::PrefixValue(basic::Format(box.Text(), "######.00"));
}

void BillBoxes::ShowAmount(forms::TextBox& box, double amount) {
    box.SetText(basic::Format(amount, "#,##,###.00"));
}

void BillBoxes::ShowBillTotal(double sum) const {
    if (sum == 0) return billTotal_->SetText("");
    ShowAmount(*billTotal_, sum);
}

// The tax is subtracted like the discount, though the box above it reads "Amt. After Tax": kept. A 0 shows
// as ".00" before it is emptied.
void BillBoxes::Recalc(BillRule rule) const {
    const auto emptyUnlessPositive = [](forms::TextBox& box, const forms::TextBox& decides) {
        if (Whole(decides) <= 0) box.SetText("");
    };
    const double base = rule.RatesOfPrefix ? BillTotal() : Whole(*billTotal_);
    ShowAmount(*amtAfterTax_, Whole(*billTotal_) - (TaxRate() / 100 * base + Discount() / 100 * base));
    emptyUnlessPositive(*amtAfterTax_, rule.BlankByBillTotal ? *billTotal_ : *amtAfterTax_);
    ShowAmount(*totalAmt_, Whole(*amtAfterTax_) + Whole(*otherCharges_));
    emptyUnlessPositive(*totalAmt_, *totalAmt_);
    ShowAmount(*netAmt_, Whole(*totalAmt_) + Whole(*roundOff_));
    emptyUnlessPositive(*netAmt_, *netAmt_);
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
