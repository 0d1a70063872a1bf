#include <gtest/gtest.h>

#include "core/DBCode.h"
#include "core/ErrorModule.h"
#include "core/GeneralUtils.h"
#include "core/modGeneral.h"
#include "platform/basic/Clock.h"
#include "platform/basic/Dates.h"
#include "tests/support/BoxScript.h"
#include "tests/support/FreshBooks.h"

namespace {

using Lines = std::vector<std::string>;

TEST(DateNumber, ConvertsBothWays) {
    const struct {
        basic::Value given, expected;
    } cases[] = {{basic::MakeDate(2001, 4, 1), std::int32_t{36980}},
                 {std::string("31-Mar-2002"), std::int32_t{37344}},
                 {basic::Date{basic::MakeDate(2001, 4, 1).Serial + 0.75}, std::int32_t{36980}},
                 {std::int32_t{36980}, basic::MakeDate(2001, 4, 1)},
                 {std::string("36980"), basic::MakeDate(2001, 4, 1)},
                 {std::string("11/12/2001"), std::int32_t{37234}},  // day first
                 {std::string(""), std::int32_t{0}},
                 {basic::Value(), std::int32_t{0}}};
    for (const auto& c : cases)
        EXPECT_TRUE(qm::DateNumber(c.given) == c.expected) << basic::TextOrEmpty(c.given);
    test::BoxScript boxes;
    boxes.ExpectLog("DBCode", "Overflow");
    EXPECT_TRUE(qm::DateNumber(1e9).IsNull());
}

class RecordHelpers : public testing::Test {
  protected:
    test::FreshBooks books;
    test::BoxScript boxes;
};

TEST_F(RecordHelpers, InsertAndUpdateQuoteByTypeAndAlwaysTellTheCount) {
    const Lines fields{"Item_ID", "Item_Name", "Unit_Price", "Notes"}, types{"N", "S", "N", "S"};
    boxes.Expect("Added 1 record(s)");
    qm::InsertRecord("ItemMaster2001", fields, {" 12 ", " O'Brien's tin ", "   ", "x"}, types);
    boxes.Expect("Updated 1 record(s)");
    qm::UpdateRecords("ItemMaster2001", {"Unit_Price", "Notes"}, {"2.5", "  "}, {"N", "S"}, "Item_ID =12");
    boxes.Expect("Updated 0 record(s)");
    qm::UpdateRecords("ItemMaster2001", {"Notes"}, {"x"}, {"S"}, "Item_ID =13");
    EXPECT_EQ(books.Rows("Select Item_ID, Item_Name, Unit_Price, Notes, IssuedQty From ItemMaster2001"),
              Lines{"12|O'Brien's tin|2.5|Null|Null"});
    // A number goes in as it stands, so what is no number breaks the statement; no box comes.
    EXPECT_THROW(qm::InsertRecord("ItemMaster2001", {"Item_ID"}, {"1, 2"}, {"N"}), basic::Error);
}

TEST_F(RecordHelpers, PrimaryGroupIsClimbedTo) {
    books.AddLedger("Till", "Cash In Hand");
    qm::GetPrimaryGroup("till");
    EXPECT_EQ(qm::shared().PrimaryGroupName, "Cash In Hand");
    EXPECT_NE(qm::shared().PrimaryGroupId, 0);
    // Down two levels, and with a number that 16 bits do not hold.
    books.Run("Insert Into Group_Head_Master (Group_Head_Name, Parent_Id) Values ('Sub', " +
              std::to_string(books.AddLedger("Below", "Bank")) + ")");
    qm::GetPrimaryGroup("Sub");
    EXPECT_EQ(qm::shared().PrimaryGroupName, "Bank");
    books.Run(
        "Insert Into Group_Head_Master (Group_Id, Group_Head_Name, Parent_Id) Values (32768, 'Far', 1)");
    EXPECT_EQ(test::ErrorOf([] { qm::GetPrimaryGroup("Far"); }), basic::error::Overflow);
    books.Run(
        "Insert Into Group_Head_Master (Group_Id, Group_Head_Name, Parent_Id) Values (999, 'Ring', 999)");
    EXPECT_EQ(test::ErrorOf([] { qm::GetPrimaryGroup("Ring"); }), 28);
    qm::GetPrimaryGroup("nobody");
    EXPECT_EQ(qm::shared().PrimaryGroupName, "");
    EXPECT_EQ(qm::shared().PrimaryGroupId, 0);
}

TEST_F(RecordHelpers, FirstColumnComesInRowOrder) {
    EXPECT_TRUE(qm::FetchFirstColumn("Select LedgerTrnNo From tb_Ledger2001").empty());
    const auto names =
        qm::FetchFirstColumn("Select Group_Head_Name From Group_Head_Master Where Parent_Id=0");
    EXPECT_EQ(names.size(), 16U);
    qm::shared().DataPath = "/a";
    EXPECT_EQ(qm::BuildDataFilePath("f"), "/a/f");
    qm::shared().DataPath = "/a/";
    EXPECT_EQ(qm::BuildDataFilePath("f"), "/a/f");
}

TEST_F(RecordHelpers, CombosFillFromASelectAfterAnEmptyLine) {
    struct FakeList : basic::ListControl {
        void Clear() override { lines.clear(); }
        void AddItem(const std::string& text) override { lines.push_back(text); }
        Lines lines{"old"};
    } list;
    books.AddLedger("Till", "Cash In Hand");
    books.AddLedger("Drawer", "Cash In Hand");
    qm::FillComboFromQuery(list, "Select Name From Ledger_Master", true);
    EXPECT_EQ(list.lines, (Lines{"", "Till", "Drawer"}));
    qm::FillComboFromQuery(list, "Select Name From Ledger_Master Where Name = 'x'", false);
    EXPECT_EQ(list.lines, Lines{});
}

TEST_F(RecordHelpers, AnOpenConnectionIgnoresTheFileName) {
    const ado::ConnectionPtr before = qm::shared().Connection;
    qm::OpenConnection("ProjectDB.mdb");
    EXPECT_EQ(qm::shared().Connection, before);
}

TEST_F(RecordHelpers, TheErrorLogShowsFirstAndWritesAfter) {
    basic::Clock::Set(basic::Date{basic::MakeDate(2001, 5, 9).Serial + 0.5});
    std::size_t rowsInTheBox = 99;
    qm::SetMsgBoxPort([&](const std::string& text, int flags, const std::string& title) {
        rowsInTheBox = books.Rows("Select * From tblError").size();
        EXPECT_EQ(text, "Formname: frmX\r\r Description : a \"bad\" day\r Source : src");
        EXPECT_EQ(flags, 0);
        EXPECT_EQ(title, "");
        return qm::vbOK;
    });
    qm::LogError("frmX", -5, "a \"bad\" day", "src");
    EXPECT_EQ(rowsInTheBox, 0U);
    EXPECT_EQ(books.Rows("Select * From tblError"), Lines{"frmX|-5|a 'bad' day|src|09/05/2001|12:00:00"});
    qm::SetMsgBoxPort([](const std::string&, int, const std::string&) { return qm::vbOK; });
    qm::LogError("frmX", 1, "d",
                 "a \"source\" is not cleaned");  // breaks the statement, and nobody hears of it
    qm::Conn().Close();
    qm::LogError("frmX", 1, "d", "s");
    books.OpenHost();
    EXPECT_EQ(books.Rows("Select * From tblError").size(), 1U);
    basic::Clock::Set(std::nullopt);
    qm::SetMsgBoxPort(nullptr);
}

}  // namespace
