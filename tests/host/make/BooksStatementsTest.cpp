#include <gmock/gmock.h>

#include "host/make/Books.h"
#include "platform/ado/Connection.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Error.h"
#include "tests/host/make/TempFolder.h"

// What the fields of delivered books take and refuse when statements come through the data layer.
namespace {

class BooksStatements : public ::testing::Test {
  protected:
    BooksStatements() {
        host::CreateBooks(folder_, 2001);
        books_.Properties("Data Source") = (folder_ / host::BooksFile).string();
        books_.Properties("Jet OlEDB:Database Password") = host::BooksPassword;
        books_.Open();
    }
    bool Accepts(const std::string& statement) {
        try {
            books_.Execute(statement);
            return true;
        } catch (const basic::Error&) {
            return false;
        }
    }
    basic::Value First(const std::string& select) { return books_.Execute(select)->Fields(0).Value(); }

    TempFolder folder_;
    ado::Connection books_;
};

TEST_F(BooksStatements, NumberFieldsTakeNumbersInQuotesAndNoOtherText) {
    const struct {
        const char* value;
        bool accepted;
    } cases[] = {{"'2002'", true}, {"2002", true},   {"' 12 '", true},      {"Null", true},
                 {"''", false},    {"'abc'", false}, {"'2001-2002'", false}};
    for (const auto& [value, accepted] : cases)
        for (const char* field : {"Fnncl_Yr", "Opening_Bal"})
            EXPECT_EQ(
                Accepts(std::string("Insert Into Ledger_Details (") + field + ") Values (" + value + ")"),
                accepted)
                << field << " " << value;
    EXPECT_FALSE(Accepts("Insert Into Ledger_Details (Fnncl_Yr) Values (2147483648)"));
}

TEST_F(BooksStatements, TextFieldsTakeNumbersAsTheirClassicText) {
    books_.Execute("Insert Into tblItemLed2001 (ItemLedBillNo, ItemLedTrnRptQty) Values (0, 0)");
    books_.Execute("Insert Into tblItemLed2001 (ItemLedBillNo) Values (12.50)");
    EXPECT_EQ(First("Select ItemLedBillNo From tblItemLed2001"), basic::Value("0"));
    EXPECT_EQ(First("Select ItemLedBillNo From tblItemLed2001 Where ItemLedTrnRptQty Is Null"),
              basic::Value("12.5"));
}

TEST_F(BooksStatements, UnwrittenFieldsReadFalseNullOrTheWorkTablesDefaults) {
    books_.Execute("Insert Into tblPO2001 (poNumber) Values (1)");
    EXPECT_EQ(First("Select poCancelled From tblPO2001"), basic::Value(false));
    books_.Execute("Insert Into tblPODet2001 (PoDetPoNo) Values (1)");
    EXPECT_TRUE(First("Select PoDetQtyRecd From tblPODet2001").IsNull());
    books_.Execute("Insert Into tblsysTPL (ParticularDr) Values ('Rent')");
    EXPECT_EQ(First("Select ParticularCr From tblsysTPL"), basic::Value(" "));
    EXPECT_EQ(First("Select AmtCr From tblsysTPL"), basic::Value(0.0));
}

// The first start of delivered books makes this table; another year's comes from the same template.
TEST_F(BooksStatements, ATableMadeFromATemplateRefusesWhatTheDeliveredOnesRefuse) {
    books_.Execute("SELECT * INTO tb_Ledger2002 From tblsysLedgerstr");
    for (const char* table : {"tb_Ledger2001", "tb_Ledger2002"}) {
        EXPECT_TRUE(Accepts(std::string("Insert Into ") + table +
                            " (LedgerTrnNo, LedgerLedBal) Values ('1', '0Dr')"));
        EXPECT_FALSE(Accepts(std::string("Insert Into ") + table + " (LedgerTrnNo) Values ('1Dr')"));
        EXPECT_EQ(First(std::string("Select LedgerMcGenerated From ") + table), basic::Value(false));
    }
    EXPECT_FALSE(Accepts("SELECT * INTO tb_Ledger2001 From tblsysLedgerstr"));
}

}  // namespace
