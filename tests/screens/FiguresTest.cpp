// The reports' figures beside sums that the store's own shell works out, which knows nothing of this system.
#include <cstdio>
#include <random>

#include <gmock/gmock.h>

#include "host/make/Books.h"
#include "platform/basic/Format.h"
#include "reports/frmPartyLedger.h"
#include "reports/frmTPL.h"
#include "tests/reports/ReportScreens.h"

using namespace testing;

namespace {

class FiguresTest : public ReportScreensTest {
  protected:
    static constexpr int Ledgers = 40, Vouchers = 2000;

    // Openings on both sides and vouchers of two lines, all from one seed; posted as a host does.
    void Post() {
        const char* const groups[] = {"Cash In Hand", "Sales", "Purchase", "Expenditure(Indirect)",
                                      "Capital"};
        std::mt19937 random(20011);
        const auto draw = [&random](int below) {
            return static_cast<int>(random() % static_cast<unsigned>(below));
        };
        std::vector<int> ids;
        for (int i = 0; i < Ledgers; ++i)
            ids.push_back(books.AddLedger("L" + std::to_string(i), groups[i % 5], draw(100000) / 4.0,
                                          i % 3 == 0 ? "C" : "D"));
        Run("Update Ledger_Details Set Opening_Bal = 0 Where Ledger_ID = " + std::to_string(ids[7]));
        for (int number = 1; number <= Vouchers; ++number) {
            const int date = 36980 + draw(365);
            const double amount = (1 + draw(10000000)) / 100.0;
            for (const char* side : {"D", "C"}) {
                const int ledger = ids[static_cast<std::size_t>(draw(Ledgers))];
                ASSERT_TRUE(books.Host().InsertVoucher(number, date, "J", side, "n", amount, ledger,
                                                       "L" + std::to_string(ledger)));
            }
        }
    }
    // The lines that the shell prints for a statement on the books' file.
    Lines Shell(const std::string& sql) {
        const std::string command = "printf '%s\\n' \"PRAGMA key = '" + std::string(host::BooksPassword) +
                                    "';\" \"" + sql + ";\" | sqlcipher -batch " + books.DataPath() +
                                    host::BooksFile;
        Lines lines;
        FILE* const shell = popen(command.c_str(), "r");
        char line[256];
        while (fgets(line, sizeof line, shell)) lines.emplace_back(line, strcspn(line, "\n"));
        EXPECT_EQ(pclose(shell), 0);
        std::erase(lines, "ok");  // newer shells answer the key
        return lines;
    }
    static std::string Money(const std::string& figure) {
        return basic::Format(basic::Value(figure), "standard");
    }
};

// Opening with the sign of its side, and what was posted.
const std::string Balance =
    "(CASE d.Bal_Type WHEN 'C' THEN -d.Opening_Bal ELSE d.Opening_Bal END) + ifnull((SELECT sum(LedgerDrAmt) "
    "- sum(LedgerCrAmt) FROM tb_Ledger2001 WHERE LedgerCode = d.Ledger_ID), 0)";

TEST_F(FiguresTest, AgreeWithTheStoresOwnShell) {
    QM_FILE_ONLY("its own shell reckons");
    Post();
    basic::Clock::Set(basic::MakeDate(2002, 3, 31));
    auto& screen = forms::Default<qm::frmPartyLedger>();
    screen.Show();
    const std::string trial = Printed([&] {
        Click(screen.ui().optSumm);
        Click(screen.ui().ucPartyLedger->ui().cmdOk);
    });
    screen.Unload();
    const Lines sums = Shell(std::string("SELECT d.Ledger_ID || '|' || printf('%.2f', ") + Balance +
                             ") FROM Ledger_Details d ORDER BY d.Ledger_ID");
    Lines ours;
    for (const std::string& row :
         Rows("Select Ledger_ID, Closing_Bal From Ledger_Details Order By Ledger_ID")) {
        const auto bar = row.find('|');
        ours.push_back(row.substr(0, bar + 1) +
                       basic::Format(basic::WholeNumber(row.substr(bar + 1)), "0.00"));
    }
    ASSERT_EQ(sums.size(), static_cast<std::size_t>(Ledgers));
    EXPECT_EQ(ours, sums);

    const Lines totals =
        Shell(std::string("SELECT printf('%.2f', sum(LedgerDrAmt)) FROM tb_Ledger2001 UNION ALL SELECT "
                          "printf('%.2f', sum(LedgerCrAmt)) FROM tb_Ledger2001 UNION ALL SELECT "
                          "printf('%.2f', sum(max(b, 0))) FROM (SELECT ") +
              Balance +
              " AS b FROM Ledger_Details d) UNION ALL SELECT printf('%.2f', sum(max(-b, 0))) FROM (SELECT " +
              Balance + " AS b FROM Ledger_Details d)");
    ASSERT_EQ(totals.size(), 4U);
    std::string row = "<tr><td></td><td></td>";
    for (const std::string& total : totals) row += "<td align = 'right'>" + Money(total) + "</td>";
    EXPECT_THAT(trial, HasSubstr(row + "</tr>"));

    auto& results = forms::Default<qm::frmTPL>();
    results.Show();
    Click(results.ui().cmdView);
    const std::string page = results.ui().ucHTMLBox->ui().dhtEdit->DocumentHTML();
    results.Unload();
    const Lines net = Shell(
        std::string("SELECT printf('%.2f', abs(sum(b))), sum(b) > 0 FROM (SELECT ") + Balance +
        " AS b FROM Ledger_Details d, Ledger_Master m, Group_Head_Master g WHERE m.Ledger_ID = d.Ledger_ID "
        "AND g.Group_Head_Name = m.PrimaryGrp AND g.Parent_Id = 0 AND g.GrpType IN ('T', 'P'))");
    ASSERT_EQ(net.size(), 1U);
    const std::string amount = net[0].substr(0, net[0].find('|'));
    EXPECT_THAT(page,
                HasSubstr(std::string(net[0].back() == '1' ? "Net Loss" : "Net Profit") +
                          " Trf From P & L</td><td colspan =1 align  = 'right'>" + Money(amount) + "</td>"));
}

}  // namespace
