// The tables of the books in a server's words, and a server's failures in ours.
#include <optional>

#include <gmock/gmock.h>

#include "host/make/Embedded.h"
#include "platform/ado/Errors.h"
#include "platform/ado/store/PostgresSchema.h"
#include "platform/basic/Text.h"
#include "tests/platform/ado/ServerSession.h"
#include "tests/support/ErrorOf.h"

using testing::ElementsAre;

namespace ado::test {
namespace {

struct PostgresSchemaTest : testing::Test {
    void SetUp() override {
        QM_NEEDS_SERVER();
        server.emplace();
        for (const SchemaTable& table : ReadSchema(host::Embedded("schema.sql")))
            server->Run(PostgresDefinition(table));
    }
    std::optional<ServerSession> server;
};

TEST_F(PostgresSchemaTest, HoldsTheDeliveredTables) {
    EXPECT_THAT(
        server->Rows(
            "SELECT string_agg(attname || ' ' || format_type(atttypid, NULL), ', ' ORDER BY attnum) FROM "
            "pg_attribute WHERE attrelid = '\"tblsysPOstr\"'::regclass AND attnum > 0"),
        ElementsAre(
            "poNumber integer, poSupplierID integer, PoDate integer, poSupplierName text, PoDlvTerm text, "
            "poCancelled boolean, rowid bigint"));
    EXPECT_THAT(
        server->Rows("SELECT replace(indexdef, schemaname || '.', '') FROM pg_indexes WHERE "
                     "schemaname = current_schema() AND indexname = "
                     "'ix_tblsysLedgerstr_Totals'"),
        ElementsAre(
            "CREATE INDEX \"ix_tblsysLedgerstr_Totals\" ON \"tblsysLedgerstr\" USING btree "
            "(\"LedgerCode\" NULLS FIRST, \"LedgerTxnDate\" NULLS FIRST, \"LedgerDrAmt\" NULLS FIRST, "
            "\"LedgerCrAmt\" NULLS FIRST)"));
    server->Run("INSERT INTO \"tblsysTPL\" (\"Type\") VALUES ('T')");
    EXPECT_THAT(server->Rows("SELECT \"ParticularDr\" || '|' || \"AmtCr\" FROM \"tblsysTPL\""),
                ElementsAre(" |0"));
}

// A number is never given twice, but that of an insert that was rolled back.
TEST_F(PostgresSchemaTest, CountsAsTheEmbeddedStoreDoes) {
    const auto add = [&](const std::string& id) {
        return server
            ->Rows("INSERT INTO \"Group_Head_Master\" (\"Group_Id\") VALUES (" + id + ") RETURNING rowid")
            .at(0);
    };
    EXPECT_EQ(add("DEFAULT"), "1");
    server->Run("BEGIN");
    EXPECT_EQ(add("NULL"), "2");
    server->Run("ROLLBACK");
    EXPECT_EQ(add("NULL"), "2");
    EXPECT_EQ(add("9"), "9");
    EXPECT_EQ(add("4"), "4");
    server->Run("DELETE FROM \"Group_Head_Master\"");
    EXPECT_EQ(add("DEFAULT"), "10");
}

TEST_F(PostgresSchemaTest, FailuresAreThoseOfTheDataLayer) {
    const struct {
        const char* statement;
        std::int32_t number;
    } cases[] = {
        {"SELECT 1.0::float8 / 0", basic::error::DivisionByZero},
        {"SELECT 40000::bigint::smallint", basic::error::Overflow},
        {"SELECT (SELECT x FROM (VALUES (1), (2)) v(x))", error::Statement},
        {"SELECT * FROM \"tb_Ledger2099\"", error::NoSuchTable},
        {"SELECT 'abc'::integer", error::BadValue},
        {"INSERT INTO \"Group_Head_Master\" (\"Group_Id\") VALUES (1), (1)", error::BadValue},
        {"BEGIN READ ONLY; DELETE FROM \"tblError\"", error::ReadOnly},
        {"ROLLBACK; SET ROLE pg_monitor; CREATE SCHEMA mine", error::ReadOnly},
        {"RESET ROLE; SELECT pg_terminate_backend(pg_backend_pid())", error::ConnectionLost},
    };
    for (const auto& c : cases)
        EXPECT_EQ(::test::ErrorOf([&] { server->Run(c.statement); }), c.number) << c.statement;
    EXPECT_EQ(PostgresFailure("42P01", "relation \"tb_Ledger2099\" does not exist").Description,
              "The books hold no table 'tb_Ledger2099'.");
    EXPECT_EQ(
        PostgresFailure("55P03", "canceling statement due to lock timeout").Description,
        "Another program is writing to the books. Waited 5 seconds for it to finish; please try again.");
}

TEST(Schema, RefusesWhatAServerWouldCutOff) {
    const std::string longName(64, 'x');
    for (const std::string& script :
         {"CREATE TABLE " + longName + " (a TEXT)", std::string("CREATE TABLE t (a BLOB)"),
          std::string("CREATE VIEW v (a)")})
        EXPECT_EQ(::test::ErrorOf([&] { PostgresDefinition(ReadSchema(script).at(0)); }), error::Statement)
            << script;
    EXPECT_EQ(Renamed(ReadSchema("CREATE TABLE tpl (a TEXT); CREATE INDEX ix_tpl_a ON tpl (a)").at(0), "t1")
                  .indexes.at(0)
                  .name,
              "ix_t1_a");
}

}  // namespace
}  // namespace ado::test
