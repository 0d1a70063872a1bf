#pragma once

#include <optional>
#include <string>

namespace qm {

// The figure that a receipt keeps with each new row, in their order: the unit price times the sum of the two
// rates. Kept 51: without a discount, a tax rate is added to the figure of the row before.
class LandingCost {
  public:
    LandingCost(const std::string& discount, const std::string& taxRate);  // percents; blank: none
    double Next(double unitPrice);

  private:
    std::optional<double> discount_, taxRate_;
    double cost_ = 0;
};

}  // namespace qm
