#include "inventory/LandingCost.h"

#include "platform/basic/Number.h"
#include "platform/basic/Text.h"

namespace qm {
namespace {

std::optional<double> Rate(const std::string& percent) {
    if (basic::Trim(percent).empty()) return std::nullopt;
    return basic::PrefixValue(percent) / 100;
}

}  // namespace

LandingCost::LandingCost(const std::string& discount, const std::string& taxRate)
    : discount_(Rate(discount)), taxRate_(Rate(taxRate)) {}

double LandingCost::Next(double unitPrice) {
    if (discount_) cost_ = *discount_;
    if (taxRate_) cost_ += *taxRate_;
    cost_ *= unitPrice;
    return cost_;
}

}  // namespace qm
