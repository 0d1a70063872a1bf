// A program that is killed while it saves vouchers, and the books that it leaves.
#include <csignal>
#include <map>
#include <random>

#include <sys/wait.h>
#include <unistd.h>

#include "host/audit/Audit.h"
#include "tests/vouchers/VoucherScreens.h"

using namespace testing;

namespace {

using qm::VoucherColumn;

class VoucherKilledTest : public test::VoucherScreenTest {
  protected:
    // Vouchers of two lines without end; a byte tells that the next Save begins.
    void SaveWithoutEnd(int tell) {
        books.OpenHost();
        qm::SetMsgBoxPort([](const std::string&, int, const std::string&) { return qm::vbOK; });
        OnScreen(0, [&] {
            for (;;) {
                ChooseType("Receipt");
                Line(1, "Dr.", "Bank", "100");
                ChooseLedger(2, "Sales");
                if (write(tell, "s", 1) != 1) return;
                Save();
            }
        });
    }
    // Kills such a program within its Save number `saves`.
    void KillAfter(int saves, useconds_t moment) {
        int ends[2];
        ASSERT_EQ(pipe(ends), 0);
        books.CloseHost();  // the store's file is one program's own
        const pid_t child = fork();
        if (child == 0) {
            SaveWithoutEnd(ends[1]);
            _exit(1);
        }
        close(ends[1]);
        char begun = 0;
        for (int i = 0; i < saves; ++i) EXPECT_EQ(read(ends[0], &begun, 1), 1);
        usleep(moment);
        kill(child, SIGKILL);
        int status = 0;
        waitpid(child, &status, 0);
        close(ends[0]);
        EXPECT_TRUE(WIFSIGNALED(status));
        books.OpenHost();
    }
    static std::string Posted(int ledger) {
        const auto rows =
            Rows("Select LedgerTrnNo From tb_Ledger2001 Where LedgerCode = " + std::to_string(ledger));
        return std::to_string(rows.size() * 100);
    }
    static Lines Errors() {
        Lines errors;
        for (const host::Finding& finding : host::Audit::Run())
            if (finding.severity == host::Severity::Error) errors.push_back(finding.text);
        return errors;
    }
    // What the audit has to name: the vouchers of which the table holds the first line alone.
    static Lines OneSided() {
        std::map<int, int> lines;
        for (const std::string& voucher : Rows("Select LedgerTrnNo From tb_Ledger2001"))
            ++lines[std::stoi(voucher)];
        Lines oneSided;
        for (const auto& [voucher, count] : lines)
            if (count == 1)
                oneSided.push_back("voucher " + std::to_string(voucher) + " of 2001: debit 100, credit 0");
        return oneSided;
    }
};

// Each line is a transaction of its own, so a kill between two of them leaves one side, and the audit names
// that voucher and no other. The books open; the totals are the sums of the rows.
TEST_F(VoucherKilledTest, LeavesAtMostOneSideThatTheAuditNames) {
    std::mt19937 random(20010401);  // repeatable but for the machine's own timing
    Lines found;
    for (int round = 0; round < 60 && found.empty(); ++round) {
        SCOPED_TRACE("round " + std::to_string(round));
        KillAfter(1 + round % 3, static_cast<useconds_t>(random() % 8'000));
        found = OneSided();
        EXPECT_LE(found.size(), 1U);
        EXPECT_EQ(Errors(), found);
        const std::string debits = Posted(bank), credits = Posted(sales);
        EXPECT_EQ(Totals(bank), debits == "0" ? "Null|Null" : debits + "|0");
        EXPECT_EQ(Totals(sales), credits == "0" ? "Null|Null" : "0|" + credits);
    }
    EXPECT_EQ(found.size(), 1U) << "no kill came between two lines";
}

}  // namespace
