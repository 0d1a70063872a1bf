#include "tests/outside/PostedBooks.h"

#include <map>
#include <sstream>

#include <gtest/gtest.h>

#include "host/audit/Audit.h"
#include "platform/basic/Number.h"

namespace test {
namespace {

struct Row {
    int voucher = 0, ledger = 0;
    double debit = 0, credit = 0;
};

Row Read(const std::string& text) {
    Row row;
    char bar = 0;
    std::istringstream(text) >> row.voucher >> bar >> row.ledger >> bar >> row.debit >> bar >> row.credit;
    return row;
}

// Sums by a key of the row. All amounts are quarters, so the sums are exact.
std::map<int, Row> SumsBy(int Row::*key, const PostedRows& rows) {
    std::map<int, Row> sums;
    for (const std::string& text : rows) {
        const Row row = Read(text);
        sums[row.*key].debit += row.debit;
        sums[row.*key].credit += row.credit;
    }
    return sums;
}

}  // namespace

PostedBooks::PostedBooks() {
    bank = books_.AddLedger("Current Account", "Bank", 5000, "D");
    supplier = books_.AddLedger("Paper Mart", "Suppliers", 5000, "C");
    books_.CloseHost();
}

PostedRows PostedBooks::Look() {
    books_.OpenHost();
    const std::vector<std::string> lines =
        books_.Rows("Select LedgerTrnNo, LedgerCode, LedgerDrAmt, LedgerCrAmt From tb_Ledger2001");
    const PostedRows rows(lines.begin(), lines.end());
    ExpectTotals(rows);
    ExpectAudit(rows);
    books_.CloseHost();
    return rows;
}

void PostedBooks::ExpectTotals(const PostedRows& rows) {
    std::map<int, Row> sums = SumsBy(&Row::ledger, rows);
    for (const int ledger : {bank, supplier}) {
        const Row totals = Read(
            "0|0|" +
            books_.One("Select Iif(IsNull(LedDetDRTxnTot), 0, LedDetDRTxnTot), Iif(IsNull(LedDetCRTxnTot), "
                       "0, LedDetCRTxnTot) From Ledger_Details Where Ledger_ID = " +
                       std::to_string(ledger)));
        EXPECT_EQ(totals.debit, sums[ledger].debit) << "ledger " << ledger;
        EXPECT_EQ(totals.credit, sums[ledger].credit) << "ledger " << ledger;
    }
}

void PostedBooks::ExpectAudit(const PostedRows& rows) {
    std::vector<std::string> oneSided, found;
    for (const auto& [voucher, sums] : SumsBy(&Row::voucher, rows))
        if (sums.debit != sums.credit)
            oneSided.push_back("voucher " + std::to_string(voucher) + " of 2001: debit " +
                               basic::NumberText(sums.debit) + ", credit " + basic::NumberText(sums.credit));
    for (const host::Finding& finding : host::Audit::Run()) found.push_back(finding.text);
    EXPECT_EQ(found, oneSided);
}

}  // namespace test
