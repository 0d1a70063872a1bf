#pragma once

#include <functional>
#include <initializer_list>

#include "core/BillFigures.h"
#include "inventory/LandingCost.h"
#include "inventory/StockPosting.h"
#include "platform/ado/Recordset.h"
#include "platform/forms/Controls.h"

namespace qm {

// The boxes of a supplier's bill as both receipt screens have them, with the number of each as the rows take
// it. Cheap to make where it is needed.
class BillBoxes {
  public:
    template <class Ui>
    explicit BillBoxes(Ui& ui)
        : date_(ui.dtpDate),
          billNo_(ui.txtBillNo),
          narration_(ui.txtNarration),
          billTotal_(ui.txtBillTotal),
          discount_(ui.txtDiscount),
          taxRate_(ui.txtTaxRate),
          amtAfterTax_(ui.txtAmtAfterTax),
          otherCharges_(ui.txtOtherCharges),
          totalAmt_(ui.txtTotalAmt),
          roundOff_(ui.txtRoundOff),
          netAmt_(ui.txtNetAmt),
          save_(ui.cmdSave) {}

    // Once for each window: the four inputs take figures only, and each change of one reckons the bill again.
    void Wire(const std::function<void()>& recalc) const;

    void ShowBillTotal(double sum) const;  // 0 as nothing
    // Shows what BillFigures::Reckon makes of the boxes.
    void Recalc(BillRule rule) const;

    void Show(ado::Recordset& bill) const;  // the bill on which the record set stands; not the round-off
    void Empty() const;                     // today's date and no bill; the round-off stays
    // A saved receipt is for viewing: its date, its boxes and these ledgers cannot be changed, and there is
    // nothing to save. A new one starts empty, the round-off too, and open.
    void SetSaved(bool saved, std::initializer_list<forms::ComboBox*> ledgers) const;

    // The bill as it is entered, but for its two ledgers and its order. Amounts stop at the first comma.
    Bill Entered(std::int32_t txnNo) const;
    LandingCost Rates() const { return {discount_->Text(), taxRate_->Text()}; }
    double BillTotal() const { return Prefix(*billTotal_); }  // these two stop at the first comma as well
    double Discount() const { return Prefix(*discount_); }

  private:
    static double Prefix(const forms::TextBox& box);

    forms::DTPicker* date_;
    forms::TextBox *billNo_, *narration_, *billTotal_, *discount_, *taxRate_, *amtAfterTax_, *otherCharges_,
        *totalAmt_, *roundOff_, *netAmt_;
    forms::CommandButton* save_;
};

}  // namespace qm
