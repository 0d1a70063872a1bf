#include <fstream>

#include <gtest/gtest.h>

#include "host/make/Embedded.h"
#include "platform/ado/Errors.h"
#include "platform/ado/dialect/Plan.h"
#include "tests/platform/ado/PlainStore.h"
#include "tests/platform/ado/TestStore.h"

namespace {

using namespace ado;

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
        {"Update Ledger_Master Set Deleted = True Where Ledger_ID=5 And Fnncl_Yr = 2001", error::UnknownName},
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
        {"Delete From Ledger_Master Where Name", error::BadValue},
        {"Select * From Ledger_Master Where Name = 'a' Or 'b'", error::BadValue},
        {"Select Iif(Not UCase(Name), 1, 2) From Ledger_Master", error::BadValue},
        {"Update Ledger_Details Set Opening_Bal = Max(Opening_Bal)", error::Statement},
        {"Select * From Ledger_Master Where Ledger_ID = (Select Ledger_ID, Name From Ledger_Master)",
         error::Statement},
        {"Select Name From Ledger_Master Where Name In (Select Name From Ledger_Master)", error::Statement},
        {"Select Ledger_ID, Max(Group_Id) From Ledger_Master", error::Statement},
        {"Select *, Sum(Group_Id) From Ledger_Master Group By Ledger_ID", error::Statement},
        {"Select Max(Group_Id) From Ledger_Master Order By Name", error::Statement},
        {"Select Max(Sum(Group_Id)) From Ledger_Master", error::Statement},
        {"Select Max(Group_Id) From Ledger_Master Where Max(Group_Id) = 1", error::Statement},
        {"Insert Into tblError (ErrNumber) Values (Max(1))", error::Statement},
        {"Select Sum(Name) From Ledger_Master", error::BadValue},
        {"Select B.* From Ledger_Master As A", error::UnknownName},
        {"Select Ledger_Master.Name From Ledger_Master As A", error::UnknownName},
        {"Select A.Name From Ledger_Master As A, Ledger_Details As a", error::Statement},
        {"Select 1", error::Statement},
        {"Select * Into T From Ledger_Master Where Ledger_ID = 1", error::Statement},
        {"Drop Table Ledger_Master", error::Statement},
        {"", error::Statement},
        {"Select", error::Statement},
    };
    for (const auto& c : cases) EXPECT_EQ(Refusal(c.statement), c.number) << c.statement;
}

TEST(Dialect, TellsTheWordThatStandsInTheWay) {
    const struct {
        const char *statement, *word;
    } cases[] = {
        {"Select Name From Ledger_Master Where Ledger_ID Between 1 And 2", "'Between' is not supported"},
        {"Select Name From Ledger_Master Where Ledger_ID Not Between 1 And 2",
         "'Not Between' is not supported"},
        {"Select Name From Ledger_Master Where 1 = 1 And Name Not Between 'a' And 'b'",
         "'Not Between' is not supported"},
        {"Select Name From Ledger_Master Inner Join tblError On 1 = 1", "'Inner Join' is not supported"},
        {"Select Name From Ledger_Master As A Left Outer Join tblError On 1 = 1",
         "'Left Outer Join' is not supported"},
        {"Select Name From Ledger_Master Where Name Like 'a!%' Escape '!'", "'Escape' is not supported"},
        {"Select Name N From Ledger_Master", "'As' is expected before an alias where 'N' stands"},
        {"Select Ledger_ID + 1 [N] From Ledger_Master", "'As' is expected before an alias where [N] stands"},
        {"Select Name From Ledger_Master L", "'As' is expected before an alias where 'L' stands"},
        {"Select Group_Id From Ledger_Master Group By Group_Id Having 1", "'Having' is not supported"},
        {"Select Name From Ledger_Master Union Select Name From Ledger_Master", "'Union' is not supported"},
        {"Select Top 5 Name From Ledger_Master", "'Top' is not supported"},
        {"Select Count(*) From Ledger_Master", "'Count' is not supported"},
        {"Select Avg(Group_Id) From Ledger_Master", "'Avg' is not supported"},
        {"Select Name From Ledger_Master Where Name = a & b", "'&' is not supported"},
        {"Select Nobody From Ledger_Master", "'Nobody'"},
        {"Select Fnncl_Yr From Fnncl_Yr_Mstr, Ledger_Details", "'Fnncl_Yr' could refer to more than one"},
        {"Select * From tb_Ledger1999", "The table 'tb_Ledger1999' is not in the books"},
        {"Update tblError Set frmName = 'a' frmName", "where 'frmName' stands"},
    };
    for (const auto& [statement, word] : cases)
        EXPECT_NE(TextOfRefusal(statement).find(word), std::string::npos) << TextOfRefusal(statement);
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
