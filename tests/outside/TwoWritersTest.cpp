#include <gtest/gtest.h>

#include "tests/host/commands/Qmhost.h"
#include "tests/outside/PostedBooks.h"
#include "tests/outside/RunningProgram.h"

namespace test {
namespace {

// Nobody reserves a number, so both may draw the same one; that is how it is. The wait for the other one's
// short transactions is the class's own: not one posting may fail.
TEST(TwoWriters, LoseNoRowAndNoTotalBesideAnOpenList) {
    PostedBooks books;
    PostedRows told;
    {
        RunningProgram withList({POSTER, books.DataPath(), "500", "list"}),
            other({POSTER, books.DataPath(), "500"});
        std::vector<std::string> lines = withList.Lines();
        ASSERT_FALSE(lines.empty());
        EXPECT_EQ(lines.back(), "list 1");
        lines.pop_back();
        told.insert(lines.begin(), lines.end());
        lines = other.Lines();
        told.insert(lines.begin(), lines.end());
        EXPECT_EQ(withList.Wait(), 0);
        EXPECT_EQ(other.Wait(), 0);
    }
    EXPECT_EQ(told.size(), 2000U);
    EXPECT_EQ(books.Look(), told);
}

// The audit reads rows and totals one after the other: as of one moment, or they would differ. A voucher
// whose second row is just being posted is looked at again.
TEST(TwoWriters, LetTheAuditReadOneMoment) {
    PostedBooks books;
    RunningProgram poster({POSTER, books.DataPath(), "1000000"});
    for (int row = 0; row < 100; ++row) poster.Line();
    for (int look = 0; look < 12; ++look)
        EXPECT_EQ(Qmhost("check " + books.DataPath()).said, "0 errors, 0 notes\n");
}

}  // namespace
}  // namespace test
