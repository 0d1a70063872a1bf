#include "tests/support/Golden.h"

#include <cstdlib>
#include <fstream>
#include <iterator>

#include <gtest/gtest.h>

#include "platform/basic/Text.h"

namespace test {

void ExpectGolden(const std::string& name, std::string page) {
    EXPECT_EQ(page.find("¶"), std::string::npos);
    page = basic::Replace(page, "\r\n", "¶");
    for (const char* element : {"<tr", "<table", "</table>"})
        page = basic::Replace(page, element, std::string("\n") + element);
    page += '\n';
    const std::string file = GOLDEN_FOLDER "/" + name;
    if (std::getenv("QM_GOLDEN")) {
        std::ofstream(file) << page;
        ADD_FAILURE() << file << " was written";
        return;
    }
    std::ifstream golden(file);
    EXPECT_EQ(page, std::string(std::istreambuf_iterator<char>(golden), {})) << name;
}

}  // namespace test
