// The year that docs/manual.md works through with the sample firm, key by key. The figures are those that the
// manual prints; they were added up by hand from the openings and vouchers in data/sample and the entries
// made here.
#include <QAbstractItemView>

#include <gmock/gmock.h>

#include "accounts/Ledger_Master.h"
#include "accounts/frmGrpMain.h"
#include "host/audit/Audit.h"
#include "host/commands/Sample.h"
#include "inventory/ItemMaster.h"
#include "inventory/frmIssues.h"
#include "platform/basic/Clock.h"
#include "platform/basic/Dates.h"
#include "purchasing/frmPO.h"
#include "purchasing/frmPOReceipt.h"
#include "reports/frmLedger.h"
#include "reports/frmPartyLedger.h"
#include "reports/frmTPL.h"
#include "shell/frmSearchAndLookUp.h"
#include "shell/modSearch.h"
#include "tests/inventory/StockScreens.h"
#include "tests/support/Cases.h"
#include "tests/support/Golden.h"
#include "vouchers/frmDayBook.h"
#include "vouchers/frmVoucher.h"
#include "years/frmFinYear.h"
#include "years/frmNewFinYear.h"

using namespace testing;

namespace {

using qm::VoucherColumn;

struct EntryLine {
    std::string side, ledger, amount;
};

class WorkedYearTest : public StockScreensTest {
  protected:
    // The books are those of 2001-2002, worked on long after.
    WorkedYearTest() {
        forms::Default<qm::frmLedger>().SetFromDate({});  // the zero date, whatever ran before. Kept 70.
        basic::Clock::Set(basic::MakeDate(2026, 11, 23));
        books.CloseHost();
        host::FillWithSample(books.DataPath(), 2001);
        books.OpenHost();
    }
    ~WorkedYearTest() override { basic::Clock::Set({}); }

    static void Tab(forms::Form& form, int times = 1) {
        while (times-- > 0) Key(form, Qt::Key_Tab);
    }
    static void Alt(forms::Form& form, Qt::Key key) { QTest::keyClick(form.Window(), key, Qt::AltModifier); }
    template <class Screen>
    void On(Screen& screen, const std::function<void()>& open, const std::function<void()>& work) {
        script.Modal(screen.Name(), [&](forms::Form& form) {
            BringToFront(form);
            work();
            form.Unload();
        });
        open();
    }

    void AddLedger(const char* name, const char* group) {
        qm::Ledger_Master& screen = forms::Default<qm::Ledger_Master>();
        On(
            screen, [&] { screen.Load("", ""); },
            [&] {
                Alt(screen, Qt::Key_A);
                Type(screen, name);
                Tab(screen);
                Type(screen, group);
                Key(screen, Qt::Key_Tab);
                Key(screen, Qt::Key_Tab);  // the balance of 0 stands
                screen.ui().Option2->SetFocus();
                Key(screen, Qt::Key_Space);
                ExpectBox("Ledger Created");
                Alt(screen, Qt::Key_U);
            });
    }
    // As worked-year.txt has it.
    void EnterVoucher(int number) {
        std::string type, narration;
        std::vector<EntryLine> lines;
        for (const test::Cells& c : test::Cases("screens/worked-year.txt", "Vouchers"))
            if (c.at(0) == std::to_string(number)) {
                type = c.at(1), narration = c.at(2);
                lines.push_back({c.at(3), c.at(4), c.at(5)});
            }
        EnterVoucher(type.c_str(), lines, narration.c_str(), number);
    }
    // The first line by side, ledger, amount; those that follow open with a side and a figure of their own.
    void EnterVoucher(const char* type, const std::vector<EntryLine>& lines, const char* narration,
                      int number) {
        qm::frmVoucher& screen = forms::Default<qm::frmVoucher>();
        forms::VSFlexGrid& grid = *screen.ui().vsVoucher;
        On(
            screen, [&] { screen.Load(0); },
            [&] {
                Type(screen, type);
                while (Active(screen) != "dtpDate") Tab(screen);
                Type(screen, "31-3-2002");
                while (Active(screen) != "vsVoucher") Tab(screen);
                for (std::size_t i = 0; i < lines.size(); ++i) {
                    const auto& [side, ledger, amount] = lines[i];
                    const int row = static_cast<int>(i) + 1;
                    ASSERT_EQ(grid.Row(), row);
                    if (grid.TextMatrix(row, VoucherColumn::Side) != side) Type(screen, side.c_str());
                    Tab(screen);
                    Type(screen, ledger.c_str());
                    Key(screen, Qt::Key_Return);
                    EXPECT_EQ(grid.TextMatrix(row, VoucherColumn::Ledger), ledger);
                    const int column = side[0] == 'D' ? VoucherColumn::DrAmount : VoucherColumn::CrAmount;
                    if (i == 0) {  // it names the voucher before its amount opens the next line
                        while (grid.Col() < VoucherColumn::Particulars) Tab(screen);
                        Type(screen, narration);
                        Key(screen, Qt::Key_Return);
                        while (grid.Col() > column) Key(screen, Qt::Key_Left);
                    }
                    while (grid.Col() < column) Tab(screen);
                    if (grid.TextMatrix(row, column) == amount) continue;
                    Type(screen, amount.c_str());
                    Key(screen, Qt::Key_Return);
                }
                ExpectBox("Voucher Saved with no. '" + std::to_string(number) + "'");
                Key(screen, Qt::Key_S, Qt::ControlModifier);
            });
    }

    // Ten rolls of packing tape at 41.20 from Demo Packaging Works: the order, and the goods with their bill.
    void ChooseSupplier(qm::frmPO& screen) {
        screen.ui().cmbSuppliers->SetFocus();
        Key(screen, Qt::Key_F4);
        QAbstractItemView* const list = screen.ui().cmbSuppliers->view();
        QTest::keyClick(list, Qt::Key_Home);
        while (list->currentIndex().data() != "Demo Packaging Works") QTest::keyClick(list, Qt::Key_Down);
        QTest::keyClick(list, Qt::Key_Return);
        EXPECT_EQ(screen.ui().cmbSuppliers->Text(), "Demo Packaging Works");
        screen.Window()->activateWindow();  // the list was a window of its own
        BringToFront(screen);
        EXPECT_EQ(Active(screen), "tvPO");
    }
    void OrderTape() {
        qm::frmPO& screen = forms::Default<qm::frmPO>();
        On(
            screen, [&] { screen.Show(forms::vbModal); },
            [&] {
                ChooseSupplier(screen);
                screen.ui().dtpDate->SetFocus();
                Type(screen, "25-3-2002");
                Tab(screen, 2);
                ExpectPick({"Packing Tape 48 mm"});
                Key(screen, Qt::Key_F4);  // the column takes no letters, nor Enter
                BringToFront(screen);
                Tab(screen, 2);
                Type(screen, "10");
                Key(screen, Qt::Key_Return);
                ExpectBox("Purchase Order Saved with No.'1'");
                Key(screen, Qt::Key_S, Qt::ControlModifier);
                ChooseSupplier(screen);
                Key(screen, Qt::Key_Home);
                script.Modal("frmPOReceipt", [&](forms::Form& form) { ReceiveTape(form); });
                screen.ui().cmdRecieved->SetFocus();
                Key(screen, Qt::Key_Space);
            });
    }
    void ReceiveTape(forms::Form& form) {
        auto& ui = dynamic_cast<qm::frmPOReceipt&>(form).ui();
        BringToFront(form);
        while (Active(form) != "dtpDate") Tab(form);
        Type(form, "31-3-2002");
        while (Active(form) != "txtBillNo") Tab(form);
        Type(form, "DP/88");
        while (Active(form) != "cmbPurchaseLedger") Tab(form);
        Type(form, "Purch");
        while (Active(form) != "vsItems") Tab(form);
        ui.vsItems->Select(1, 6);
        Type(form, "10");
        Key(form, Qt::Key_Return);
        EXPECT_EQ(ui.txtNetAmt->Text(), "412.00");
        ExpectBox("Saved PO Receipt with No. '1'");
        Key(form, Qt::Key_S, Qt::ControlModifier);
        Key(form, Qt::Key_X, Qt::ControlModifier);
    }
    void IssueTape() {
        qm::frmIssues& screen = forms::Default<qm::frmIssues>();
        On(
            screen, [&] { screen.Load(0); },
            [&] {
                Tab(screen);
                Type(screen, "31-3-2002");
                Tab(screen);
                ExpectPick({"Packing Tape 48 mm"});
                Key(screen, Qt::Key_Return);
                BringToFront(screen);
                Tab(screen, 2);
                Type(screen, "25");
                Key(screen, Qt::Key_Return);
                ExpectBox("Issue details saved with Issue voucher no. '2'");
                Key(screen, Qt::Key_S, Qt::ControlModifier);
            });
    }
    // What stands on the shelf: 130 rolls and 10 less 25. The fields open by an Add that goes no further.
    void CountTape() {
        qm::ItemMaster& screen = forms::Default<qm::ItemMaster>();
        On(
            screen, [&] { screen.Show(forms::vbModal); },
            [&] {
                Alt(screen, Qt::Key_A);
                ExpectBox(" Please Enter Item Name ");
                Alt(screen, Qt::Key_U);
                script.Modal("frmSearchAndLookUp", [&](forms::Form& form) {
                    BringToFront(form);
                    Type(form, "Packing");
                    Key(form, Qt::Key_Return);
                });
                Alt(screen, Qt::Key_F);
                EXPECT_EQ(screen.ui().txtItemName->Text(), "Packing Tape 48 mm");
                BringToFront(screen);
                screen.ui().txtBalance->SetFocus();
                Retype(screen, "115");
                ExpectBox("Updated 1 record(s)");
                Alt(screen, Qt::Key_U);
            });
        forms::Default<qm::frmSearchAndLookUp>().Unload();
        qm::SearchResultKey.clear();
    }
    // The page as it is read: a line for each row, tabs between the cells.
    static std::string PageText(qm::ucHTMLBox& box) { return box.ui().dhtEdit->SelectedText(); }
    std::string TrialBalance() {
        qm::frmPartyLedger& screen = forms::Default<qm::frmPartyLedger>();
        std::string text;
        On(
            screen, [&] { screen.Show(forms::vbModal); },
            [&] {
                Click(screen.ui().optSumm);
                script.Modal("frmLedger", [&](forms::Form& form) {
                    text = PageText(*static_cast<qm::frmLedger&>(form).ui().ucHTMLBox);
                });
                Alt(screen, Qt::Key_O);
            });
        return text;
    }
    std::string Results() {
        qm::frmTPL& screen = forms::Default<qm::frmTPL>();
        std::string text;
        On(
            screen, [&] { screen.Show(forms::vbModal); },
            [&] {
                Alt(screen, Qt::Key_V);
                text = PageText(*screen.ui().ucHTMLBox);
            });
        return text;
    }
    void AddNextYear() {
        qm::frmFinYear& years = forms::Default<qm::frmFinYear>();
        On(
            years, [&] { years.Show(forms::vbModal); },
            [&] {
                script.Modal("frmNewFinYear", [&](forms::Form& form) {
                    BringToFront(form);
                    Type(form, "2002");
                    Tab(form);
                    Alt(form, Qt::Key_S);
                    Alt(form, Qt::Key_E);
                });
                Alt(years, Qt::Key_A);
            });
        On(
            years, [&] { years.Show(forms::vbModal); },
            [&] {
                Key(years, Qt::Key_Down);
                Alt(years, Qt::Key_S);
            });
        books.CloseHost();
        books.OpenHost();
    }
};

TEST_F(WorkedYearTest, FromTheOpeningsToTheNextYear) {
    AddLedger("Closing Stock", "Current Asset");
    AddLedger("Rent in Advance", "Current Asset");
    for (const int number : {61, 62, 63, 64, 65}) EnterVoucher(number);
    OrderTape();
    IssueTape();
    test::ExpectGolden("worked-year-results.txt", Results());
    test::ExpectGolden("worked-year-trial-balance.txt", TrialBalance());
    EnterVoucher(67);
    EXPECT_THAT(TrialBalance(), EndsWith("\t\t2,390,076.40\t2,390,076.40\t757,937.75\t757,937.75"));
    CountTape();
    AddNextYear();
    EXPECT_EQ(qm::shared().FinYear, "2002");
    EXPECT_EQ(Rows("Select Open_Stock From ItemMaster2002 Where Item_Name = 'Packing Tape 48 mm'"),
              Lines{"115"});
    std::string openings;
    for (const std::string& row :
         Rows("Select Name, Opening_Bal, Ledger_Details.Bal_Type From Ledger_Master, Ledger_Details Where "
              "Ledger_Master.Ledger_ID = Ledger_Details.Ledger_ID And Fnncl_Yr = 2002 And Opening_Bal > 0"))
        openings += (openings.empty() ? "" : "\n") + row;
    test::ExpectGolden("worked-year-openings.txt", openings);
    EXPECT_THAT(host::Audit::Run(), IsEmpty());
}

// The name in Devanagari is 16 characters, most of three bytes: typed, searched, cut, stored and printed as
// any other.
TEST_F(WorkedYearTest, ALedgerInAnotherScriptGoesThroughAllScreens) {
    const std::string name = "राजेश कागज भंडार";
    AddLedger(name.c_str(), "Suppliers");
    EnterVoucher("Journal", {{"Dr.", "Purchases of Goods", "1250.5"}, {"Cr.", name, "1250.5"}},
                 "कॉपी और पेन, पूरा भुगतान अगले महीने किया जाएगा", 61);

    qm::frmDayBook& days = forms::Default<qm::frmDayBook>();
    On(
        days, [&] { days.Show(forms::vbModal); },
        [&] {
            days.ui().cboFilterFld->SetText("Ledger");
            days.ui().cboFilterValue->SetText(name);
            Key(days, Qt::Key_O, Qt::ControlModifier);
            ASSERT_EQ(days.ui().lvwDayBook->Count(), 1);
            EXPECT_EQ(days.ui().lvwDayBook->Item(1).SubItem(1), name);
        });

    qm::frmGrpMain& groups = forms::Default<qm::frmGrpMain>();
    On(
        groups, [&] { groups.Show(forms::vbModal); },
        [&] {
            const auto id = Rows("Select Ledger_ID From Ledger_Master Where Name = '" + name + "'");
            EXPECT_EQ(groups.ui().tvTreeView->Item("C" + id.at(0)).FullPath(), "Suppliers\\" + name);
        });

    EXPECT_THAT(Results(), HasSubstr("\n" + name + "\t1,250.50\n"));
    EXPECT_THAT(TrialBalance(), HasSubstr("\n" + name + "\t0D\t0.00\t1,250.50\t\t1,250.50\n"));

    qm::frmPartyLedger& party = forms::Default<qm::frmPartyLedger>();
    On(
        party, [&] { party.Show(forms::vbModal); },
        [&] {
            Click(party.ui().optDetail);
            Click(party.ui().ucPartyLedger->ui().optAll);
            script.Modal("frmLedger", [&](forms::Form& form) {
                // cut after 35 characters, not bytes
                EXPECT_THAT(PageText(*static_cast<qm::frmLedger&>(form).ui().ucHTMLBox),
                            HasSubstr("31-Mar-2002\tकॉपी और पेन, पूरा भुगतान अगले महीने\tJournal"));
            });
            Click(party.ui().ucPartyLedger->ui().cmdOk);
        });
    EXPECT_THAT(host::Audit::Run(), IsEmpty());
}

}  // namespace
