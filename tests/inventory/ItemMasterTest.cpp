#include "inventory/ItemMaster.h"
#include "shell/frmSearchAndLookUp.h"
#include "shell/modSearch.h"
#include "tests/inventory/StockScreens.h"

using namespace testing;

namespace {

const char* const AllFields =
    "Select Item_ID, Item_Name, Item_Type, Unit_Desc, Open_Stock, Reorder_Level, Overflow_Level, Unit_Price, "
    "Balance, Notes, IssuedQty, ReceivedQty From ItemMaster2001";

class ItemMasterTest : public StockScreensTest {
  protected:
    enum Button { Add, Update, Delete, Find, Close, Previous, Next };

    void Open() { Show(form); }
    auto& ui() { return form.ui(); }
    void Press(Button button) { Click(&ui().ucAddPanel1->cmdUC(button)); }
    // Goes to the control and types, as the user does.
    void Fill(forms::Control& control, const char* text) {
        control.SetFocus();
        Type(form, text);
    }
    std::string Shown() {
        std::string text;
        for (const forms::TextBox* box : form.ControlsOf<forms::TextBox>()) text += box->Text() + "|";
        return text + ui().cboItemType->Text();
    }
    std::string Enabled() {
        std::string buttons;
        for (int i = Add; i <= Next; ++i)
            if (ui().ucAddPanel1->cmdUC(i).Enabled()) buttons += "AUDFC<>"[i];
        return buttons;
    }
    bool Locked() {
        return ui().txtItemName->Locked() && ui().cboItemType->Locked() && ui().txtItemID->Locked();
    }

    qm::ItemMaster form;
};

TEST_F(ItemMasterTest, AnItemIsAddedUnderTheNextNumber) {
    Open();
    EXPECT_TRUE(Locked());
    EXPECT_EQ(ui().cboItemType->ListCount(), 5);
    EXPECT_EQ(ui().cboItemType->List(3), "Medicine");
    Press(Add);
    EXPECT_EQ(Enabled(), "UC");
    EXPECT_EQ(ui().txtItemID->Text(), "1");
    EXPECT_EQ(Active(form), "txtItemName");
    EXPECT_FALSE(Locked());
    Type(form, "  Potter's clay ");
    Fill(*ui().cboItemType, "Mat");
    Fill(*ui().txtOpenStock, "12.5");
    Fill(*ui().txtUnitPrice, "3");
    Fill(*ui().txtComments, "wet");
    ExpectBox("Added 1 record(s)");
    Press(Update);
    EXPECT_EQ(Rows(AllFields), Lines{"1|Potter's clay|Material|Null|12.5|Null|Null|3|Null|wet|Null|Null"});
    EXPECT_EQ(Enabled(), "AUDFC<>");
    EXPECT_FALSE(Locked()) << "it stays open";
    Press(Add);
    EXPECT_EQ(Shown(), "2|||||||||");
    Press(Close);
    EXPECT_FALSE(form.Loaded());
}

TEST_F(ItemMasterTest, AnUpdateKeepsTheQuantitiesOfTheMovements) {
    AddItem(4, "Coal", "1", "2", "3", "5");
    AddItem(9, "Sand");
    Open();
    form.ModeNew();
    EXPECT_TRUE(form.IsNew());
    EXPECT_EQ(ui().txtItemID->Text(), "10");
    ui().txtItemID->SetFocus();
    Retype(form, "4");
    Fill(*ui().txtItemName, "Peat");
    Fill(*ui().cboItemType, "Gen");
    ExpectBox("Updated 1 record(s)");
    Press(Update);
    EXPECT_EQ(Rows(AllFields), (Lines{"4|Peat|General|Null|Null|Null|Null|Null|Null|Null|3|5",
                                      "9|Sand|Null|Null|Null|Null|Null|Null|Null|Null|Null|Null"}));
}

TEST_F(ItemMasterTest, WhatCannotBeWrittenIsPassedOver) {
    Open();
    Press(Update);  // no number: nothing
    Press(Add);
    ExpectBox(" Please Enter Item Name ");
    Press(Update);
    EXPECT_EQ(Enabled(), "AUDFC<>") << "though the new item is not there";
    Fill(*ui().txtItemName, "Coal");
    Fill(*ui().txtBalance, "much");
    Press(Update);
    EXPECT_EQ(Rows(AllFields), Lines{});
    EXPECT_EQ(ui().txtItemName->Text(), "Coal");
}

TEST_F(ItemMasterTest, StepsThroughTheItemsAndStaysAtTheEnds) {
    for (int id : {3, 1, 2}) AddItem(id, "I" + std::to_string(id));
    Open();
    const auto steps = [&](const std::string& way) {
        std::string shown;
        for (const char step : way) {
            Press(step == '>' ? Next : Previous);
            shown += ui().txtItemID->Text() + ui().txtItemName->Text() + " ";
        }
        return shown;
    };
    EXPECT_EQ(steps(">>>>><<<<<>"), "1I1 2I2 2I2 2I2 2I2 2I2 1I1 3I3 3I3 3I3 3I3 ");
    // What was written is read again, from the first row.
    form.ModeNew();
    ui().txtItemName->SetText("I4");
    ExpectBox("Added 1 record(s)");
    Press(Update);
    EXPECT_EQ(steps(">>>>"), "1I1 2I2 4I4 4I4 ");
    ui().txtItemName->SetText("J4");
    ExpectBox("Updated 1 record(s)");
    Press(Update);
    EXPECT_EQ(steps(">>>"), "1I1 2I2 4J4 ");
}

// The statement fails without a word: the item stays in its table.
TEST_F(ItemMasterTest, DeleteOnlyClearsTheScreen) {
    AddItem(4, "Coal");
    Open();
    ExpectBox(" Please Select record First ");
    Press(Delete);
    form.ModeNew();
    ui().txtItemID->SetText("4");
    ui().cboItemType->SetListIndex(1);
    Press(Delete);
    EXPECT_EQ(Shown(), "|||||||||");
    EXPECT_TRUE(Locked());
    EXPECT_EQ(Rows("Select Item_Name From ItemMaster2001"), Lines{"Coal"});
    EXPECT_EQ(Rows("Select * From tblError"), Lines{});
}

TEST_F(ItemMasterTest, FindShowsTheChosenItem) {
    AddItem(4, "Coal", "4.5");
    AddItem(9, "Sand");
    Run("Update ItemMaster2001 Set Item_Type = 'Fuel' Where Item_ID = 4");
    qm::SearchResultKey = "9";
    Open();
    auto& lookUp = forms::Default<qm::frmSearchAndLookUp>();
    script.Modal("frmSearchAndLookUp", [&](forms::Form& shown) {
        EXPECT_EQ(lookUp.ui().mylbl->Caption(), " Enter Item Name   ");
        EXPECT_EQ(lookUp.ui().grd->TextMatrix(0, 1), "Item Id");
        lookUp.ui().txtsearch->SetText("co");
        Key(shown, Qt::Key_Return);
    });
    Press(Find);
    EXPECT_EQ(ui().txtItemID->Text() + ui().txtItemName->Text() + ui().cboItemType->Text(), "4CoalFuel");
    EXPECT_EQ(ui().txtUnitPrice->Text(), "4.5");
    EXPECT_TRUE(Locked());
    qm::SearchResultKey = "9";  // of an earlier search: a look-up closed without a choice leaves it
    script.Modal("frmSearchAndLookUp", [](forms::Form& shown) { shown.Window()->close(); });
    Press(Find);
    EXPECT_EQ(ui().txtItemName->Text(), "Sand");
    qm::SearchResultKey = "";
    script.Modal("frmSearchAndLookUp", [](forms::Form& shown) { shown.Window()->close(); });
    Press(Find);
    EXPECT_EQ(ui().txtItemID->Text() + ui().txtItemName->Text(), "Sand");
    lookUp.Unload();
}

}  // namespace
