#include "purchasing/frmPOReceipt.h"
#include "tests/inventory/ReceiptScreens.h"

using namespace testing;

namespace {

class POReceiptTest : public ReceiptScreensTest {
  protected:
    POReceiptTest() {
        Run("Insert Into tblPO2001 (poNumber, poSupplierID, PoDate, poSupplierName) Values (7, " + acme +
            ", 36990, \"Acme\")");
        AddLine(1, "Coal", "10", "4");
        AddLine(2, "Sand", "5", "Null");
    }

    static void AddLine(int item, const std::string& name, const std::string& ordered,
                        const std::string& received) {
        Run("Insert Into tblPODet2001 (PoDetPoNo, PoDetItemID, PoDetItemDesc, PoDetQtyOrder, PoDetQtyRecd) "
            "Values (7, " +
            std::to_string(item) + ", \"" + name + "\", " + ordered + ", " + received + ")");
    }
    static qm::frmPOReceipt& Screen() { return forms::Default<qm::frmPOReceipt>(); }
    static auto& ui() { return Screen().ui(); }
    static forms::VSFlexGrid& Grid() { return *ui().vsItems; }

    void Open(const std::function<void()>& visit) {
        ExpectForm("frmPOReceipt", visit);
        Screen().Load(7);
        EXPECT_FALSE(Screen().Loaded());
    }
    static void Enter(int row, int col, const std::string& text) {
        ReceiptScreensTest::Enter(Screen(), Grid(), row, col, text);
    }
    // A try at the cell: what stands there afterwards, with no editor left open.
    static std::string After(int row, int col, const std::string& typed) {
        Enter(row, col, typed);
        if (Grid().Editing()) Key(Screen(), Qt::Key_Escape);
        return Grid().TextMatrix(row, col);
    }
    static void FillHead() {
        ui().txtBillNo->SetText("B/9");
        ui().cmbPurchaseLedger->SetText("Goods");
        ui().txtNarration->SetText("on order");
    }
    static int NextNo() {
        const std::string highest = Rows("Select Max(ItemLedTrnNo) From tblItemLed2001")[0];
        return highest == "Null" ? 1 : std::stoi(highest) + 1;
    }
    void ExpectSaved(int number) { ExpectBox("Saved PO Receipt with No. '" + std::to_string(number) + "'"); }
    // Two of the coal and one of the sand, 250.
    void SaveReceipt(int number) {
        FillHead();
        Enter(1, 6, "2");
        Enter(1, 7, "wet");
        Enter(2, 6, "1");
        SetRates(ui(), "10", "5", "20", "0.5");
        ExpectSaved(number);
        Click(ui().cmdSave);
    }
    static std::string Row(int row) { return RowText(Grid(), row, 1, Grid().Cols() - 1); }
    static Lines Ordered() { return Rows("Select PoDetItemID, PoDetQtyRecd From tblPODet2001"); }

    const std::string goods = std::to_string(books.AddLedger("Goods", "Purchase"));
};

TEST_F(POReceiptTest, PartOfTheOrderIsBookedAndViewed) {
    Open([&] {
        EXPECT_EQ(Texts({ui().txtPoNo, ui().txtPoDate, ui().txtSupplier}),
                  (Lines{"7", "11-Apr-2001", "Acme"}));
        EXPECT_EQ(Row(1), "1|Coal|100|10|4||");
        EXPECT_FALSE(Grid().ColHidden(5));
        SaveReceipt(1);
        EXPECT_EQ(ui().cmbTxnNo->Text() + ui().txtBillNo->Text() + ui().txtRoundOff->Text(), "<New>");
        EXPECT_EQ(Row(1), "1|Coal|100|10|6||");
        EXPECT_TRUE(ui().cmdSave->Enabled());

        ui().cmbTxnNo->SetText("1");
        EXPECT_TRUE(Grid().ColHidden(5));
        EXPECT_EQ(Row(1), "1|Coal|100|10||2|wet");
        EXPECT_EQ(Row(5), "|||Bill Total = |Rs. 250.00||");
        EXPECT_EQ(Computed(ui()), (Lines{"212.50", "232.50", "232.50"}));
        EXPECT_EQ(ui().txtBillNo->Text(), "B/9");
        EXPECT_FALSE(ui().cmdSave->Enabled() || ui().dtpDate->Enabled());
        EXPECT_TRUE(ui().cmbPurchaseLedger->Locked() && ui().txtRoundOff->Locked());
        EXPECT_EQ(After(1, 6, "1") + After(1, 7, "x"), "2wet") << "a saved receipt is for viewing";
    });
    EXPECT_EQ(Stock(), (Lines{"1|37009|Receipt|1|7|Coal|Null|2|wet|100|B/9|15",
                              "1|37009|Receipt|2|7|Sand|Null|1||50|B/9|7.5"}));
    EXPECT_EQ(Received(), (Lines{"2", "1"}));
    EXPECT_EQ(Ordered(), (Lines{"1|6", "2|1"}));
    EXPECT_EQ(Entries(), (Lines{"1|" + acme + "|Acme|37009|on order|Journal|0|232.5|False",
                                "1|" + goods + "|Goods|37009|on order|Journal|232.5|0|False"}));
    EXPECT_EQ(Bills(), Lines{"B/9|1|1|True|7|10|5|20"});
    EXPECT_THAT(Totals(), Each(Totals()[0])) << "no ledger's total moves";
}

// The order has no closed state: what is received in full still opens, with nothing to enter.
TEST_F(POReceiptTest, AFullyReceivedLineTakesNothing) {
    Open([&] {
        FillHead();
        Enter(1, 6, "6");
        Enter(2, 6, "5");
        ExpectSaved(1);
        Click(ui().cmdSave);
        EXPECT_EQ(After(1, 6, "1") + After(2, 6, "1") + After(1, 7, "late"), "");
    });
    EXPECT_EQ(Ordered(), (Lines{"1|10", "2|5"}));
    Open([&] {
        FillHead();
        ExpectBox(
            "You are about to give discount more than or equal to 50% on Bill Amount\r\n\r\nAre you sure ?",
            qm::vbYesNo + qm::vbInformation, qm::vbYes);
        ExpectSaved(2);
        Click(ui().cmdSave);
    });
    EXPECT_EQ(Stock().size(), 2u) << "no line was marked";
    EXPECT_THAT(Bills(), ElementsAre("B/9|1|1|True|7|0|0|0", "B/9|2|2|True|7|0|0|0"));
}

// Without a discount a row's figure builds on the row before; a row that is not received has none.
TEST_F(POReceiptTest, CarriesTheLandingCostFromRowToRow) {
    AddLine(3, "Lime", "5", "Null");
    AddItem(3, "Lime", "20");
    Open([&] {
        FillHead();
        Enter(1, 6, "1");
        Enter(3, 6, "1");
        SetRates(ui(), "", "10", "", "");
        ExpectSaved(1);
        Click(ui().cmdSave);
    });
    EXPECT_EQ(Rows("Select ItemLedItemID, ItemLandingCost From tblItemLed2001"), (Lines{"1|10", "3|202"}));
}

TEST_F(POReceiptTest, TwoReceiptsFollowEachOtherFromOneWindow) {
    Run("Insert Into tblItemLed2001 (ItemLedTrnNo, ItemLedTrnType) Values (6, 'Issue')");
    Open([&] {
        SaveReceipt(7);
        SaveReceipt(8);
        EXPECT_EQ(ListOf(*ui().cmbTxnNo), (Lines{"<New>", "7", "8"}));
    });
    EXPECT_EQ(Ordered(), (Lines{"1|8", "2|2"}));
    EXPECT_EQ(Received(), (Lines{"4", "2"}));
    EXPECT_EQ(Rows("Select Distinct LedgerTrnNo From tb_Ledger2001"), (Lines{"1", "2"}));
}

TEST_F(POReceiptTest, TheGridTakesOnlyWhatTheOrderLeaves) {
    Open([&] {
        EXPECT_EQ(After(1, 7, "early"), "") << "no remark before a quantity";
        ExpectBox("Quantity received cannot be more than '6'");
        EXPECT_EQ(After(1, 6, "6.5"), "");
        EXPECT_EQ(After(1, 6, "6"), "6") << "all that is left passes";
        ExpectBox("Please enter valid numeric quantity");
        EXPECT_EQ(After(1, 6, "1.."), "6");
        EXPECT_EQ(After(2, 6, "-1x.5"), "1.5");
        EXPECT_EQ(After(2, 7, std::string(120, 'r')).size(), 99u);
        for (int col = 1; col < 6; ++col) {
            const std::string before = Grid().TextMatrix(1, col);
            EXPECT_EQ(After(1, col, "8"), before) << col;
        }
        EXPECT_TRUE(Grid().CellChecked(1, 0) && Grid().CellChecked(2, 0));
        Enter(2, 6, "0");
        EXPECT_FALSE(Grid().CellChecked(2, 0)) << "a row without a quantity is not saved";
        for (int row = 3; row < Grid().Rows(); ++row) {
            Grid().Select(row, 6);
            EXPECT_LT(Grid().Row(), 3) << "the total rows are not entered";
        }
    });
}

// All is missing at first, and each refusal names the first that is.
TEST_F(POReceiptTest, ChecksInOrderBeforeItSaves) {
    const struct {
        const char* message;
        const char* active;
        std::function<void()> mend;
    } cases[] = {
        {"Please select the date in Financial Year range \r\n\r\n'01-Apr-2000' to '31-Mar-2001'", "dtpDate",
         [] { ui().dtpDate->SetValue(basic::MakeDate(2002, 3, 31)); }},
        {"Please enter  the Bill No.", "txtBillNo", [] { ui().txtBillNo->SetText("B/9"); }},
        {"Please select a Purchase Ledger to be debited", "cmbPurchaseLedger", [] {}},
    };
    Open([&] {
        ui().dtpDate->SetValue(basic::MakeDate(2002, 4, 1));
        ui().txtBillNo->SetText(" ");
        for (const auto& c : cases) {
            SCOPED_TRACE(c.message);
            ui().cmdSave->SetFocus();
            ExpectBox(c.message);
            Click(ui().cmdSave);
            EXPECT_EQ(Active(Screen()), c.active);
            c.mend();
        }
    });
    EXPECT_EQ(Bills(), Lines{});
}

// A percentage beside half of an amount, cut at its comma.
TEST_F(POReceiptTest, AsksOfADiscountThatReadsLikeHalfTheBill) {
    Run("Update tblPODet2001 Set PoDetQtyOrder = 100");
    const struct {
        const char *coal, *discount;
        bool asks;
    } cases[] = {{"1", "49.9", false},
                 {"1", "50", true},
                 {"12.5", "0.4", false},
                 {"12.5", "0.5", true},
                 {"0", "", true}};
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.coal) + " at " + c.discount);
        for (const int answer : {qm::vbNo, qm::vbYes}) {
            const std::size_t before = Bills().size();
            const bool saved = !c.asks || answer == qm::vbYes;
            Open([&] {
                FillHead();
                Enter(1, 6, c.coal);
                ui().txtDiscount->SetText(c.discount);
                if (c.asks)
                    ExpectBox(
                        "You are about to give discount more than or equal to 50% on Bill Amount\r\n\r\nAre "
                        "you sure ?",
                        qm::vbYesNo + qm::vbInformation, answer);
                if (!saved) ExpectBox("You can now re-enter the amount for discount");
                if (saved) ExpectSaved(NextNo());
                Click(ui().cmdSave);
                if (!saved) {
                    EXPECT_EQ(Active(Screen()) + ui().txtDiscount->Text(), "txtDiscount");
                }
            });
            EXPECT_EQ(Bills().size(), before + (saved ? 1 : 0));
        }
    }
}

// Its boxes show the supplier as the purchase ledger, which is in no list: the debit goes to no ledger.
TEST_F(POReceiptTest, CtrlSOnASavedReceiptBooksItUnderANewNumber) {
    Open([&] {
        SaveReceipt(1);
        ui().cmbTxnNo->SetText("1");
        EXPECT_EQ(ui().cmbPurchaseLedger->Text(), "Acme");
        ExpectSaved(2);
        Ctrl(Screen(), Qt::Key_S);
    });
    EXPECT_EQ(Stock().size(), 2u);
    EXPECT_EQ(Ordered(), (Lines{"1|6", "2|1"}));
    EXPECT_THAT(Entries(), ElementsAre(_, _, "2|" + acme + "|Acme|37009|on order|Journal|0|232.5|False",
                                       "2|0|Acme|37009|on order|Journal|232.5|0|False"));
    EXPECT_EQ(Bills(), (Lines{"B/9|1|1|True|7|10|5|20", "B/9|2|2|True|7|10|5|20"}));
}

// Nothing here looks at the mark or at the year of a ledger: an order stands, its supplier deleted or not.
TEST_F(POReceiptTest, ADeletedSuppliersOrderIsReceived) {
    Run("Update Ledger_Master Set Deleted = True");
    Run("Delete From Ledger_Details");
    Open([&] { SaveReceipt(1); });
    EXPECT_THAT(Entries(), ElementsAre(StartsWith("1|" + acme + "|"), StartsWith("1|" + goods + "|")));
}

TEST_F(POReceiptTest, RowsBeforeAFailingOneStay) {
    Open([&] {
        FillHead();
        Enter(1, 6, "2");
        Enter(2, 6, "1");
        Run("Delete From tblPODet2001 Where PoDetItemID = 2");
        for (int attempt = 0; attempt < 2; ++attempt) {
            ExpectBox("Cannot Save PO Receipt !!!");
            ExpectLogged("frmPOReceipt");
            Click(ui().cmdSave);
        }
    });
    EXPECT_EQ(Ordered(), Lines{"1|8"});
    EXPECT_EQ(Received(), (Lines{"4", "0"})) << "the failing row's own update is undone";
    EXPECT_EQ(Rows("Select ItemLedTrnNo, ItemLedItemID From tblItemLed2001"), (Lines{"1|1", "2|1"}));
    EXPECT_EQ(Entries().size() + Bills().size(), 0u);
    EXPECT_EQ(Logged(), (Lines{"frmPOReceipt|0|", "frmPOReceipt|0|"}));
    EXPECT_EQ(qm::Conn().TransDepth(), 0);
}

TEST_F(POReceiptTest, AnOrderOfNumberNothingShowsNothing) {
    Screen().Load(0);
    EXPECT_FALSE(Screen().Visible());
    Screen().Unload();
}

}  // namespace
