#include "core/Balance.h"

#include "platform/basic/Number.h"

namespace qm {

std::optional<double> SignedOpening(ado::Recordset& details) {
    const std::string side = basic::TextOrEmpty(details["Bal_Type"]);
    if (side == "C") return basic::ToDouble(details["Opening_Bal"]) * -1;
    if (side == "D") return basic::ToDouble(details["Opening_Bal"]);
    return std::nullopt;
}

std::string BalanceText(double balance, const std::function<std::string(double)>& figure) {
    const double magnitude = balance < 0 ? -balance : balance;
    return (figure ? figure(magnitude) : basic::NumberText(magnitude)) + (balance < 0 ? "Cr" : "Dr");
}

}  // namespace qm
