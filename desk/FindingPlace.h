#pragma once

#include <QString>
#include <functional>
#include <string>
#include <vector>

#include "host/audit/Audit.h"

namespace desk {

class Desk;

// Where what a finding is about can be looked at and mended.
struct FindingPlace {
    QString Text;                // "Voucher 12", with its year where another is in force; "" for nowhere
    std::string OtherYear;       // that must be in force for it, where another is; "" else
    std::function<void()> Open;  // goes there; none for nowhere
};

class FindingPlaces {
  public:
    explicit FindingPlaces(Desk& desk);
    FindingPlace Of(const host::Subject& subject) const;

  private:
    Desk& desk_;
    std::vector<std::string> years_;  // that the books know, in their short forms
    std::string inForce_;
};

}  // namespace desk
