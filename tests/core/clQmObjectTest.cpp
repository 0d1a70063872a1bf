#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include <gtest/gtest.h>

#include "core/DBCode.h"
#include "core/clQmObject.h"
#include "core/modGeneral.h"
#include "platform/ado/Errors.h"
#include "platform/com/ErrorInfo.h"
#include "tests/core/LateBound.h"
#include "tests/support/BoxScript.h"
#include "tests/support/FreshBooks.h"
#include "tests/support/InChild.h"

namespace {

using basic::Value;
using com::Variant;
using test::LateBound;

constexpr std::int32_t FirstOfApril = 36980;

std::string TakeDescription() {
    EXCEPINFO failure;
    com::Describe(E_FAIL, &failure);
    const std::string text = com::TextOf(failure.bstrDescription);
    SysFreeString(failure.bstrDescription);
    SysFreeString(failure.bstrSource);
    return text;
}

class ClassObject : public testing::Test {
  protected:
    ClassObject() {
        cash = books.AddLedger("Till", "Cash In Hand");
        sales = books.AddLedger("Sales", "Sales", 0, "C");
        books.CloseHost();
        host.Let("dataPath", books.DataPath());
        host.Get("StartDataConn");
    }

    test::FreshBooks books;
    int cash = 0, sales = 0;
    LateBound host{new qm::clQmObject};
    _clQm* early = static_cast<_clQm*>(host.Raw());
};

TEST_F(ClassObject, ALateBoundHostPostsAndListsByNamesAlone) {
    EXPECT_EQ(host.Get("DATAPATH"), Value(books.DataPath()));
    EXPECT_EQ(host.Get("GetNextTrnID"), Value(1));
    EXPECT_EQ(host.Get("InsertVoucher", {1, FirstOfApril, "r", "d", "n", 99.5, cash, "Till"}), Value(true));
    // Arguments by name, in another order, the amount as a text.
    EXPECT_EQ(host.Get("InsertVoucher", {1, FirstOfApril, "R", "C", "Sales", sales, "99.5", "n"},
                       {"sLedName", "lLedCode", "dAmt", "sTrnNarration"}),
              Value(true));
    EXPECT_EQ(books.Rows("Select LedgerName, LedgerDrAmt, LedgerCrAmt, LedgerTrnType From tb_Ledger2001"),
              (std::vector<std::string>{"Till|99.5|0|Receipt", "Sales|0|99.5|Receipt"}));
    EXPECT_EQ(host.Get("VchrTrnNo"), Value(2));
    EXPECT_EQ(host.Get("GetVchrNoFromTxnNo", {1}), Value());
    EXPECT_EQ(host.Get("UpdateVoucher", {1, FirstOfApril + 1, 50}), Value(true));
    EXPECT_EQ(host.Get("DeleteVoucher", {1}), Value(true));
    EXPECT_EQ(host.Get("SetGetFinancialYear", {2001}), Value("2001"));
    EXPECT_EQ(host.Get("SetFinancialYear", {"2002-20033"}), Value(false));
    EXPECT_EQ(host.Object("Ledgers").Get("RecordCount"), Value(2));
    EXPECT_EQ(host.Object("Ledgers", {"PrimaryGrp = 'Sales'"}).Get("RecordCount"), Value(1));
    for (const char* list : {"GetSuppliers", "GetPurchaseLedgers"})
        EXPECT_EQ(host.Object(list).Get("EOF"), Value(true));
    EXPECT_EQ(host.Object("GetDebitLedgers").Get("Fields", {"Name"}), Value("Till"));
    EXPECT_EQ(host.Object("GetCreditLedgers").Get("Fields", {"Name"}), Value("Sales"));
    EXPECT_EQ(host.Get("FinYearValidate", {basic::Date{36982}, std::int16_t{2001}}), Value(true));
    EXPECT_EQ(host.Get("FinYearValidate", {"31-Mar-2001", 2001}), Value(false));
}

TEST_F(ClassObject, FailuresReachTheHostWithTheirNumberAndText) {
    EXPECT_EQ(host.ResultOf("GetVchrNoFromTxnNo", {7}), AsResult(0x800A0009));
    EXPECT_EQ(host.ResultOf("FinYearValidate", {basic::Date{36982}, 32767}), AsResult(0x800A0006));
    EXPECT_EQ(host.ResultOf("FinYearValidate", {basic::Date{36982}, 32768}), DISP_E_OVERFLOW);
    EXPECT_EQ(host.ResultOf("Ledgers", {"NoSuchField = 1"}), ado::error::UnknownName);
    EXPECT_EQ(host.ResultOf("CarryForwardBalances"), DISP_E_UNKNOWNNAME) << "private to the class";

    std::int32_t unknown = 7;
    Variant none;
    EXPECT_EQ(early->GetVchrNoFromTxnNo(&unknown, &none), AsResult(0x800A0009));
    EXPECT_EQ(TakeDescription(), "Subscript out of range");
    EXPECT_EQ(early->GetNextTrnID(nullptr), E_POINTER);
    EXPECT_EQ(early->DeleteVoucher(nullptr, &none.boolVal), E_POINTER);
}

// A refused posting is no failure of the call: the box comes, then False.
TEST_F(ClassObject, ARefusedPostingIsFalseAfterItsBox) {
    test::BoxScript boxes;
    boxes.ExpectLog("Class-ClQm", "");
    EXPECT_EQ(host.Get("InsertVoucher", {1, FirstOfApril, "J", "D", "n", 1.0, 9999, "Nobody"}), Value(false));
}

// A host that nobody watches is told of a log set aside on its error stream: nothing waits, no error stands.
TEST_F(ClassObject, ANoticeOfTheOpeningDisturbsNoCall) {
    QM_FILE_ONLY("its log");
    const std::string file = books.DataPath() + qm::BooksFile, copy = file + ".copy";
    host = LateBound(nullptr);
    std::filesystem::copy_file(file, copy);
    EXPECT_EQ(test::InChild([&] {
                  books.OpenHost();
                  books.AddLedger("Lost", "Sales");
                  qm::Conn().BeginTrans();
                  books.Run("Update Ledger_Master Set Name = 'Lost too'");
                  qm::Conn().CommitTrans();
                  _exit(7);
                  return 0;
              }),
              7);
    std::filesystem::rename(copy, file);
    unsetenv("DISPLAY");
    unsetenv("WAYLAND_DISPLAY");
    host = LateBound(new qm::clQmObject);
    testing::internal::CaptureStderr();
    host.Let("dataPath", books.DataPath());
    host.Get("StartDataConn");
    const std::string told = testing::internal::GetCapturedStderr();
    EXPECT_EQ(told.find("[Tovik Softwares] The log of a crash"), 0U) << told;
    EXPECT_EQ(std::count(told.begin(), told.end(), '\n'), 1);
    IErrorInfo* error = nullptr;
    EXPECT_EQ(GetErrorInfo(0, &error), S_FALSE);
    EXPECT_EQ(host.Get("GetNextTrnID"), Value(1));
    EXPECT_EQ(host.Object("Ledgers").Get("RecordCount"), Value(2));
}

TEST_F(ClassObject, TheVirtualTableHasTheInterfacesOrder) {
    // IUnknown 0 to 2, IDispatch 3 to 6, then the members of the class: StartDataConn is the seventh.
    void** const table = *reinterpret_cast<void***>(early);
    qm::shared().FinYear.clear();
    EXPECT_EQ(reinterpret_cast<HRESULT (*)(_clQm*)>(table[13])(early), S_OK);
    EXPECT_EQ(qm::shared().FinYear, "2001");
    std::int32_t next = 0;
    EXPECT_EQ(reinterpret_cast<HRESULT (*)(_clQm*, std::int32_t*)>(table[21])(early, &next), S_OK);
    EXPECT_EQ(next, 1);
    Variant year;
    BSTR given = com::MakeBstr("1999");
    EXPECT_EQ(reinterpret_cast<HRESULT (*)(_clQm*, BSTR*, BSTR*)>(table[24])(early, &given, &year.bstrVal),
              S_OK);
    EXPECT_EQ(com::TextOf(year.bstrVal), "") << "an unknown year";
    year.vt = VT_BSTR;
    SysFreeString(given);
}

TEST_F(ClassObject, TheLastReferenceClosesTheBooks) {
    EXPECT_NE(qm::shared().Connection, nullptr);
    host = LateBound(nullptr);
    EXPECT_EQ(qm::shared().Connection, nullptr);
}

}  // namespace
