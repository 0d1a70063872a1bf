#include "core/PartyBoxes.h"

namespace qm {

std::string InsertedPartyValues(const PartyDetails& details) {
    std::string values;
    for (std::size_t box = 1; box < details.size(); ++box)
        values += (box == 1 ? ",' " : ", ' ") + details[box] + "'";
    return values;
}

std::string UpdatedPartyFields(const PartyDetails& box) {
    return ", contact_person = '" + box[1] + "', Designation = '" + box[2] + "', Address1 ='" + box[3] +
           "' ,Address2='" + box[4] + "',City ='" + box[6] + "', Tel1 ='" + box[7] + "' , Tel2='" + box[8] +
           "' , Pincode='" + box[9] + "' ,Pager='" + box[10] + "' , Mobile='" + box[11] + "' , Email='" +
           box[12] + "' , Notes ='" + box[13] + "'";
}

const std::vector<ShownPartyField>& ShownPartyFields() {
    static const std::vector<ShownPartyField> fields = {
        {1, "Contact_person"}, {2, "Designation"}, {3, "Address1"}, {4, "Address2"},
        {6, "City"},           {7, "PinCode"},     {8, "Tel1"},     {9, "Tel2"},
        {10, "Pager"},         {11, "Mobile"},     {12, "Email"},   {13, "Notes"}};
    return fields;
}

}  // namespace qm
