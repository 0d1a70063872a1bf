#include <gtest/gtest.h>

#include "core/qmcls.h"
#include "platform/com/Guid.h"

namespace {

TEST(Guid, ReadsAndWritesTheUsualText) {
    constexpr const char* Text = "{B551ECA0-2F06-47CD-9DE9-DDD9C381468C}";
    EXPECT_EQ(com::GuidText(CLSID_clQm), Text);
    EXPECT_EQ(com::GuidText(IID__clQm), "{D75345EA-E517-4A9E-8700-3E445B1BA2DD}");
    EXPECT_EQ(com::GuidText(LIBID_TovikQm), "{EF807331-B71D-4EDA-B7DF-0599031846AB}");
    EXPECT_EQ(com::ReadGuid(Text), CLSID_clQm);
    EXPECT_EQ(com::ReadGuid("{b551eca0-2f06-47cd-9de9-ddd9c381468c}"), CLSID_clQm);
    EXPECT_EQ(com::ReadGuid("B551ECA0-2F06-47CD-9DE9-DDD9C381468C"), std::nullopt);
    EXPECT_EQ(com::ReadGuid("{B551ECA0-2F06-47CD-9DE9-DDD9C381468X}"), std::nullopt);
    EXPECT_EQ(com::ReadGuid(""), std::nullopt);
}

}  // namespace
