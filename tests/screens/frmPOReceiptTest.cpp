// Goods received against an order, with their bill.
#include <gmock/gmock.h>

#include "tests/screens/OrderScreens.h"

using namespace testing;

namespace {

enum Column { Mark, Code, Name, Rate, Ordered, Previous, Qty, Note };

class OrderReceiptTest : public OrderScreensTest {
  protected:
    static qm::frmPOReceipt& Screen() { return forms::Default<qm::frmPOReceipt>(); }
    static auto& ui() { return Screen().ui(); }
    static forms::VSFlexGrid& Items() { return *ui().vsItems; }

    // From the order screen, as a user comes to it.
    void Receive(const std::function<void()>& visit) {
        OnOrders([&] {
            ChooseSupplier();
            ChooseOrder("1PO");
            script.Modal("frmPOReceipt", [visit](forms::Form& form) {
                BringToFront(form);
                visit();
            });
            Click(Orders().ui().cmdRecieved);
            EXPECT_EQ(Orders().ui().cmbSuppliers->Text(), "Acme");
            EXPECT_EQ(Nodes(), (Lines{"1", "<New>"}));
        });
    }
    static void EnterCell(int row, int col, const std::string& text) {
        Enter(Screen(), Items(), row, col, text);
    }
    static void FillHead() {
        ui().txtBillNo->SetText("B/1");
        ui().cmbPurchaseLedger->SetText("Bought");
        ui().txtNarration->SetText(" goods ");
    }
    void ExpectSaved(int number) { ExpectBox("Saved PO Receipt with No. '" + std::to_string(number) + "'"); }
    static void Save() { Click(ui().cmdSave); }
    static Lines Cells(int row) {
        Lines cells;
        for (int col = Code; col <= Note; ++col) cells.push_back(Items().TextMatrix(row, col));
        return cells;
    }

    const std::string bought = std::to_string(books.AddLedger("Bought", "Purchase"));
};

// Two receipts in a row from one window: six and four of ten, then nothing is left to enter.
TEST_F(OrderReceiptTest, AnOrderIsReceivedInTwoParts) {
    RaiseOrder();
    Receive([&] {
        EXPECT_EQ(ui().cmbTxnNo->Text(), "<New>");
        EXPECT_EQ(ui().txtPoNo->Text() + ui().txtPoDate->Text() + ui().txtSupplier->Text(),
                  "130-Apr-2001Acme");
        EXPECT_EQ(Cells(1), (Lines{"1", "Coal", "100", "10", "", "", ""}));
        FillHead();
        EnterCell(1, Qty, "6");
        EnterCell(1, Note, "wet");
        EXPECT_EQ(ui().txtBillTotal->Text(), "600.00");
        ui().txtDiscount->SetText("10");
        EXPECT_EQ(ui().txtAmtAfterTax->Text(), "540.00");
        ExpectSaved(1);
        Save();
        EXPECT_EQ(Cells(1), (Lines{"1", "Coal", "100", "10", "6", "", ""}));
        FillHead();
        ExpectBox("Quantity received cannot be more than '4'");
        EnterCell(1, Qty, "5");
        Key(Screen(), Qt::Key_Escape);
        EnterCell(1, Qty, "4");
        EnterCell(2, Qty, "4");
        ExpectSaved(2);
        Save();
        for (const int row : {1, 2}) {  // fully received, and the order still opens
            Items().Select(row, Qty);
            Items().EditCell();
            EXPECT_FALSE(Items().Editing());
        }
    });
    EXPECT_EQ(OrderLines(), (Lines{"1|1|Coal|10|10", "1|2|Sand|4|4"}));
    EXPECT_EQ(Received(), (Lines{"10", "11"}));
    EXPECT_EQ(Stock(), (Lines{"1|37009|Receipt|1|1|Coal|Null|6|wet|100|B/1|10",
                              "2|37009|Receipt|1|1|Coal|Null|4||100|B/1|0",
                              "2|37009|Receipt|2|1|Sand|Null|4||50|B/1|0"}));
    EXPECT_EQ(Entries(), (Lines{"1|" + acme + "|Acme|37009|goods|Journal|0|540|False",
                                "1|" + bought + "|Bought|37009|goods|Journal|540|0|False",
                                "2|" + acme + "|Acme|37009|goods|Journal|0|600|False",
                                "2|" + bought + "|Bought|37009|goods|Journal|600|0|False"}));
    EXPECT_EQ(Bills(), (Lines{"B/1|1|1|True|1|10|0|0", "B/1|2|2|True|1|0|0|0"}));
    EXPECT_EQ(Totals(), (Lines{"Null|Null", "Null|Null"}));
}

// The rates are taken of the whole total here; what blanks the amount after tax is the bill total.
TEST_F(OrderReceiptTest, ReckonsTheBill) {
    RaiseOrder();
    Run("Update tblPODet2001 Set PoDetQtyOrder = 100");
    const struct {
        const char *coal, *discount, *tax, *charges, *roundOff;
        Lines computed;
    } cases[] = {
        {"12.5", "10", "5", "", "", {"1,062.50", "1,062.50", "1,062.50"}},
        {"2", "60", "50", "30", "", {"-20.00", "10.00", "10.00"}},
        {"2", "60", "50", "", "", {"-20.00", "", ""}},
        {"0", "10", "", "20", "0.5", {"", "20.00", "20.50"}},
    };
    Receive([&] {
        for (const auto& c : cases) {
            EnterCell(1, Qty, c.coal);
            SetRates(ui(), c.discount, c.tax, c.charges, c.roundOff);
            EXPECT_EQ(Computed(ui()), c.computed) << c.coal << " " << c.discount;
        }
    });
}

TEST_F(OrderReceiptTest, SavesAreRefusedInOrder) {
    const std::string discount =
        "You are about to give discount more than or equal to 50% on Bill Amount\r\n\r\nAre you sure ?";
    RaiseOrder();
    Receive([&] {
        ui().dtpDate->SetValue(basic::MakeDate(2002, 4, 1));
        ExpectBox("Please select the date in Financial Year range \r\n\r\n'01-Apr-2000' to '31-Mar-2001'");
        Save();
        ui().dtpDate->SetValue(basic::MakeDate(2001, 4, 30));
        ExpectBox("Please enter  the Bill No.");
        Save();
        ui().txtBillNo->SetText("B/1");
        ExpectBox("Please select a Purchase Ledger to be debited");
        Save();
        ui().cmbPurchaseLedger->SetText("Bought");
        EnterCell(1, Qty, "1");
        ui().txtDiscount->SetText("50");  // half of the bill of 100, as if it were rupees
        ExpectBox(discount, qm::vbYesNo + qm::vbInformation, qm::vbNo);
        ExpectBox("You can now re-enter the amount for discount");
        Save();
        EXPECT_EQ(ui().txtDiscount->Text(), "");
        EXPECT_EQ(Active(Screen()), "txtDiscount");
        ui().txtDiscount->SetText("50");
        ExpectBox(discount, qm::vbYesNo + qm::vbInformation, qm::vbYes);
        ExpectSaved(1);
        Save();
    });
    EXPECT_THAT(Entries()[0], HasSubstr("|0|50|"));
}

TEST_F(OrderReceiptTest, CellsTakeOnlyWhatTheyMay) {
    RaiseOrder();
    Receive([&] {
        for (const int col : {Code, Name, Rate, Ordered, Previous, Note}) {
            Items().SetFocus();
            Items().Select(1, col);
            Items().EditCell();
            EXPECT_FALSE(Items().Editing()) << col;
        }
        Items().Select(1, Qty);
        Type(Screen(), "1.2.3");
        ExpectBox("Please enter valid numeric quantity");
        Key(Screen(), Qt::Key_Return);
        Key(Screen(), Qt::Key_Escape);
        EnterCell(1, Qty, "2");
        EXPECT_TRUE(Items().CellChecked(1, Mark));
        EnterCell(1, Qty, "0");
        EXPECT_FALSE(Items().CellChecked(1, Mark));
        Items().Select(4, Qty);
        EXPECT_EQ(Items().Row(), 1);  // below the items the cursor cannot go
    });
}

// The entry's credit was written first, so the ledger's box shows the supplier, who is no line of it. Ctrl+S
// books an entry and a bill again, without goods and without a ledger.
TEST_F(OrderReceiptTest, CtrlSOnASavedReceiptBooksASecondEntry) {
    RaiseOrder();
    Receive([&] {
        FillHead();
        EnterCell(1, Qty, "3");
        ExpectSaved(1);
        Save();
        ui().cmbTxnNo->SetText("1");
        EXPECT_TRUE(Items().ColHidden(Previous));
        EXPECT_EQ(Items().TextMatrix(1, Qty), "3");
        EXPECT_FALSE(ui().cmdSave->Enabled());
        EXPECT_EQ(ui().cmbPurchaseLedger->Text(), "Acme");
        ExpectSaved(2);
        Ctrl(Screen(), Qt::Key_S);
    });
    EXPECT_EQ(Stock().size(), 1U);
    EXPECT_EQ(Entries()[3], "2|0|Acme|37009|goods|Journal|300|0|False");
    EXPECT_EQ(Bills(), (Lines{"B/1|1|1|True|1|0|0|0", "B/1|2|2|True|1|0|0|0"}));
}

// What was committed before a line that fails stays, and a repeated save adds it again.
TEST_F(OrderReceiptTest, ALineFailsAfterAnotherWasCommitted) {
    RaiseOrder();
    Receive([&] {
        FillHead();
        EnterCell(1, Qty, "3");
        EnterCell(2, Qty, "1");
        EnterCell(2, Note, "a \"quote\"");
        ExpectBox("Cannot Save PO Receipt !!!");
        ExpectLogged("frmPOReceipt", "Syntax error: ')' is expected where 'quote' stands", "ado.Statement");
        Save();
        EXPECT_EQ(OrderLines(), (Lines{"1|1|Coal|10|3", "1|2|Sand|4|Null"}));
        EXPECT_EQ(Received(), (Lines{"3", "7"}));
        EXPECT_EQ(Entries(), Lines{});
        EnterCell(2, Note, "plain");
        ExpectSaved(2);
        Save();
    });
    EXPECT_EQ(OrderLines(), (Lines{"1|1|Coal|10|6", "1|2|Sand|4|1"}));
    EXPECT_EQ(Received(), (Lines{"6", "8"}));
}

TEST_F(OrderReceiptTest, NothingIsShownForANumberBelowOne) {
    Screen().Load(0);
    EXPECT_FALSE(Screen().Visible());
    Screen().Unload();
}

}  // namespace
