#include <map>

#include "accounts/Ledger_Master.h"
#include "desk/Books.h"
#include "inventory/frmIssues.h"
#include "inventory/frmReceipt.h"
#include "platform/basic/Text.h"
#include "purchasing/frmPO.h"
#include "tests/desk/DeskFixture.h"
#include "tests/support/Cases.h"
#include "vouchers/frmVoucher.h"

namespace {

using forms::Form;

// The record that a screen shows.
const std::map<std::string, std::string (*)(Form&)> Records{
    {"frmFinYear", [](Form&) { return std::string(); }},
    {"frmGrpMain", [](Form&) { return std::string(); }},
    {"Ledger_Master",
     [](Form& form) { return static_cast<qm::Ledger_Master&>(form).ui().txtLedgerId->Text(); }},
    {"frmVoucher", [](Form& form) { return static_cast<qm::frmVoucher&>(form).ui().txtVoucherNo->Text(); }},
    {"frmReceipt", [](Form& form) { return static_cast<qm::frmReceipt&>(form).ui().cmbReceipt->Text(); }},
    {"frmIssues", [](Form& form) { return static_cast<qm::frmIssues&>(form).ui().cmbTxnNo->Text(); }},
    {"frmPO", [](Form& form) { return static_cast<qm::frmPO&>(form).ui().tvPO->SelectedItem()->Text(); }},
};

class FindingsPageTest : public test::DeskTest {
  protected:
    // Gives the lines that are expected.
    std::vector<std::string> Damage() {
        std::vector<std::string> expected;
        for (const test::Block& block : test::Blocks("desk/findings.txt")) {
            bool kept = true;  // but for a text that cannot stand on a server
            for (const std::string& statement : block.given)
                if (test::OnServer() && !basic::IsUtf8(statement))
                    kept = false;
                else
                    books.Run(statement);
            if (kept) expected.insert(expected.end(), block.expected.begin(), block.expected.end());
        }
        return expected;
    }
    void ShowFindings() {
        desk->Go("books");
        auto& findings = Child<QPushButton>("findings");
        ASSERT_TRUE(QTest::qWaitFor([&] { return findings.isEnabled(); }, 20'000));
        Press({"Alt+F"});
        ASSERT_EQ(Title(), "Check of the books");
    }
    int RowOf(const std::string& finding) {
        const QAbstractItemModel& model = *Sheet().View().model();
        for (int row = 0; row < model.rowCount(); ++row)
            if (model.index(row, 1).data().toString().toStdString() == finding) return row;
        return -1;
    }
    std::string All() {
        std::string all;
        for (int row = 0; row < Sheet().View().model()->rowCount(); ++row) all += Line(row) + '\n';
        return all;
    }
    // Enter, twice where the year is asked about; what it opens, and back to the list.
    std::string Open(const std::string& form) {
        std::string opened;
        if (Records.contains(form))
            script.Modal(form, [&](Form& shown) { opened = form + " " + Records.at(form)(shown); });
        Press({"Return"});
        if (desk->Notice().isVisible() && desk->Notice().Asks()) Press({"Return"});
        if (opened.empty()) opened = Title() == "Check of the books" ? Told() : Title();
        for (int tries = 0; Title() != "Check of the books" && tries < 3; ++tries) Press({"Esc"});
        if (Told() != "nothing") Press({"Esc"});
        return basic::Trim(opened);
    }
};

TEST_F(FindingsPageTest, EachFindingLeadsToWhereItIsMendedAndSaysHow) {
    for (const auto& [name, group] : {std::pair("Cash Box", "Cash In Hand"),
                                      {"Sales A/c", "Sales"},
                                      {"Acme", "Suppliers"},
                                      {"Odd", "Bank"},
                                      {"Lost", "Bank"},
                                      {"Bare", "Bank"},
                                      {"Gone", "Bank"}})
        books.AddLedger(name, group, 0, "D");
    books.Host().InsertVoucher(1, 36980, "R", "D", "n", 100, 17, "Cash Box");
    books.Host().InsertVoucher(1, 36980, "R", "C", "n", 100, 18, "Sales A/c");
    books.Run("Update Ledger_Details Set LedDetDRTxnTot = 0 Where LedDetDRTxnTot Is Null");
    books.Run("Update Ledger_Details Set LedDetCRTxnTot = 0 Where LedDetCRTxnTot Is Null");
    books.Host().SetFinancialYear("2002-2003");  // gives False whatever happened
    books.Host().SetGetFinancialYear("2001");
    const std::vector<std::string> expected = Damage();
    Start();
    ShowFindings();
    for (const std::string& line : expected) {
        SCOPED_TRACE(line);
        const std::size_t leads = line.find(" | "), opens = line.rfind(" | ");
        const int row = RowOf(line.substr(0, leads));
        ASSERT_GE(row, 0) << All();
        Sheet().SetCurrent(static_cast<std::size_t>(row));
        EXPECT_EQ(Sheet().View().model()->index(row, 2).data().toString().toStdString(),
                  basic::Trim(line.substr(leads + 3, opens > leads + 3 ? opens - leads - 3 : 0)));
        EXPECT_THAT(Child<QLabel>("status").text().toStdString(),
                    testing::ContainsRegex("^Why: .+ What to do: .+\\.$"));
        const std::string place = line.substr(opens + 3);
        const std::string opened = Open(place.substr(0, place.find(' ')));
        if (place == "nothing shows it")
            EXPECT_THAT(opened, testing::HasSubstr("No page and no screen shows this."));
        else
            EXPECT_EQ(opened, place);
        ASSERT_EQ(Title(), "Check of the books");
        EXPECT_EQ(Sheet().Current(), static_cast<std::size_t>(row));
    }
}

}  // namespace
