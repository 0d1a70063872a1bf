// The whole life of goods in one year, over all the screens that see them. Each figure is worked out by hand:
//   ordered 10 coal at 100; received 6 (600 less 10 % is 540) and 4 (400); issued 3; so 10 came, 3 went, 7 of
//   12 in stock (5 at the opening); the supplier is owed 940, all of it bought, a gross loss of 940.
#include <gmock/gmock.h>

#include "inventory/frmIssues.h"
#include "reports/frmItemLedger.h"
#include "reports/frmLedger.h"
#include "reports/frmPartyLedger.h"
#include "reports/frmTPL.h"
#include "tests/purchasing/OrderScreens.h"
#include "years/frmNewFinYear.h"

using namespace testing;

namespace {

class GoodsLifeTest : public OrderScreensTest {
  protected:
    void ReceiveParts() {
        OnOrders([&] {
            ChooseSupplier();
            ChooseOrder("1PO");
            script.Modal("frmPOReceipt", [&](forms::Form& form) {
                BringToFront(form);
                Receive({"6"}, "10", 1);
                Receive({"4"}, "", 2);
            });
            Click(Orders().ui().cmdRecieved);
        });
    }
    void Issue(const std::string& qty) {
        auto& issues = forms::Default<qm::frmIssues>();
        script.Modal("frmIssues", [&](forms::Form& form) {
            BringToFront(form);
            ExpectPick({"Coal"});
            forms::VSFlexGrid& grid = *issues.ui().vsIssue;
            grid.SetFocus();
            grid.Select(1, 2);
            Key(form, Qt::Key_Return);
            Enter(form, grid, 1, 4, qty);
            ExpectBox("Issue details saved with Issue voucher no. '3'");
            Click(issues.ui().cmdSave);
        });
        issues.Load(0);
    }
    // The page of a report screen after a click on its button of all records and on OK.
    template <class Screen, class Selective>
    std::string Statement(Screen& screen, Selective list) {
        std::string text;
        screen.Show();
        if constexpr (requires { screen.ui().ucPartyLedger; }) screen.ui().optDetail->SetValue(1);
        screen.ui().dtpDateFrom->SetValue(basic::MakeDate(2001, 4, 1));
        Click(list(screen)->ui().optAll);
        script.Modal("frmLedger",
                     [&](forms::Form& form) { text = static_cast<qm::frmLedger&>(form).ReportText(); });
        Click(list(screen)->ui().cmdOk);
        return text;
    }
    static std::string Figures(const std::string& in, const std::string& out, const std::string& balance) {
        return "<td align = 'right'>" + in + "</td><td align = 'right'>" + out + "</td><td align = 'right'>" +
               balance + "</td></tr>";
    }
};

TEST_F(GoodsLifeTest, FromTheOrderToNextYearsStock) {
    books.AddLedger("Bought", "Purchase");
    Run("Update ItemMaster2001 Set Open_Stock = 5, IssuedQty = 0, ReceivedQty = 0, Balance = 5 Where Item_ID "
        "= 1");
    OnOrders([&] {
        ChooseSupplier();
        PickItems({"Coal"});
        EnterQty(1, "10");
        ExpectBox("Purchase Order Saved with No.'1'");
        SaveOrder();
    });
    ReceiveParts();
    Issue("3");
    EXPECT_EQ(OrderLines(), Lines{"1|1|Coal|10|10"});
    EXPECT_EQ(
        Rows("Select Open_Stock, ReceivedQty, IssuedQty, Balance From ItemMaster2001 Where Item_ID = 1"),
        Lines{"5|10|3|5"});

    const std::string stock =
        Statement(forms::Default<qm::frmItemLedger>(), [](auto& screen) { return screen.ui().ucItemLedger; });
    EXPECT_THAT(stock,
                AllOf(HasSubstr("<td>Receipt</td><td align = 'right'>10</td>" + Figures("6.00", "", "11.00")),
                      HasSubstr(Figures("4.00", "", "15.00")), HasSubstr(Figures("0.00", "3.00", "12.00"))));
    const std::string owed = Statement(forms::Default<qm::frmPartyLedger>(),
                                       [](auto& screen) { return screen.ui().ucPartyLedger; });
    EXPECT_THAT(owed,
                AllOf(HasSubstr("<b>Acme</b>"), HasSubstr(">540.00</td><td align = 'right'>540.00Cr</td>"),
                      HasSubstr(">400.00</td><td align = 'right'>940.00Cr</td>")));

    auto& results = forms::Default<qm::frmTPL>();
    results.Show();
    Click(results.ui().cmdView);
    const std::string page = results.ui().ucHTMLBox->ui().dhtEdit->DocumentHTML();
    results.Unload();
    EXPECT_THAT(page,
                AllOf(HasSubstr("<u>Gross Loss : </u></td> <td align  = 'right'>940.00</td>"),
                      HasSubstr("Acme</td><td colspan =1 align  = 'right'>940.00</td>"),
                      HasSubstr("Net Loss Trf From P & L</td><td colspan =1 align  = 'right'>940.00</td>")));

    // What the item screen keeps as its balance opens the new year, not the 12 in stock.
    auto& year = forms::Default<qm::frmNewFinYear>();
    year.Show();
    year.ui().txtFrom->SetText("2002");
    year.ui().txtTo->SetText("2003");
    Click(year.ui().cmdSave);
    year.Unload();
    EXPECT_EQ(Rows("Select Open_Stock, ReceivedQty, IssuedQty From ItemMaster2002 Where Item_ID = 1"),
              Lines{"5|0|0"});
    EXPECT_EQ(Rows("Select Name, Opening_Bal, Bal_Type From Ledger_Master, Ledger_Details Where "
                   "Ledger_Master.Ledger_ID = Ledger_Details.Ledger_ID And Fnncl_Yr = 2002"),
              (Lines{"Acme|940|C", "Bought|940|D"}));
}

}  // namespace
