#include <gtest/gtest.h>

#include "tests/platform/ado/TestStore.h"

// What conditions and values come to when the store runs their translation.
namespace {

using namespace ado;

class Comparison : public ::testing::Test {
  protected:
    std::string Ids(const std::string& condition) {
        return ado::test::Rows(connection_, "Select Id From T Where " + condition);
    }

    ado::test::TestStore store_{R"(
        CREATE TABLE T (Id INTEGER, Flag BOOLEAN NOT NULL DEFAULT 0, Qty DOUBLE, Name TEXT, Code TEXT);
        INSERT INTO T VALUES (1, 1, 5.0, 'Äbc', '5'), (2, 0, 0.0, 'def', 'x'), (3, 0, NULL, NULL, NULL))"};
    ConnectionPtr connection_ = store_.Connect();
};

TEST_F(Comparison, FitsItsTwoSides) {
    const struct {
        const char *condition, *ids;
    } cases[] = {
        // Texts, without regard to case.
        {"Name = 'äBC'", "1"},
        {"'ÄBC' = Name", "1"},
        {"Name In ('x', 'äbC')", "1"},
        {"Name Not In ('ÄBC')", "2"},
        {"UCase(Name) = 'äbc'", "1"},
        {"Left(Name, 2) = 'äB'", "1"},
        {"'a' = 'A'", "1 2 3"},
        {"Name Not Like '%C'", "2"},
        // A number beside a text that is or is not one.
        {"Qty = '5'", "1"},
        {"Qty = 'abc'", ""},
        {"Qty <> 'abc'", "1 2"},
        {"Qty + 0 = '5'", "1"},
        {"Qty + 0 In ('x', '5')", "1"},
        {"'5' = Qty + 0", "1"},
        {"5 = '5'", "1 2 3"},
        {"Code = 5", "1"},
        {"5.0 = Code", "1"},
        {"5 In (Code)", "1"},
        {"Code = '5.0'", ""},
        {"Code = Qty", "1"},
        {"Code = Qty + 0", "1"},
        // Booleans.
        {"Flag", "1"},
        {"Not Flag", "2 3"},
        {"Flag = 1", "1"},
        {"Flag = -1", "1"},
        {"Flag <> 0", "1"},
        {"Flag = True", "1"},
        {"Flag = -Id", "1"},
        {"Flag = 2", ""},
        {"Flag <> -2", "1 2 3"},
        {"Flag = 0.5 - 1.5", "1"},
        {"Flag = (3 + 4)", ""},
        {"Qty = True", ""},
        {"Qty - 4 = True", "1"},
        {"Qty - 6 = True", "1"},
        {"Qty = False", "2"},
        {"Qty <> True", "1 2"},
        {"Flag In (False, 0)", "2 3"},
        {"Flag = Id - 2", "1 2"},
        // Each item of a list for itself.
        {"Id In (2, True)", "1 2"},
        {"Id In (True, 2)", "1 2"},
        {"Id Not In (True, 2)", "3"},
        {"5 In (Code, 5)", "1 2 3"},
        {"5 Not In (Code, 6)", "2"},
        {"(Id + 0) In ('2', True, 3, Code)", "1 2 3"},
        {"(3 - Id) In (Flag, -1)", "3"},
        {"(Id = 2) = True", "2"},
        {"CStr(Flag) = 'true'", "1"},
        {"Flag Like 'Fa%'", "2 3"},
        {"Name = Flag", ""},
        {"Qty + True = 4", "1"},
        // Null, Iif, precedence.
        {"Qty = Null", ""},
        {"Qty Is Null", "3"},
        {"Not IsNull(Qty)", "1 2"},
        {"Iif(IsNull(Qty), 0, Qty) = 0", "2 3"},
        {"Iif(Flag, 'Yes', 0) = '0'", "2 3"},
        {"Iif(Flag, Null, Name) = 'DEF'", "2"},
        {"Id = 1 Or Id = 2 And Flag", "1"},
        {"Not Qty = 5 And Not Id = 3", "2"},
        // Arithmetic.
        {"Id / 2 = 1.5", "3"},
        {"12 / Id / 2 * 3 = 9", "2"},
        {"10 - Id - 2 = 6", "2"},
        {"Qty - -5 = 10", "1"},
        {"Qty --5 = 10", "1"},
        {"-(Id + 1) * -2 = 8", "3"},
        // Subselects.
        {"Qty = (Select Max(Qty) From T)", "1"},
        {"Name = (Select 'DEF' From T As U Where U.Id = 1)", "2"},
        {"Id = (Select Id From T Where Qty = 0)", "2"},
        {"Id = (Select Id From T Where Qty = 99)", ""},
        {"Id = (Select T.Id From T As U Where U.Id = 3)", "1 2 3"},
        {"1 = (Select Max(U.Id) From T As U Where U.Id < T.Id)", "2"},
    };
    for (const auto& [condition, ids] : cases) EXPECT_EQ(Ids(condition), ids) << condition;
    EXPECT_EQ(ado::test::ErrorOf(connection_, "Select Id From T Where Id = (Select Id From T As U)"),
              error::Statement);
    // Patterns of a wider dialect, read from the statement (of an empty table, too) or from a field.
    for (const char* like : {"Id = 9 And Name Like '[AB]%'", "Name Not Like '%[0-9'", "'x' Like Code + ''",
                             "'x' Like Iif(Flag, '[', Code)"})
        EXPECT_NE(ado::test::ErrorOf(connection_, std::string("Select Id From T Where ") + like), 0) << like;
}

TEST_F(Comparison, StoresWhatTheFieldTakes) {
    const struct {
        const char *field, *value, *stored;
    } cases[] = {
        {"Name", "Flag", "True"},   {"Name", "False", "False"}, {"Name", "3/2", "1.5"},
        {"Qty", "True", "-1"},      {"Qty", "Flag", "-1"},      {"Qty", "Code", "5"},
        {"Flag", "Id - 3", "True"}, {"Flag", "Null", "False"},  {"Code", "Iif(Flag, 1.50, 'x')", "1.5"},
    };
    for (const auto& [field, value, stored] : cases) {
        connection_->BeginTrans();
        connection_->Execute(std::string("Update T Set ") + field + " = " + value + " Where Id = 1");
        EXPECT_EQ(ado::test::Rows(connection_, std::string("Select ") + field + " From T Where Id = 1"),
                  stored)
            << field << " = " << value;
        connection_->RollbackTrans();
    }
}

}  // namespace
