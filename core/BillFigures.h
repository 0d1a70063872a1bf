#pragma once

#include <string>

namespace qm {

// How the two receipt screens reckon a bill.
struct BillRule {
    // The percentages are taken of the number before the bill total's comma, not of the whole total: kept 54.
    bool RatesOfPrefix = false;
    // The box whose value decides whether the amount after tax is emptied: itself, or the bill total.
    bool BlankByBillTotal = false;
};
inline constexpr BillRule ReceiptBill{.RatesOfPrefix = true};
inline constexpr BillRule OrderBill{.BlankByBillTotal = true};

// A supplier's bill as its boxes show it: texts, since what is posted is the number before a text's comma.
struct BillFigures {
    // Percentages and amounts; "" is none.
    std::string BillTotal = {}, Discount = {}, TaxRate = {}, OtherCharges = {}, RoundOff = {};
    std::string AmtAfterTax = {}, TotalAmt = {}, NetAmt = {};  // what Reckon makes of them

    // From the bill total to the net amount. An amount that is not above 0 is emptied.
    void Reckon(BillRule rule);

    static std::string Shown(double amount);  // 1249.85 gives "1,249.85"
};

}  // namespace qm
