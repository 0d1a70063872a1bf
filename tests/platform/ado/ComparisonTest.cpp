#include <gtest/gtest.h>

#include "tests/platform/ado/TestStore.h"
#include "tests/support/Cases.h"

// What conditions and values come to when the store runs their translation.
namespace {

using namespace ado;
using ::test::Cases;
using ::test::Cells;

class Comparison : public ::testing::Test {
  protected:
    Comparison() {
        for (const char* row :
             {"1, True, 5.0, 'Äbc', '5'", "2, False, 0.0, 'def', 'x'", "3, False, Null, Null, Null"})
            connection_->Execute(std::string("Insert Into T Values (") + row + ")");
    }

    std::string Ids(const std::string& condition) {
        return ado::test::Rows(connection_, "Select Id From T Where " + condition);
    }
    // As a host's own condition; the number of the error where there is one.
    std::string IdsOfHost(const std::string& condition) {
        std::string ids;
        const std::int32_t failed = ::test::ErrorOf([&] {
            Recordset rows;
            rows.Open("Select Id From T Where " + condition, connection_, adOpenForwardOnly, adLockReadOnly,
                      adHostCondition);
            for (; !rows.Eof(); rows.MoveNext()) ids += (ids.empty() ? "" : " ") + basic::ToText(rows["Id"]);
        });
        return failed == 0 ? ids : "error " + std::to_string(failed);
    }

    ado::test::TestStore store_{R"(
        CREATE TABLE T (Id INTEGER, Flag BOOLEAN NOT NULL DEFAULT 0, Qty DOUBLE, Name TEXT, Code TEXT))"};
    ConnectionPtr connection_ = store_.Connect();
};

TEST_F(Comparison, FitsItsTwoSides) {
    for (const Cells& c : Cases("platform/ado/cases.txt", "Conditions"))
        EXPECT_EQ(Ids(c.at(0)), c.at(1)) << c.at(0);
    EXPECT_EQ(ado::test::ErrorOf(connection_, "Select Id From T Where Id = (Select Id From T As U)"),
              error::Statement);
    // Patterns of a wider dialect, read from the statement (of an empty table, too) or from a field.
    for (const char* like : {"Id = 9 And Name Like '[AB]%'", "Name Not Like '%[0-9'", "'x' Like Code + ''",
                             "'x' Like Iif(Flag, '[', Code)"})
        EXPECT_NE(ado::test::ErrorOf(connection_, std::string("Select Id From T Where ") + like), 0) << like;
}

// And what it holds beyond a statement's own is refused anywhere else.
TEST_F(Comparison, AHostsOwnConditionKnowsMore) {
    for (const Cells& c : Cases("platform/ado/cases.txt", "Conditions"))
        EXPECT_EQ(IdsOfHost(c.at(0)), c.at(1)) << c[0];
    for (const Cells& c : Cases("platform/ado/cases.txt", "Host conditions")) {
        EXPECT_EQ(IdsOfHost(c.at(0)), c.at(1)) << c[0];
        if (c[0].find(" Like ") == std::string::npos || c[0].find('[') != std::string::npos) {
            EXPECT_EQ(ado::test::ErrorOf(connection_, "Select Id From T Where " + c[0]), error::Statement)
                << c[0];
        }
    }
}

TEST_F(Comparison, StoresWhatTheFieldTakes) {
    for (const Cells& c : Cases("platform/ado/cases.txt", "Fitted values")) {
        connection_->BeginTrans();
        connection_->Execute("Update T Set " + c.at(0) + " = " + c.at(1) + " Where Id = 1");
        EXPECT_EQ(ado::test::Rows(connection_, "Select " + c[0] + " From T Where Id = 1"), c.at(2))
            << c[0] << " = " << c[1];
        connection_->RollbackTrans();
    }
}

}  // namespace
