#include <memory>
#include <sstream>

#include <gmock/gmock.h>

#include "host/make/Books.h"
#include "host/make/BooksStore.h"
#include "host/make/YearTables.h"
#include "platform/basic/Error.h"
#include "tests/support/Cases.h"
#include "tests/support/TempFolder.h"

namespace {

using test::TempFolder;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Texts = std::vector<std::string>;

class Schema : public ::testing::Test {
  protected:
    Schema() {
        host::CreateBooks(folder_, 2007);
        store_ = std::make_unique<host::BooksStore>(folder_ / host::BooksFile);
    }
    Texts Run(const std::string& sql) { return store_->Run(sql); }
    bool Accepts(const std::string& sql) {
        try {
            Run(sql);
            return true;
        } catch (const basic::Error&) {
            return false;
        }
    }
    // "Name Type, Name Type, ..." in the order of the table.
    std::string Fields(const std::string& table) {
        std::string fields;
        const std::string statement = Run("SELECT sql FROM sqlite_master WHERE name = '" + table + "'").at(0);
        std::istringstream lines(statement.substr(statement.find('(') + 1));
        std::string line, name, type;
        for (std::getline(lines, line); std::getline(lines, line) && line != ")";) {
            std::istringstream(line) >> name >> type;
            if (type.back() == ',') type.pop_back();
            fields += (fields.empty() ? "" : ", ") + name + " " + type;
        }
        return fields;
    }

    const std::vector<test::Cells> tables = test::Cases("host/make/schema.txt", "Tables");
    TempFolder folder_;
    std::unique_ptr<host::BooksStore> store_;
};

TEST_F(Schema, HoldsEveryFieldWithItsType) {
    for (const test::Cells& table : tables) EXPECT_EQ(Fields(table.at(0)), table.at(1)) << table[0];
    EXPECT_THAT(Run("SELECT count(*) FROM sqlite_master WHERE type = 'table' AND name <> 'sqlite_sequence'"),
                ElementsAre(std::to_string(tables.size() + host::YearTables().size())));
}

TEST_F(Schema, GivesAYearItsTemplatesTablesWithChecksAndIndexes) {
    for (const auto& [source, stem, delivered] : host::YearTables()) {
        const std::string table = stem + "2007";
        EXPECT_EQ(Run("SELECT replace(sql, '" + table + "', '" + source +
                      "') FROM sqlite_master WHERE tbl_name = '" + table + "' ORDER BY name"),
                  Run("SELECT sql FROM sqlite_master WHERE tbl_name = '" + source + "' ORDER BY name"))
            << table;
        EXPECT_THAT(Run("SELECT 1 FROM " + table), IsEmpty());
        EXPECT_THAT(Run("SELECT 1 FROM " + source), IsEmpty());
    }
}

// A key would reorder a table or refuse the doubled rows that the routines can leave.
TEST_F(Schema, HasNoKeyButTheTwoCounters) {
    EXPECT_THAT(
        Run("SELECT name FROM sqlite_master WHERE sql LIKE '%KEY%' OR sql LIKE '%UNIQUE%' ORDER BY 1"),
        ElementsAre("Fnncl_Yr_Mstr", "Group_Head_Master"));
    for (int twice = 0; twice < 2; ++twice) {
        EXPECT_TRUE(Accepts("INSERT INTO Ledger_Details (Ledger_ID, Fnncl_Yr) VALUES (1, 2007)"));
        EXPECT_TRUE(Accepts("INSERT INTO ItemMaster2007 (Item_ID) VALUES (7)"));
        EXPECT_TRUE(Accepts("INSERT INTO Fnncl_Yr_Mstr (Fnncl_Yr) VALUES ('2007-2008')"));
    }
    Run("DELETE FROM Group_Head_Master WHERE Group_Id = 16");
    Run("INSERT INTO Group_Head_Master (Group_Head_Name) VALUES ('After')");
    EXPECT_THAT(Run("SELECT Group_Id FROM Group_Head_Master WHERE Group_Head_Name = 'After'"),
                ElementsAre("17"));
}

// Every field takes Null, and booleans read False then; number fields take no text, whole-number fields no
// fraction.
TEST_F(Schema, ChecksEveryField) {
    for (const test::Cells& cells : tables) {
        const std::string& table = cells[0];
        std::istringstream list(cells[1]);
        std::string field, type;
        while (list >> field >> type) {
            if (type.back() == ',') type.pop_back();
            if (field == "Group_Id" && table == "Group_Head_Master") continue;
            if (field == "Fnncl_Yr_Id") continue;
            const auto insert = [&](const std::string& value) {
                return Accepts("INSERT INTO " + table + " (" + field + ") VALUES (" + value + ")");
            };
            SCOPED_TRACE(table + "." + field);
            EXPECT_TRUE(insert("NULL"));
            EXPECT_TRUE(insert("1"));
            EXPECT_EQ(insert("1.5"), type == "DOUBLE");
            EXPECT_EQ(insert("'abc'"), type == "TEXT");
            EXPECT_EQ(insert("''"), type == "TEXT");
            EXPECT_FALSE(insert("x'00'"));
            EXPECT_EQ(insert("2"), type != "BOOLEAN");
            if (type == "BOOLEAN") {
                EXPECT_THAT(Run("SELECT " + field + " FROM " + table + " ORDER BY rowid"),
                            ElementsAre("0", "1"));
            }
            Run("DELETE FROM " + table);
        }
    }
}

TEST_F(Schema, DefaultsOnlyWhatMustReadAsSet) {
    Run("INSERT INTO tblsysTPL (ParticularDr, AmtDr) VALUES ('Rent', 5)");
    Run("INSERT INTO tblsysTPL (ParticularCr, AmtCr) VALUES ('Sales', 7)");
    EXPECT_THAT(
        Run("SELECT ParticularDr || '|' || AmtDr || '|' || ParticularCr || '|' || AmtCr FROM tblsysTPL"),
        ElementsAre("Rent|5.0| |0.0", " |0.0|Sales|7.0"));
    EXPECT_THAT(Run("SELECT group_concat(name) FROM sqlite_master WHERE sql LIKE '%DEFAULT%' AND sql NOT "
                    "LIKE '%BOOLEAN%'"),
                ElementsAre("tblsysTPL"));
}

}  // namespace
