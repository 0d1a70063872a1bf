#include "queries/PrimaryGroups.h"

namespace queries {

std::vector<PrimaryGroup> PrimaryGroups(Reading& books) {
    std::vector<PrimaryGroup> groups;
    const auto rows =
        books.Select("Select Group_Head_Name, GrpType From Group_Head_Master Where Parent_Id = 0");
    for (; !rows->Eof(); rows->MoveNext())
        groups.push_back(
            {basic::TextOrEmpty((*rows)["Group_Head_Name"]), basic::TextOrEmpty((*rows)["GrpType"])});
    return groups;
}

}  // namespace queries
