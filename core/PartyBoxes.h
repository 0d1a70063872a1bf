#pragma once

#include <array>
#include <string>
#include <vector>

namespace qm {

// The boxes of a debtor's or supplier's details, by their number in the array Text1, and the fields of
// Ledger_Master that they stand for. What is typed in one when a ledger is added comes back in another: the
// three columns are out of step on purpose. Kept 22.
//
//     Box  Label               Add writes      Update writes   shows
//       1  Contact Person      Company_name    contact_person  Contact_person
//       2  Designation         contact_person  Designation     Designation
//       3  Address, line 1     Designation     Address1        Address1
//       4  Address, line 2     Address1        Address2        Address2
//       5  Address, line 3     Address2        -               -
//       6  City                City            City            City
//       7  Pincode             Tel1            Tel1            PinCode
//       8  Telephone #1        Tel2            Tel2            Tel1
//       9  Telephone #2        Pincode         Pincode         Tel2
//      10  Pager               Pager           Pager           Pager
//      11  Mobile              Mobile          Mobile          Mobile
//      12  Email               Email           Email           Email
//      13  Notes               Notes           Notes           Notes
using PartyDetails = std::array<std::string, 14>;  // as typed, by the box's number; 0 is free

// The values of an insert, in the order of the boxes, each behind a comma: ",' Ravi', ' Owner'" and so on.
// Each is stored with a blank before it, an empty one too.
std::string InsertedPartyValues(const PartyDetails& details);

// The assignments of an update, each behind a comma.
std::string UpdatedPartyFields(const PartyDetails& details);

struct ShownPartyField {
    int Box;
    const char* Field;
};
const std::vector<ShownPartyField>& ShownPartyFields();

}  // namespace qm
