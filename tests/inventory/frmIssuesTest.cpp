#include <QLineEdit>

#include "inventory/frmIssues.h"
#include "platform/basic/Clock.h"
#include "platform/basic/Dates.h"
#include "tests/inventory/StockScreens.h"

using namespace testing;

namespace {

const char* const Saved = "Issue details saved with Issue voucher no. '";
const char* const TooMuch = "\r\n\r\nCannot issue qty. more than stock available";

class IssuesTest : public StockScreensTest {
  protected:
    IssuesTest() {
        basic::Clock::Set(basic::MakeDate(2001, 5, 15));
        AddItem(1, "Coal", "4.5", "10", "2", "4");  // net 12
        AddItem(2, "Sand", "1.25", "10", "Null", "0");
        AddItem(3, "Peat", "Null", "5", "0", "0");
    }
    ~IssuesTest() override { basic::Clock::Set({}); }

    void Open(std::int32_t number, const std::function<void()>& visit) {
        ExpectForm("frmIssues", visit);
        form.Load(number);
        form.Unload();
    }
    auto& ui() { return form.ui(); }
    forms::VSFlexGrid& Grid() { return *ui().vsIssue; }
    void Pick(const Lines& names) {  // by Enter on the entry row's button
        ExpectPick(names);
        Grid().SetFocus();
        Grid().Select(Grid().Rows() - 1, 2);
        Key(form, Qt::Key_Return);
    }
    void TypeCell(int row, int col, const std::string& text) { Enter(form, Grid(), row, col, text); }
    void PressDelete(int row) {
        Grid().SetFocus();
        Grid().Select(row, 2);
        Key(form, Qt::Key_Delete);
    }
    void Save() { Click(ui().cmdSave); }
    void ExpectSaved(int number) { ExpectBox(Saved + std::to_string(number) + "'"); }
    Lines Shown() { return RowTexts(Grid(), 1, 5); }
    static Lines Movements() {
        return Rows(
            "Select ItemLedTrnNo, ItemLedTrnDate, ItemLedItemID, ItemLedItemDesc, ItemLedTrnIssQty, "
            "ItemLedNote From tblItemLed2001 Where ItemLedTrnType = 'Issue'");
    }
    static Lines Issued() { return Rows("Select IssuedQty From ItemMaster2001"); }
    static Lines Errors() { return Rows("Select frmName, ErrNumber From tblError"); }
    static void AddMovement(int number, const std::string& type, int item, const std::string& qty) {
        Run("Insert Into tblItemLed2001 (ItemLedTrnNo, ItemLedTrnDate, ItemLedTrnType, ItemLedItemID, "
            "ItemLedItemDesc, ItemLedTrnIssQty, ItemLedUnitPrice) Values (" +
            std::to_string(number) + ", 36990, '" + type + "', " + std::to_string(item) + ", 'Old', " + qty +
            ", 2.5)");
    }

    qm::frmIssues form;
};

TEST_F(IssuesTest, AnIssueIsBookedAndTheScreenIsNewAgain) {
    AddMovement(7, "Receipt", 1, "0");
    Open(0, [&] {
        EXPECT_EQ(ui().cmbTxnNo->ListCount(), 1) << "a receipt is not listed";
        Pick({"Coal", "Sand"});
        TypeCell(1, 4, "-2x.5,");
        TypeCell(1, 5, "for the boiler");
        TypeCell(2, 4, "0");
        EXPECT_EQ(Shown(), (Lines{"1|Coal|4.5|2.5|for the boiler", "2|Sand|1.25|0|", "||||"}));
        ExpectSaved(8);
        Save();
        EXPECT_EQ(Shown(), Lines{"||||"});
        EXPECT_EQ(ui().cmbTxnNo->Text(), "<New>");
        EXPECT_EQ(ui().cmbTxnNo->List(0), "8");
        EXPECT_EQ(std::pair(Grid().Row(), Grid().Col()), std::pair(1, 2));
        Pick({"Peat"});
        TypeCell(1, 4, "1");
        ExpectSaved(9);
        Key(form, Qt::Key_S, Qt::ControlModifier);
        Key(form, Qt::Key_X, Qt::ControlModifier);
        EXPECT_FALSE(form.Visible());
    });
    EXPECT_EQ(Movements(),
              (Lines{"8|37024|1|Coal|2.5|for the boiler", "8|37024|2|Sand|0|", "9|37024|3|Peat|1|"}));
    EXPECT_EQ(Rows("Select ItemLedPoNo, ItemLedTrnRptQty, ItemLedUnitPrice, ItemLedBillNo, ItemLandingCost "
                   "From tblItemLed2001 Where ItemLedTrnNo > 7"),
              (Lines{"0|0|4.5|0|0", "0|0|1.25|0|0", "0|0|0|0|0"}));
    EXPECT_EQ(Issued(), (Lines{"4.5", "0", "1"}));
    EXPECT_EQ(Rows("Select Balance From ItemMaster2001 Where Item_ID = 1"), Lines{"Null"});
    for (const char* table : {"tblBills2001", "tb_Ledger2001", "tblError"})
        EXPECT_EQ(Rows(std::string("Select * From ") + table), Lines{}) << table;
}

// Of the net quantity 12 all may go; a Null counter makes it unknown, and anything passes.
TEST_F(IssuesTest, NoMoreThanTheStockIsIssued) {
    const struct {
        const char *item, *qty, *refusal;
    } cases[] = {{"Coal", "11.5", nullptr},
                 {"Coal", "12", nullptr},
                 {"Coal", "12.5", "Net qty. present in stock for Item 'Coal' = 12"},
                 {"Sand", "99999", nullptr}};
    for (const auto& c : cases) {
        qm::Conn().BeginTrans();
        Open(0, [&] {
            Pick({c.item});
            TypeCell(1, 4, c.qty);
            if (c.refusal)
                ExpectBox(std::string(c.refusal) + TooMuch);
            else
                ExpectSaved(1);
            Save();
            EXPECT_EQ(Grid().Rows(), c.refusal ? 3 : 2);
            EXPECT_EQ(std::pair(Grid().Row(), Grid().Col()), std::pair(1, c.refusal ? 4 : 2));
            EXPECT_EQ(Active(form), c.refusal ? "vsIssue" : "cmdSave");
        });
        EXPECT_THAT(Movements(), SizeIs(c.refusal ? 0 : 1)) << c.item << ' ' << c.qty;
        qm::Conn().RollbackTrans();
    }
    EXPECT_EQ(Errors(), Lines{});
}

// The search for the stock only goes forward: in the reverse of the items' order the second is not found.
TEST_F(IssuesTest, ItemsInReverseOrderCannotBeSaved) {
    Open(0, [&] {
        Pick({"Peat"});
        Pick({"Coal"});
        TypeCell(1, 4, "1");
        TypeCell(2, 4, "1");
        ExpectLogged("frmIssues",
                     "Either BOF or EOF is True, or the current record has been deleted. The operation needs "
                     "a current record.",
                     "ado.Recordset");
        Save();
        EXPECT_EQ(Grid().Rows(), 4);
    });
    EXPECT_EQ(Movements(), Lines{});
    EXPECT_EQ(Errors(), Lines{"frmIssues|3021"});
}

TEST_F(IssuesTest, WhatIsMissingIsTold) {
    AddItem(4, "");
    Open(0, [&] {
        Save();  // no items: not a word
        Pick({"Coal", ""});
        ExpectBox("Please specify qty. to be issued for item\r\n\r\n'Coal'");
        Save();
        EXPECT_EQ(std::pair(Grid().Row(), Grid().Col()), std::pair(1, 4));
        EXPECT_EQ(Active(form), "vsIssue");
        EXPECT_EQ(Errors(), Lines{});
        TypeCell(1, 4, "1");
        ExpectBox("Please select items to be issued");
        ExpectLogged("frmIssues");
        Save();
        EXPECT_EQ(std::pair(Grid().Row(), Grid().Col()), std::pair(2, 2));
        ui().dtpDate->SetValue(basic::MakeDate(2002, 4, 1));
        ExpectBox("Please select the date in Financial Year range \r\n\r\n'01-Apr-2000' to '31-Mar-2001'");
        Save();
        EXPECT_EQ(Active(form), "dtpDate");
    });
    EXPECT_EQ(Errors(), Lines{"frmIssues|0"});
    EXPECT_EQ(Movements(), Lines{});
}

// Only the remark of a saved row can change; the stock test takes its quantity all the same.
TEST_F(IssuesTest, ASavedIssueTakesMoreRowsAndNewRemarks) {
    AddMovement(5, "Issue", 1, "3");
    AddMovement(5, "Issue", 2, "4");
    Open(5, [&] {
        EXPECT_EQ(Shown(), (Lines{"1|Old|2.5|3|", "2|Old|2.5|4|", "||||"}));
        EXPECT_EQ(basic::ToText(ui().dtpDate->Value()), "11/04/2001");
        TypeCell(1, 4, "9");
        TypeCell(2, 5, "late");
        ExpectPick({"Coal", "Peat"});
        ExpectBox("Item 'Coal' is already present in the list\r\n\r\nCannot add");
        Grid().Select(3, 2);
        Key(form, Qt::Key_Return);
        EXPECT_EQ(Shown(), (Lines{"1|Old|2.5|3|", "2|Old|2.5|4|late", "3|Peat|0||", "||||"}));
        TypeCell(3, 4, "1");
        ui().dtpDate->SetValue(basic::MakeDate(2001, 6, 1));
        Run("Update ItemMaster2001 Set Open_Stock = 0 Where Item_ID = 1");
        ExpectBox("Net qty. present in stock for Item 'Old' = 2" + std::string(TooMuch));
        Save();
        Run("Update ItemMaster2001 Set Open_Stock = 1 Where Item_ID = 1");
        ExpectSaved(5);
        Save();
    });
    EXPECT_EQ(Movements(), (Lines{"5|36990|1|Old|3|Null", "5|36990|2|Old|4|late", "5|37041|3|Peat|1|"}));
    EXPECT_EQ(Issued(), (Lines{"2", "Null", "1"}));
}

TEST_F(IssuesTest, DeleteAsksOnAnyRow) {
    AddMovement(5, "Issue", 1, "3");
    const auto question = [&](const std::string& item, int answer) {
        ExpectQuestion("Remove Item '" + item + "'", answer);
    };
    Open(5, [&] {
        question("Old", qm::vbYes);
        ExpectBox("Item Item 'Old' has been issued \r\n\r\nCannot remove");
        PressDelete(1);
        Pick({"Sand", "Peat"});
        question("Sand", qm::vbNo);
        PressDelete(2);
        EXPECT_EQ(Grid().Rows(), 5);
        question("Sand", qm::vbYes);
        PressDelete(2);
        EXPECT_EQ(Shown(), (Lines{"1|Old|2.5|3|", "3|Peat|0||", "||||"}));
        question("", qm::vbYes);
        PressDelete(3);
        EXPECT_EQ(Shown(), (Lines{"1|Old|2.5|3|", "3|Peat|0||"})) << "the entry row went";
        Grid().Select(2, 2);
        Key(form, Qt::Key_Return);  // no empty row: the button does nothing
        TypeCell(2, 4, "1");
        ExpectSaved(5);
        Save();
        EXPECT_EQ(Shown(), Lines{"||||"}) << "it comes back when the grid is filled";
    });
    EXPECT_EQ(Movements(), Lines{"5|36990|1|Old|3|Null"}) << "the last row is never taken";
}

// The number is used though no issue bears it; typing it fills the grid anew at each key.
TEST_F(IssuesTest, AnUnknownNumberMayBeTyped) {
    Open(0, [&] {
        Pick({"Sand"});
        ui().cmbTxnNo->SetFocus();
        ui().cmbTxnNo->lineEdit()->selectAll();
        Type(form, "41");
        EXPECT_EQ(Shown(), Lines{"||||"});
        Pick({"Sand"});
        TypeCell(1, 4, "2");
        ExpectSaved(41);
        Save();
    });
    EXPECT_EQ(Movements(), Lines{"41|37024|2|Sand|2|"});
}

// The numbers are shared: that of a receipt shows its rows, whose remarks are not to be had here.
TEST_F(IssuesTest, TheNumberOfAReceiptShowsIt) {
    AddMovement(7, "Receipt", 1, "0");
    Open(0, [&] {
        ui().cmbTxnNo->SetText("7");
        EXPECT_EQ(Shown(), (Lines{"1|Old|2.5|0|", "||||"}));
        EXPECT_EQ(basic::ToText(ui().dtpDate->Value()), "11/04/2001");
        TypeCell(1, 5, "late");
        ExpectBox("Cannot save Issue Details");
        ExpectLogged("frmIssues");
        Save();
        EXPECT_EQ(Shown(), (Lines{"1|Old|2.5|0|late", "||||"}));
    });
    EXPECT_EQ(Rows("Select ItemLedNote From tblItemLed2001"), Lines{"Null"});
    EXPECT_EQ(Errors(), Lines{"frmIssues|0"});
}

// A double quote ends the text in the statement: that row is undone, the one before stays.
TEST_F(IssuesTest, AFailureUndoesItsRowOnly) {
    Open(0, [&] {
        Pick({"Coal", "Sand"});
        TypeCell(1, 4, "1");
        TypeCell(2, 4, "2");
        TypeCell(2, 5, "12\" pipe");
        ExpectBox("Cannot save Issue Details");
        ExpectLogged("frmIssues", "Syntax error: a text does not end", "ado.Statement");
        Save();
        EXPECT_EQ(Grid().Rows(), 4) << "the screen stays as it is";
        EXPECT_EQ(qm::Conn().TransDepth(), 0);
    });
    EXPECT_EQ(Movements(), Lines{"1|37024|1|Coal|1|"});
    EXPECT_EQ(Issued(), (Lines{"3", "Null", "0"}));
}

}  // namespace
