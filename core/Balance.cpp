#include "core/Balance.h"

#include "core/LedgerSide.h"
#include "platform/basic/Number.h"

namespace qm {

std::optional<double> SignedOpening(ado::Recordset& details) {
    const auto side = SideOfLetter(basic::TextOrEmpty(details["Bal_Type"]));
    if (!side) return std::nullopt;
    return basic::ToDouble(details["Opening_Bal"]) * (side == LedgerSide::Credit ? -1 : 1);
}

std::string BalanceText(double balance, const std::function<std::string(double)>& figure) {
    const double magnitude = balance < 0 ? -balance : balance;
    return (figure ? figure(magnitude) : basic::NumberText(magnitude)) + (balance < 0 ? "Cr" : "Dr");
}

}  // namespace qm
