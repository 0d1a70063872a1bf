#include <gtest/gtest.h>

#include "platform/ado/Dialect.h"
#include "platform/ado/Errors.h"
#include "platform/basic/Error.h"
#include "tests/platform/ado/PlainStore.h"
#include "tests/platform/ado/Statements.h"

namespace {

using namespace ado;

Plan Of(const std::string& statement, bool rowid = false) {
    static test::PlainStore store;
    const Plan plan = Translate(ShapeOf(statement), store, {.rowid = rowid});
    const bool hasSql = plan.kind != StatementKind::SelectInto;
    EXPECT_EQ(hasSql ? store.Prepare(plan.Sql()) : "", "") << statement << "\n" << plan.Sql();
    return plan;
}

std::int32_t Refusal(const std::string& statement) {
    try {
        Of(statement);
    } catch (const basic::Error& error) {
        EXPECT_NE(error.Description, "");
        return error.Number;
    }
    return 0;
}

TEST(Dialect, TakesEveryStatementOfTheSystem) {
    for (const char* statement : test::SystemStatements) EXPECT_NO_THROW(Of(statement)) << statement;
}

TEST(Dialect, WritesTheStoresOwnWords) {
    const struct {
        const char *statement, *sql;
    } cases[] = {
        {"Select vchrmstType From tblvchrmst",
         "SELECT \"tblvchrmst\".\"vchrmstType\" FROM \"tblvchrmst\" ORDER BY \"tblvchrmst\".rowid"},
        {"Delete * From tblsystpl", "DELETE FROM \"tblsystpl\""},
        {"Select Name From Ledger_Master As A Where A.Name = 'x' Order By Name Desc",
         "SELECT \"A\".\"Name\" FROM \"Ledger_Master\" AS \"A\" WHERE (\"A\".\"Name\" COLLATE QMTEXT = ?1) "
         "ORDER BY "
         "\"A\".\"Name\" COLLATE QMTEXT DESC, \"A\".rowid"},
        {"Update tblvchrmst Set vchrmstfinyear = 2002 Where vchrmstFinYear = 0",
         "UPDATE \"tblvchrmst\" SET \"vchrmstFinYear\" = ?1 WHERE (\"tblvchrmst\".\"vchrmstFinYear\" = ?2)"},
        {"Select Max(LedgerTrnNo) As High from tb_Ledger2001",
         "SELECT max(\"tb_Ledger2001\".\"LedgerTrnNo\") FROM \"tb_Ledger2001\""},
        {"Insert Into tblvchrmst (vchrmstLastNo) Values (Iif(IsNull(Null), 1, 2) + 3)",
         "INSERT INTO \"tblvchrmst\" (\"vchrmstLastNo\") VALUES (qm_long((CASE WHEN (NULL IS NULL) THEN ?1 "
         "ELSE ?2 END) + ?3))"},
    };
    for (const auto& c : cases) {
        std::string sql = Of(c.statement).Sql();
        // Which parentheses stand, and in which case a table's name, is not the point.
        const auto bare = [](std::string text) {
            return basic::FoldCase(basic::Replace(basic::Replace(text, "(", ""), ")", ""));
        };
        EXPECT_EQ(bare(sql), bare(c.sql)) << c.statement;
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
    const struct {
        const char* statement;
        std::int32_t number;
    } cases[] = {
        {"Delete  FROM ItemMaster2001WHERE  Item_ID=5", error::NoSuchTable},
        {"Delete From tblError Nonsense", error::Statement},
        {"Select * From tb_Ledger1999", error::NoSuchTable},
        {"Select Nobody From tblError", error::UnknownName},
        {"Select Ledger_ID From Ledger_Master, Ledger_Details", error::Statement},
        {"Insert Into tblError (frmName, ErrDesc) Values ('a')", error::Statement},
        {"Insert Into tblError (frmName) Values ('a', 'b')", error::Statement},
        {"Insert Into tblError (frmName) Values ('a', )", error::Statement},
        {"Update Ledger_Details Set  Where Ledger_ID = 1", error::Statement},
        {"Update Ledger_Details Set Opening_Bal = 1 Where Fnncl_Yr = ", error::Statement},
        {"Select * From Ledger_Master Where Ledger_ID Between 1 And 2", error::Statement},
        {"Select Count(*) From Ledger_Master", error::Statement},
        {"Select Name From Ledger_Master Union Select Name From Ledger_Master", error::Statement},
        {"Select Name Into T From Ledger_Master", error::Statement},
        {"Select * From Ledger_Master Where Name = #1/1/2001#", error::Statement},
        {"Update Ledger_Master Set Name = 'a' + 1", error::BadValue},
        {"Update Ledger_Details Set Opening_Bal = Max(Opening_Bal)", error::Statement},
        {"Select * From Ledger_Master Where Ledger_ID = (Select Ledger_ID, Name From Ledger_Master)",
         error::Statement},
        {"Drop Table Ledger_Master", error::Statement},
        {"", error::Statement},
        {"Select", error::Statement},
    };
    for (const auto& c : cases) EXPECT_EQ(Refusal(c.statement), c.number) << c.statement;
}

}  // namespace
