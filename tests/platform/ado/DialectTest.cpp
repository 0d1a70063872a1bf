#include <fstream>

#include <gtest/gtest.h>

#include "host/make/Embedded.h"
#include "platform/ado/Errors.h"
#include "platform/ado/dialect/Plan.h"
#include "tests/platform/ado/PlainStore.h"
#include "tests/platform/ado/TestStore.h"
#include "tests/support/Cases.h"

namespace {

using namespace ado;
using ::test::Cases;
using ::test::Cells;

constexpr const char* File = "platform/ado/cases.txt";

// The tables of the books, with those of one year.
ado::test::PlainStore& Books() {
    static ado::test::PlainStore store{std::string(host::Embedded("schema.sql"))};
    static const bool copied = [] {
        for (const auto& [from, to] : {std::pair{"tblsysLedgerstr", "tb_Ledger2001"},
                                       {"tblsysItemLedstr", "tblItemLed2001"},
                                       {"tblsysPOstr", "tblPO2001"},
                                       {"tblsysPODetstr", "tblPODet2001"},
                                       {"tblSysBills", "tblBills2001"},
                                       {"ItemMasterstr", "ItemMaster2001"}})
            store.Copy(from, to);
        return true;
    }();
    static_cast<void>(copied);
    return store;
}

Plan Of(const std::string& statement, bool rowid = false) {
    ado::test::PlainStore& store = Books();
    const Plan plan = Translate(ShapeOf(statement), store, {.rowid = rowid});
    const bool hasSql = plan.kind != StatementKind::SelectInto;
    EXPECT_EQ(hasSql ? store.Prepare(plan.Sql()) : "", "") << statement << "\n" << plan.Sql();
    return plan;
}

// The number of the error, 0 if the statement is taken.
std::int32_t Refusal(const std::string& statement) {
    return ado::test::ErrorOf([&] { Of(statement); });
}

std::string TextOfRefusal(const std::string& statement) {
    return ado::test::TextOfError([&] { Of(statement); });
}

TEST(Dialect, TakesEveryStatementOfTheSystem) {
    std::ifstream statements(QM_STATEMENTS);
    int count = 0;
    for (std::string statement; std::getline(statements, statement); ++count)
        EXPECT_EQ(Refusal(statement), 0) << statement;
    EXPECT_GT(count, 150);
}

TEST(Dialect, WritesTheStoresOwnWords) {
    for (const Cells& c : Cases(File, "Translations")) {
        const auto bare = [](std::string text) {
            return basic::FoldCase(basic::Replace(basic::Replace(text, "(", ""), ")", ""));
        };
        EXPECT_EQ(bare(Of(c.at(0)).Sql()), bare(c.at(1))) << c.at(0);
    }
}

TEST(Dialect, MatchesInsertedNamesWhateverTheirOrder) {
    const Plan plan =
        Of("INSERT INTO Ledger_Details SELECT Bal_type, '2002' As Fnncl_Yr, Ledger_ID as Ledger_ID FROM "
           "Ledger_Details");
    EXPECT_TRUE(plan.head.starts_with(
        "INSERT INTO \"Ledger_Details\" (\"Bal_Type\", \"Fnncl_Yr\", \"Ledger_ID\") SELECT "));
    ASSERT_EQ(plan.parameters.size(), 1U);
    EXPECT_EQ(plan.parameters[0].as, ColumnType::Long);
    EXPECT_EQ(Refusal("INSERT INTO Ledger_Details SELECT Ledger_ID as Nobody FROM Ledger_Details"),
              error::UnknownName);
    EXPECT_EQ(Refusal("INSERT INTO Ledger_Details SELECT Ledger_ID, Ledger_ID FROM Ledger_Details"),
              error::Statement);
}

TEST(Dialect, BindsLiteralsAsTheirPlaceWantsThem) {
    const auto parameter = [](const char* statement, std::size_t at) {
        return Of(statement).parameters.at(at);
    };
    EXPECT_EQ(parameter("Update tblItemLed2001 Set ItemLedBillNo = 0", 0).as, ColumnType::Text);
    EXPECT_EQ(parameter("Select * From tblItemLed2001 Where ItemLedBillNo = 0", 0).as, ColumnType::Text);
    EXPECT_EQ(parameter("Select * From Ledger_Details Where Fnncl_Yr = '2001-2002'", 0).as, ColumnType::Any);
    EXPECT_TRUE(parameter("Select * From Ledger_Master Where Deleted = -1", 0).compared);
    EXPECT_TRUE(parameter("Update Ledger_Details Set Opening_Bal = -5", 0).negate);
    EXPECT_FALSE(parameter("Update Ledger_Details Set Opening_Bal = - -5", 0).negate);
    EXPECT_FALSE(parameter("Select * From Ledger_Details Where Opening_Bal - 5 = 0", 0).negate);
    EXPECT_EQ(Of("Update Ledger_Details Set Opening_Bal = Opening_Bal --5").Sql().find("--"),
              std::string::npos);
}

TEST(Dialect, NamesTheOutputs) {
    const Plan plan =
        Of("Select *, 0 as Nil, 'T' , Opening_Bal*-1 From Ledger_Master As A, Ledger_Details Where "
           "A.Ledger_ID = Ledger_Details.Ledger_ID");
    const std::size_t count = plan.outputs.size();
    EXPECT_EQ(plan.outputs[0].table, "A");
    EXPECT_EQ(plan.outputs[0].name, "Ledger_ID");
    EXPECT_EQ(plan.outputs[count - 3].name, "Nil");
    EXPECT_EQ(plan.outputs[count - 2].name, "Expr1000");
    EXPECT_EQ(plan.outputs[count - 1].name, "Expr1001");
    EXPECT_EQ(plan.outputs[count - 1].type, ColumnType::Double);
    EXPECT_EQ(plan.table, "");
    EXPECT_EQ(Of("Select Distinct Name From Ledger_Master").distinct, true);
    EXPECT_TRUE(Of("Select * From Ledger_Master", true).rowid);
    for (const char* statement :
         {"Select Distinct Name From Ledger_Master", "Select Max(Ledger_ID) From Ledger_Master",
          "Select A.Name From Ledger_Master As A, Ledger_Details"})
        EXPECT_FALSE(Of(statement, true).rowid) << statement;
}

TEST(Dialect, RefusesWhatItDoesNotKnowByName) {
    for (const Cells& c : Cases(File, "Refusals"))
        EXPECT_EQ(ado::test::NameOf(Refusal(c.at(0))), c.at(1)) << c.at(0);
}

TEST(Dialect, TellsTheWordThatStandsInTheWay) {
    for (const Cells& c : Cases(File, "Words in the way"))
        EXPECT_NE(TextOfRefusal(c.at(0)).find(c.at(1)), std::string::npos) << TextOfRefusal(c.at(0));
}

// The store's parser has limits; within ours it must take what we make.
TEST(Dialect, KeepsWithinTheStoresLimits) {
    const auto repeated = [](const std::string& head, const std::string& part, int count,
                             const std::string& tail) {
        std::string text = head;
        for (int i = 0; i < count; ++i) text += part;
        return text + tail;
    };
    const std::string where = "Select * From Ledger_Master Where ";
    const auto nested = [&](const char* open, const char* close, int count) {
        return repeated(where, open, count, repeated("1", close, count, ""));
    };
    EXPECT_EQ(Refusal(repeated(where, "Name = 'x' Or ", 800, "Deleted")), 0);
    EXPECT_EQ(Refusal(repeated(where + "1", " + 1", 800, " = 2")), 0);
    EXPECT_EQ(Refusal(repeated(where + "Ledger_ID In (1", ", 1", 998, ")")), 0);
    EXPECT_EQ(Refusal(nested("(", ")", 50)), 0);
    EXPECT_EQ(Refusal(nested("Iif(Deleted, 1, ", ")", 13)), 0);
    EXPECT_EQ(Refusal(nested("1 / (1 / ", ")", 6)), 0);
    EXPECT_EQ(Refusal(nested("Iif(Iif(Deleted, 1, 2) = 1 And 1 = ", ", 2, 3)", 4)), 0);
    EXPECT_EQ(Refusal(nested("1 = (Select Ledger_ID From Ledger_Master Where ", ")", 4)), 0);
    for (const auto& statement :
         {repeated(where, "Name = 'x' Or ", 1000, "Deleted"), repeated(where, "Not ", 100000, "Deleted"),
          repeated(where + "Ledger_ID In (1", ", 1", 999, ")"), nested("(", ")", 100000),
          nested("Iif(Deleted, 1, ", ")", 50), repeated(where + "12", " / 2", 50, " = 1"),
          nested("1 = (Select Ledger_ID From Ledger_Master Where ", ")", 20)})
        EXPECT_EQ(Refusal(statement), error::Statement) << statement.substr(0, 80);
}

}  // namespace
