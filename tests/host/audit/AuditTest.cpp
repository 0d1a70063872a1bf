#include <gmock/gmock.h>

#include "core/FDBCode.h"
#include "core/LedgerSide.h"
#include "core/VoucherReversal.h"
#include "core/modGeneral.h"
#include "host/audit/Audit.h"
#include "platform/ado/Errors.h"
#include "platform/basic/Dates.h"
#include "platform/basic/Text.h"
#include "tests/support/Cases.h"
#include "tests/support/FreshBooks.h"

// Each finding once, in books of two ledgers and one voucher that are whole: a statement breaks them, the
// audit says so and nothing else. Damaged pages are broken in tests/platform/ado.
namespace {

using Lines = test::Cells;

Lines Findings() {
    Lines lines;
    for (const host::Finding& finding : host::Audit::Run())
        lines.push_back((finding.severity == host::Severity::Error ? "error: " : "note: ") + finding.text);
    return lines;
}

class AuditOfBooks : public testing::Test {
  protected:
    AuditOfBooks() {
        EXPECT_EQ(std::to_string(cash) + " " + std::to_string(sales), "17 18");  // as the cases name them
        books.Host().InsertVoucher(1, 36980, "R", "D", "n", 100, cash, "Cash Box");
        books.Host().InsertVoucher(1, 36980, "R", "C", "n", 100, sales, "Sales A/c");
    }

    test::FreshBooks books{2001};
    int cash = books.AddLedger("Cash Box", "Cash In Hand", 500, "D");
    int sales = books.AddLedger("Sales A/c", "Sales", 500, "C");
};

TEST_F(AuditOfBooks, NamesEachFaultAndNothingElse) {
    EXPECT_EQ(Findings(), Lines{});
    for (const test::Block& broken : test::Blocks("host/audit/cases.txt")) {
        SCOPED_TRACE(testing::PrintToString(broken.given));
        qm::Conn().BeginTrans();
        bool kept = true;  // but for a text that cannot stand there
        for (const std::string& statement : broken.given)
            if (test::OnServer() && !basic::IsUtf8(statement))
                kept = test::ErrorOf([&] { books.Run(statement); }) != ado::error::BadValue;
            else
                books.Run(statement);
        EXPECT_EQ(Findings(), kept ? broken.expected : Lines{});
        qm::Conn().RollbackTrans();
    }
}

// A supplier's bill as the receipt screens post it, under a ledger that a voucher has raised and under one
// that none has; then as the day book leaves it.
TEST_F(AuditOfBooks, TakesTheVouchersOfReceiptsAsTheyAre) {
    const int supplier = books.AddLedger("Acme", "Suppliers");
    for (const double amount : {70.25, 0.0}) {
        const std::int32_t voucher = books.Host().GetNextTrnID();
        const auto post = [&](qm::LedgerSide side, int ledger, const char* name) {
            EXPECT_EQ(qm::PostVoucherRow(voucher, basic::MakeDate(2001, 4, 30), 0, qm::CodeOf(side), "n",
                                         amount, ledger, name),
                      voucher);
        };
        post(qm::LedgerSide::Credit, supplier, "Acme");
        post(qm::LedgerSide::Debit, cash, "Cash Box");
        books.Run("Insert Into tblBills2001 (BillID, BillTxnID, BillVchrNo) Values ('A/1', 1, " +
                  std::to_string(voucher) + ")");
    }
    const std::string notInTotals = ": vouchers of the stock screens are not in the running totals (totals ";
    EXPECT_EQ(Findings(),
              (Lines{"note: totals of ledger 17 in 2001" + notInTotals + "100 and 0, rows 170.25 and 0)",
                     "note: totals of ledger 19 in 2001" + notInTotals + "0 and 0, rows 0 and 70.25)"}));
    qm::ReverseVoucher(2, qm::Conn());
    const std::string notTheSums = ": they are not the sums of its rows until the next rebuild (totals ";
    EXPECT_EQ(Findings(),
              (Lines{"note: totals of ledger 17 in 2001" + notTheSums + "29.75 and 0, rows 100 and 0)",
                     "note: totals of ledger 19 in 2001" + notTheSums + "0 and -70.25, rows 0 and 0)",
                     "note: bill 'A/1' of receipt 1 in 2001: its voucher 2 does not stand (deleted in the "
                     "day book)"}));
}

}  // namespace
