#include "core/BillFigures.h"

#include "platform/basic/Format.h"
#include "platform/basic/Number.h"

namespace qm {
namespace {

// The mask drops the commas.
double Whole(const std::string& text) {
    return basic::PrefixValue(basic::Format(text, "######.00"));
}

void EmptyUnlessPositive(std::string& text, const std::string& decides) {
    if (Whole(decides) <= 0) text.clear();
}

}  // namespace

std::string BillFigures::Shown(double amount) {
    return basic::Format(amount, "#,##,###.00");
}

// The tax is subtracted like the discount, though the box above it reads "Amt. After Tax": kept 53.
void BillFigures::Reckon(BillRule rule) {
    const double base = rule.RatesOfPrefix ? basic::PrefixValue(BillTotal) : Whole(BillTotal);
    AmtAfterTax = Shown(Whole(BillTotal) - (basic::PrefixValue(TaxRate) / 100 * base +
                                            basic::PrefixValue(Discount) / 100 * base));
    EmptyUnlessPositive(AmtAfterTax, rule.BlankByBillTotal ? BillTotal : AmtAfterTax);
    TotalAmt = Shown(Whole(AmtAfterTax) + Whole(OtherCharges));
    EmptyUnlessPositive(TotalAmt, TotalAmt);
    NetAmt = Shown(Whole(TotalAmt) + Whole(RoundOff));
    EmptyUnlessPositive(NetAmt, NetAmt);
}

}  // namespace qm
