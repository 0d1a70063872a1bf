#include "tests/support/BoxScript.h"
#include "tests/years/YearScreens.h"
#include "years/frmClosingBal.h"

namespace {

class ClosingBalTest : public YearScreensTest {
  protected:
    void SetUp() override {
        stock = books.AddLedger("Stock", "Stock in Hand", 100);
        other = books.AddLedger("Cash", "Cash In Hand", 5);
    }
    auto& ui() { return form.ui(); }
    // Opens the screen for a ledger, as its caller does, and works with it.
    void Open(int ledger, const std::function<void()>& work) {
        ExpectForm("frmClosingBal", work);
        form.Load(ledger);
        EXPECT_FALSE(form.Loaded());
    }
    static Lines Balances() { return Rows("Select Ledger_ID, Fnncl_Yr, Closing_Bal From Ledger_Details"); }
    std::string Row(int ledger, const char* rest) { return std::to_string(ledger) + "|" + rest; }

    static void ClickOption(QWidget* option) {  // the circle, not the empty room behind the caption
        QTest::mouseClick(option, Qt::LeftButton, {}, {8, option->height() / 2});
    }

    int stock = 0, other = 0;
    qm::frmClosingBal form;
};

TEST_F(ClosingBalTest, ManualSaveWritesTheFigureOfThisLedgerAndYearAndShowsNothing) {
    Run("Insert Into Ledger_Details (Ledger_ID, Fnncl_Yr, Closing_Bal) Values (" + std::to_string(stock) +
        ", 2000, 1)");
    Open(stock, [&] {
        ui().txtClosingBal->SetFocus();
        Type(form, "-12.5");
        Key(form, Qt::Key_S, Qt::ControlModifier);
        EXPECT_EQ(Balances(), (Lines{Row(stock, "2001|-12.5"), Row(other, "2001|0"), Row(stock, "2000|1")}));
        EXPECT_TRUE(form.Visible());
        Retype(form, "300");
        Key(form, Qt::Key_Return);
        Key(form, Qt::Key_X, Qt::ControlModifier);
        EXPECT_FALSE(form.Visible());
    });
    EXPECT_EQ(Balances()[0], Row(stock, "2001|300"));
    Open(other, [&] { EXPECT_EQ(ui().txtClosingBal->Text(), ""); });
}

TEST_F(ClosingBalTest, OnlyTheKeysOfANumberAreTaken) {
    Open(stock, [&] {
        EXPECT_EQ(Active(form), "optManually") << "the choice that stands";
        ui().txtClosingBal->SetFocus();
        Type(form, "a1,2 .e5-x+");
        EXPECT_EQ(ui().txtClosingBal->Text(), "12.5-");
        ExpectBox("Please enter a valid numeric quantity");
        Click(ui().cmdExit);
        EXPECT_EQ(Active(form), "txtClosingBal");
        Key(form, Qt::Key_S, Qt::ControlModifier);  // asks nobody
        EXPECT_EQ(Balances()[0], Row(stock, "2001|12.5"));
        Key(form, Qt::Key_Backspace);
        Key(form, Qt::Key_Tab);
        EXPECT_EQ(Active(form), "cmdSave");
    });
}

TEST_F(ClosingBalTest, AnEmptyFigureIsRefused) {
    Open(stock, [&] {
        ExpectBox("Please specify the Stock Closing Balance");
        Click(ui().cmdSave);
        EXPECT_EQ(Active(form), "txtClosingBal");
        Key(form, Qt::Key_E, Qt::AltModifier);
        EXPECT_FALSE(form.Visible());
    });
    EXPECT_EQ(Balances()[0], Row(stock, "2001|0"));
}

TEST_F(ClosingBalTest, TheOptionsSwitchTheFields) {
    const auto states = [&] {
        std::string text;
        for (const forms::Control* control :
             {static_cast<forms::Control*>(ui().fmeAutomatically), static_cast<forms::Control*>(ui().txtAuto),
              static_cast<forms::Control*>(ui().cmdGetBal), static_cast<forms::Control*>(ui().fmeManually),
              static_cast<forms::Control*>(ui().txtClosingBal)})
            text += control->Enabled() ? '1' : '0';
        return text;
    };
    Open(stock, [&] {
        EXPECT_EQ(states(), "00011");
        EXPECT_EQ(ui().txtClosingBal->BackColor(), forms::vbWhite);
        ClickOption(ui().optAutomatically);
        EXPECT_EQ(states(), "01100") << "the frame around stays off";
        EXPECT_EQ(ui().txtClosingBal->BackColor(), ui().txtAuto->BackColor());
        EXPECT_NE(ui().txtClosingBal->BackColor(), forms::vbWhite);
        Key(form, Qt::Key_M, Qt::AltModifier);
        EXPECT_EQ(states(), "01011");
        EXPECT_EQ(ui().txtClosingBal->BackColor(), forms::vbWhite);
    });
}

TEST_F(ClosingBalTest, TheAutomaticSaveIsAlwaysRefused) {
    const char* const refusal = "Cannot bring stock balances from inventory\r\n\r\nPlease specify manually";
    Open(stock, [&] {
        Key(form, Qt::Key_A, Qt::AltModifier);
        ExpectBox(refusal);
        Click(ui().cmdSave);
        Key(form, Qt::Key_G, Qt::ControlModifier);
        EXPECT_EQ(ui().txtAuto->Text(), "");
        ExpectBox(refusal);
        Key(form, Qt::Key_S, Qt::ControlModifier);
        EXPECT_EQ(Active(form), "cmdSave");
    });
    EXPECT_EQ(Balances()[0], Row(stock, "2001|0"));
}

TEST_F(ClosingBalTest, ALedgerWithoutARowIsRolledBackAndLogged) {
    qm::Conn().BeginTrans();  // only the screen's own transaction is undone
    Run("Update Ledger_Details Set Closing_Bal = 8 Where Ledger_ID = " + std::to_string(other));
    Open(9999, [&] {
        ui().txtClosingBal->SetFocus();
        Type(form, "7");
        ExpectLogged("frmClosingBal");
        Click(ui().cmdSave);
        EXPECT_TRUE(form.Visible());
    });
    EXPECT_EQ(qm::Conn().TransDepth(), 1);
    qm::Conn().CommitTrans();
    EXPECT_EQ(Balances(), (Lines{Row(stock, "2001|0"), Row(other, "2001|8")}));
    EXPECT_EQ(Rows("Select frmName, ErrNumber, ErrDesc From tblError"), Lines{"frmClosingBal|0|"});
}

TEST_F(ClosingBalTest, AFailingStatementIsRolledBackAndLogged) {
    qm::shared().FinYear = "20 01";
    Open(stock, [&] {
        ui().txtClosingBal->SetFocus();
        Type(form, "7");
        test::BoxScript boxes;
        boxes.ExpectLog("frmClosingBal", "");
        Click(ui().cmdSave);
    });
    EXPECT_EQ(qm::Conn().TransDepth(), 0);
    EXPECT_EQ(Rows("Select frmName From tblError"), Lines{"frmClosingBal"});
}

}  // namespace
