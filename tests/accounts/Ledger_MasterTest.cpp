#include <QGroupBox>

#include "accounts/Ledger_Master.h"
#include "shell/frmSearchAndLookUp.h"
#include "shell/modSearch.h"
#include "tests/screens/ScreenFixture.h"
#include "tests/support/BoxScript.h"

using namespace testing;

namespace {

enum PanelButton { Add, Update, Delete, Find, Close, Previous, Next };

class LedgerMasterTest : public test::ScreenTest {
  protected:
    ~LedgerMasterTest() override {
        forms::Default<qm::frmSearchAndLookUp>().Unload();
        qm::SearchResultKey.clear();
    }

    auto& ui() { return form.ui(); }
    void Open(const char* group, const char* ledger, const std::function<void()>& work) {
        ExpectForm("Ledger_Master", work);
        form.Load(group, ledger);
        EXPECT_FALSE(form.Loaded());
    }
    void Press(PanelButton button) { Click(&ui().ucAddPanel1->cmdUC(button)); }
    void Enter(forms::Control& box, const char* text) {
        box.SetFocus();
        Retype(form, text);
    }
    void Enter(int box, const std::string& text) { Enter(Box(box), text.c_str()); }
    forms::TextBox& Box(int index) {
        return dynamic_cast<forms::TextBox&>(
            *form.Window()->findChild<QWidget*>("Text1_" + QString::number(index)));
    }
    void Choose(const std::string& group) {
        ui().Combo1->SetFocus();
        Key(form, Qt::Key_Home);
        while (ui().Combo1->Text() != group && ui().Combo1->ListIndex() < 15) Key(form, Qt::Key_Down);
        EXPECT_EQ(ui().Combo1->Text(), group);
    }
    void EnterLedger(const char* name, const char* group, const char* opening = "0") {
        Enter(*ui().txtLedName, name);
        Choose(group);
        Enter(*ui().Text2, opening);
        ui().Option2->SetFocus();
        Key(form, Qt::Key_Space);
    }
    void PickInLookUp(const char* typed, const Lines& offered) {
        script.Modal("frmSearchAndLookUp", [=](forms::Form& shown) {
            auto& lookUp = dynamic_cast<qm::frmSearchAndLookUp&>(shown);
            EXPECT_EQ(lookUp.ui().mylbl->Caption(), " Enter Ledger Name   ");
            lookUp.ui().txtsearch->SetText("");
            lookUp.ui().txtsearch->SetFocus();
            Type(shown, typed);
            EXPECT_EQ(RowTexts(*lookUp.ui().grd, 2, 2), offered);
            Click(lookUp.ui().cmdget);
        });
    }

    // The box of an error that nobody trapped.
    void ExpectError(const char* number, const char* text) {
        script.Box("Run-time error '" + std::string(number) + "':\n\n" + text);
    }
    void ExpectNoNumber() {
        ExpectError("-2147217900", "Syntax error: a value is expected where the end stands");
    }

    // What the screen shows of a ledger: number, name, group, opening balance, side.
    std::string Seen() {
        return ui().txtLedgerId->Text() + '|' + ui().txtLedName->Text() + '|' + ui().Combo1->Text() + '|' +
               ui().Text2->Text() + '|' + (ui().Option1->Value() ? "C" : "") +
               (ui().Option2->Value() ? "D" : "");
    }
    static std::string GroupId(const std::string& name) {
        return test::FreshBooks::One("Select Group_Id From Group_Head_Master Where Group_Head_Name = '" +
                                     name + "'");
    }
    static Lines Details() {
        return Rows(
            "Select Ledger_ID, Fnncl_Yr, Opening_Bal, Bal_Type, Closing_Bal, LedDetDRTxnTot, LedDetCRTxnTot "
            "From Ledger_Details");
    }
    static Lines Masters() {
        return Rows("Select Ledger_ID, Name, Group_Id, PrimaryGrp, Deleted From Ledger_Master");
    }
    static Lines Leaves() {
        return Rows("Select Group_Id, Group_Head_Name, Parent_Id From Group_Head_Master Where Parent_Id > 0");
    }
    static Lines PartyFields(const std::string& name) {
        return Rows(
            "Select Company_name, contact_person, Designation, Address1, Address2, City, Tel1, Tel2, "
            "Pincode, Pager, Mobile, Email, Notes From Ledger_Master Where Name = '" +
            name + "'");
    }
    static void PostTo(int ledger, const std::string& table) {
        Run("Insert Into " + table + " (LedgerTrnNo, LedgerCode, LedgerDrAmt, LedgerCrAmt) Values (1, " +
            std::to_string(ledger) + ", 5, 0)");
    }

    qm::Ledger_Master form;
};

TEST_F(LedgerMasterTest, ANewLedgerIsOneLeafOneMasterAndOneRowOfTheYear) {
    Open("", "", [&] {
        Press(Add);
        EXPECT_EQ(Seen(), "|||0|");
        EnterLedger("Cash Box", "Cash In Hand", "12.5abc");
        ExpectBox("Ledger Created");
        Press(Update);
        EXPECT_EQ(Seen(), "|Cash Box|Cash In Hand|12.5|D") << "the number is not filled in";
        // The screen takes it for a ledger that stands, but has no number for the statement.
        ExpectNoNumber();
        Press(Update);
        Press(Close);
    });
    const std::string id = GroupId("Cash Box"), parent = GroupId("Cash In Hand");
    EXPECT_THAT(Leaves(), ElementsAre(id + "|Cash Box|" + parent));
    EXPECT_THAT(Masters(), ElementsAre(id + "|Cash Box|" + parent + "|Cash In Hand|False"));
    EXPECT_THAT(Details(), ElementsAre(id + "|2001|12.5|D|12.5|Null|Null"));
    EXPECT_THAT(PartyFields("Cash Box"), ElementsAre(" | | | | | | | | | | | | ")) << "a blank each";
}

TEST_F(LedgerMasterTest, PartyBoxesFieldsAndDisplayStayOutOfStep) {
    Open("", "", [&] {
        Press(Add);
        EnterLedger("Anand", "Suppliers");
        for (int i = 1; i <= 13; ++i) Enter(i, "b" + std::to_string(i));
        ExpectBox("Ledger Created");
        Press(Update);
    });
    EXPECT_THAT(PartyFields("Anand"), ElementsAre(" b1| b2| b3| b4| b5| b6| b7| b8| b9| b10| b11| b12| b13"));
    const auto boxes = [&] {
        std::string text;
        for (int i = 1; i <= 13; ++i) text += Box(i).Text() + "|";
        return text;
    };
    Open("Suppliers", "", [&] {
        EXPECT_EQ(boxes(), "|||||||||||||") << "the details come with paging";
        ExpectBox("End of File Reached");
        Press(Next);
        EXPECT_EQ(boxes(), " b2| b3| b4| b5|| b6| b9| b7| b8| b10| b11| b12| b13|");
        for (int i = 1; i <= 13; ++i) Enter(i, "u" + std::to_string(i));
        ExpectBox("Ledger Updated");
        Press(Update);
    });
    EXPECT_THAT(PartyFields("Anand"), ElementsAre(" b1|u1|u2|u3|u4|u6|u7|u8|u9|u10|u11|u12|u13"));
}

TEST_F(LedgerMasterTest, TheTestsComeInTheirOrderAndEndTheNewLedger) {
    Open("", "", [&] {
        const struct {
            const char* missing;
            const char* focus;
            std::function<void()> cure;
        } steps[] = {
            {"Please Enter Ledger Name", "txtLedName", [&] { Type(form, "Cash Box"); }},
            {"Please select a value for Group name", "Combo1", [&] { Choose("Bank"); }},
            {"Please Select a Balance Type", "cmdUC_1", [&] { ui().Option1->SetValue(1); }},
        };
        Press(Add);
        for (const auto& step : steps) {
            ExpectBox(step.missing);
            Press(Update);
            EXPECT_EQ(Active(form), step.focus);
            step.cure();
        }
        ui().Text2->SetText("");
        ExpectBox("Please Enter Opening Balance");
        Press(Update);
        EXPECT_EQ(Active(form), "Text2");
        Key(form, Qt::Key_Tab);
        EXPECT_EQ(ui().Text2->Text(), "0");
        EXPECT_THAT(Leaves(), IsEmpty());
        ExpectNoNumber();
        Press(Update);  // as an update of no ledger
        EXPECT_THAT(Leaves(), IsEmpty());
    });
}

TEST_F(LedgerMasterTest, NamesAreRefused) {
    books.AddLedger("Retired", "Debtors");
    Run("Update Ledger_Master Set Deleted = True Where Name = 'Retired'");
    Open("", "", [&] {
        for (const char* name : {"Sales", "Retired", "sALES"}) {
            Press(Add);
            EXPECT_THAT(Seen(), AnyOf("|||0|", "||Bank|0|")) << "of the last entry the group stays";
            EnterLedger(name, "Bank");
            ExpectBox("A ledger with the specified name already exists\r\n\r\nPlease choose another name");
            Press(Update);
        }
        Press(Add);
        Enter(*ui().txtLedName, "Bank");
        Choose("Bank");
        ExpectBox("Ledger Name And Group Name Cannot be Same");
        Key(form, Qt::Key_Tab);
        EXPECT_EQ(ui().txtLedName->Text(), "");
        EXPECT_EQ(Active(form), "txtLedName");
        Type(form, "bank");  // to the letter
        ui().Text2->SetFocus();
        EXPECT_EQ(Active(form), "Text2");
    });
    EXPECT_THAT(Masters(), SizeIs(1));
}

TEST_F(LedgerMasterTest, TheOpeningBalanceIsReadByItsLeadingDigits) {
    const struct {
        const char* typed;
        const char* reads;
    } cases[] = {{"12abc", "12"}, {"abc", "0"},      {"", "0"},
                 {"1,500", "1"},  {"-2.50", "-2.5"}, {"1e3", "1000"}};
    Open("", "", [&] {
        for (const auto& [typed, reads] : cases) {
            Enter(*ui().Text2, typed);
            Key(form, Qt::Key_Tab);
            EXPECT_EQ(ui().Text2->Text(), reads) << typed;
        }
    });
}

TEST_F(LedgerMasterTest, AFailedAddShowsTheErrorRollsBackAndLogs) {
    qm::Conn().BeginTrans();  // the failure ends only the screen's own transaction
    Open("", "", [&] {
        Press(Add);
        EnterLedger("Cash Box", "Cash In Hand");
        Box(13).SetText("the owner's");  // the leaf is in by then
        std::string shown;
        const auto before =
            qm::SetMsgBoxPort([&](const std::string& text, int flags, const std::string& title) {
                shown += title + ' ' + std::to_string(flags) + ' ' + text.substr(text.size() - 9) + ' ' +
                         std::to_string(Leaves().size()) + ' ' + std::to_string(qm::Conn().TransDepth()) +
                         '\n';
                return qm::vbOK;
            });
        Press(Update);
        qm::SetMsgBoxPort(before);
        EXPECT_THAT(shown, MatchesRegex("Tovik Softwares 64 CREATED   1 2\n 0 .* 0 1\n"));
    });
    EXPECT_EQ(qm::Conn().TransDepth(), 1);
    qm::Conn().CommitTrans();
    EXPECT_THAT(Leaves(), IsEmpty());
    EXPECT_THAT(Details(), IsEmpty());
    EXPECT_THAT(Rows("Select frmName From tblError"), ElementsAre("Ledger_Master"));
}

// A leaf beyond 16 bits is taken back; a double quote fails before the transaction.
TEST_F(LedgerMasterTest, OtherAddsThatFailLeaveNothing) {
    Run("Insert Into Group_Head_Master (Group_Id, Group_Head_Name, Parent_Id) Values (32767, 'Last', 1)");
    for (const auto& [name, error] :
         {std::pair{"Cash Box", "Overflow"}, std::pair{"Cash \"Box", "Syntax error: a text does not end"}})
        Open("", "", [&, name = name, error = std::string(error)] {
            Press(Add);
            EnterLedger(name, "Cash In Hand");
            test::BoxScript boxes;
            boxes.Expect(error + "\r   LEDGER NOT CREATED  ");
            boxes.ExpectLog("Ledger_Master", error);
            Press(Update);
        });
    EXPECT_EQ(qm::Conn().TransDepth(), 0);
    EXPECT_THAT(Leaves(), ElementsAre("32767|Last|1"));
    EXPECT_THAT(Masters(), IsEmpty());
}

TEST_F(LedgerMasterTest, AnUpdateStampsTheRowsOfEveryYear) {
    const std::string id = std::to_string(books.AddLedger("Till", "Cash In Hand", 100)),
                      other = [&] { return std::to_string(books.AddLedger("Vault", "Bank", 7)); }();
    Run("Insert Into Ledger_Details (Ledger_ID, Fnncl_Yr, Opening_Bal, Bal_Type, Closing_Bal, "
        "LedDetDRTxnTot) Values (" +
        id + ", 2000, 1, 'C', 2, 3)");
    Open("Cash In Hand", "Till", [&] {
        EXPECT_EQ(Seen(), id + "|Till|Cash In Hand|100|D");
        EnterLedger("Strong Box", "Bank", "250");
        ExpectBox("Ledger Updated");
        Press(Update);
    });
    EXPECT_THAT(Details(), ElementsAre(id + "|2001|250|D|250|Null|Null", other + "|2001|7|D|0|Null|Null",
                                       id + "|2001|250|D|250|3|Null"));
    const std::string bank = GroupId("Bank");
    EXPECT_THAT(Masters(), ElementsAre(id + "|Strong Box|" + bank + "|Bank|False",
                                       other + "|Vault|" + bank + "|Bank|False"));
    EXPECT_THAT(Leaves(), ElementsAre(id + "|Strong Box|" + bank, other + "|Vault|" + bank));
    EXPECT_THAT(PartyFields("Strong Box"), ElementsAre("Null||||||||||||"));
}

TEST_F(LedgerMasterTest, AnUpdateThatFailsLeavesWhatWasDone) {
    const std::string id = std::to_string(books.AddLedger("Till", "Cash In Hand", 100));
    Open("Cash In Hand", "Till", [&] {
        Enter(*ui().txtLedName, "Strong Box");
        Box(13).SetText("the owner's");
        ExpectError("-2147217900", "Syntax error: a text does not end");
        Press(Update);
        EXPECT_TRUE(form.Visible());
    });
    EXPECT_THAT(Leaves(), ElementsAre(id + "|Strong Box|" + GroupId("Cash In Hand")));
    EXPECT_THAT(Masters(), ElementsAre(id + "|Till|" + GroupId("Cash In Hand") + "|Cash In Hand|False"));
    EXPECT_THAT(Rows("Select frmName From tblError"), IsEmpty());
}

TEST_F(LedgerMasterTest, LoadShowsTheLedgerTheFirstOfTheGroupOrANewOne) {
    const std::string till = std::to_string(books.AddLedger("Till", "Cash In Hand", 5, "C"));
    const std::string vault = std::to_string(books.AddLedger("Vault", "Cash In Hand", 7));
    books.AddLedger("Retired", "Bank");
    Run("Update Ledger_Master Set Deleted = True Where Name = 'Retired'");
    Run("Update Ledger_Details Set Opening_Bal = Null Where Ledger_ID = " + vault);
    const struct {
        const char* group;
        const char* ledger;
        std::string seen;
        bool isNew;
    } cases[] = {
        {"Cash In Hand", "", till + "|Till|Cash In Hand|5|C", false},
        {"Cash In Hand", "Vault", vault + "|Vault|Cash In Hand||D", false},
        {"Bank", "Retired", "|Retired|Bank||", true},
        {"Bank", " ", "||Bank||", true},
        {" ", "Vault", "||||", true},
        {"Bank", "Till", till + "|Till|Bank|5|C", false},
    };
    for (const auto& test : cases)
        Open(test.group, test.ledger, [&] {
            EXPECT_EQ(Seen(), test.seen) << test.group << ' ' << test.ledger;
            EXPECT_EQ(ui().Combo1->ListCount(), 16);
            if (!test.isNew || *test.group == ' ') return;
            // What it takes itself for shows in what the next test asks: a new ledger's name is looked up.
            EnterLedger("Till", test.group);
            ExpectBox("A ledger with the specified name already exists\r\n\r\nPlease choose another name");
            Press(Update);
        });
}

TEST_F(LedgerMasterTest, PagingStaysInsideAndLeavesOutDeletedLedgers) {
    for (const char* name : {"Till", "Retired", "Vault"}) books.AddLedger(name, "Bank", 1);
    Run("Update Ledger_Master Set Deleted = True Where Name = 'Retired'");
    Open("", "", [&] {
        Press(Next);
        EXPECT_EQ(ui().txtLedName->Text(), "Vault") << "it stood on the first";
        ExpectBox("End of File Reached");
        Press(Next);
        EXPECT_EQ(ui().txtLedName->Text(), "Vault");
        Press(Previous);
        EXPECT_EQ(ui().txtLedName->Text(), "Till");
        ExpectBox("Begining of File Reached");
        Press(Previous);
        EXPECT_EQ(ui().txtLedName->Text(), "Till");
        ExpectBox("Ledger Updated");  // it is no new one now
        Press(Update);
    });
}

TEST_F(LedgerMasterTest, PagingFollowsWhatIsWrittenAndBeginsAtTheFirstAgain) {
    for (const char* name : {"Till", "Vault"}) books.AddLedger(name, "Bank", 1);
    const auto expectNext = [&](const char* name) {
        Press(Next);
        EXPECT_EQ(ui().txtLedName->Text(), name);
    };
    Open("", "", [&] {
        Press(Add);
        EnterLedger("Safe", "Bank");
        ExpectBox("Ledger Created");
        Press(Update);
        expectNext("Vault");
        expectNext("Safe");
        Enter(*ui().txtLedName, "Strong Box");
        ExpectBox("Ledger Updated");
        Press(Update);
        expectNext("Vault");
        expectNext("Strong Box");
        ExpectBox("Record deleted");
        Press(Delete);
        expectNext("Vault");
        Press(Add);
        EnterLedger("Purse", "Bank");
        Box(13).SetText("the owner's");
        {
            test::BoxScript boxes;
            boxes.Expect("Syntax error: a text does not end\r   LEDGER NOT CREATED  ");
            boxes.ExpectLog("Ledger_Master", "");
            Press(Update);
        }
        expectNext("Vault");
        ExpectBox("End of File Reached");
        expectNext("Vault");
    });
}

TEST_F(LedgerMasterTest, PagingOverNoLedgersDoesNothing) {
    Open("", "", [&] {
        Press(Next);
        Press(Previous);
        EXPECT_EQ(Seen(), "||||");
    });
}

TEST_F(LedgerMasterTest, FindShowsDeletedLedgersAndKeepsTheLastAnswer) {
    const std::string id = std::to_string(books.AddLedger("Retired", "Debtors", 9, "C"));
    const std::string lost = std::to_string(books.AddLedger("Lost", "Bank"));
    Run("Update Ledger_Master Set Deleted = True, City = 'Pune' Where Name = 'Retired'");
    Run("Delete From Ledger_Details Where Ledger_ID = " + lost);
    Open("", "", [&] {
        script.Modal("frmSearchAndLookUp", [](forms::Form& shown) { shown.Hide(); });
        Press(Find);
        EXPECT_EQ(Seen(), "||||");
        PickInLookUp("Ret", {"Retired"});
        Press(Find);
        EXPECT_EQ(Seen(), id + "|Retired|Debtors|9|C");
        EXPECT_EQ(Box(6).Text(), "Pune");
        // Found, it still counts as the new one that the screen was opened for.
        ExpectBox("A ledger with the specified name already exists\r\n\r\nPlease choose another name");
        Press(Update);
        ui().txtLedgerId->SetText("");
        script.Modal("frmSearchAndLookUp", [](forms::Form& shown) { shown.Hide(); });
        Press(Find);
        EXPECT_EQ(Seen(), id + "|Retired|Debtors|9|C");
        PickInLookUp("L", {"Lost"});
        ExpectError("3021",
                    "Either BOF or EOF is True, or the current record has been deleted. The operation needs "
                    "a current record.");
        Press(Find);
        EXPECT_EQ(Seen(), lost + "|Retired|Debtors|9|C") << "a ledger without a row in this year";
    });
}

TEST_F(LedgerMasterTest, ADeleteTakesTheLedgerAndThisYearsRowAndLocksTheScreen) {
    const int till = books.AddLedger("Till", "Cash In Hand", 1);
    const std::string id = std::to_string(till);
    Run("Insert Into Ledger_Details (Ledger_ID, Fnncl_Yr, Opening_Bal) Values (" + id + ", 2000, 1)");
    Run("Select * Into tb_Ledger2000 From tblsysLedgerstr");
    PostTo(till, "tb_Ledger2000");
    PostTo(till, "tb_Ledger2001");
    const auto locked = [&] {
        return std::to_string(ui().txtLedName->Locked()) + std::to_string(ui().Combo1->Locked());
    };
    Open("", "", [&] {
        ExpectBox(" Please Select record First ");
        Press(Delete);
    });
    Open("Cash In Hand", "Till", [&] {
        ExpectBox("One or more transactions already exist for the selected ledger\r\n\r\nCannot delete !!!");
        Press(Delete);
        EXPECT_EQ(Seen(), id + "|Till|Cash In Hand|1|D");
        Run("Delete From tb_Ledger2001");
        ExpectBox("Record deleted");
        Press(Delete);
        EXPECT_EQ(Seen(), "||||D");
        EXPECT_EQ(locked(), "11");
        ui().txtLedName->SetFocus();
        Type(form, "x");
        EXPECT_EQ(ui().txtLedName->Text(), "");
        Press(Add);
        EXPECT_EQ(locked(), "00");
        EXPECT_TRUE(ui().txtLedgerId->Locked());
    });
    EXPECT_THAT(Masters(), IsEmpty());
    EXPECT_THAT(Leaves(), IsEmpty());
    EXPECT_THAT(Details(), ElementsAre(id + "|2000|1|Null|Null|Null|Null"));
}

TEST_F(LedgerMasterTest, ALeafOfAnotherNameStaysWhenItsLedgerGoes) {
    const std::string id = std::to_string(books.AddLedger("Till", "Cash In Hand"));
    Run("Update Group_Head_Master Set Group_Head_Name = 'Box' Where Group_Id = " + id);
    Open("Cash In Hand", "Till", [&] {
        ExpectBox("Record deleted");
        Press(Delete);
        EXPECT_TRUE(ui().txtLedName->Locked());
        ExpectBox("Please Enter Ledger Name");
        Press(Update);
        EXPECT_FALSE(ui().txtLedName->Locked()) << "Update unlocks as Add does";
    });
    EXPECT_THAT(Masters(), IsEmpty());
    EXPECT_THAT(Leaves(), ElementsAre(id + "|Box|" + GroupId("Cash In Hand")));
}

TEST_F(LedgerMasterTest, APartyIsNotRemovedHere) {
    const std::pair<const char*, const char*> cases[] = {
        {"Debtors", "A debtor cannot be retired: the Group Master would remove it for good."},
        {"Suppliers", "To retire a supplier, delete it in the Group Master."}};
    for (const auto& [group, advice] : cases) {
        const std::string id = std::to_string(books.AddLedger(group + std::string(" One"), group));
        const Lines before = Masters();
        Open(group, "", [&] {
            ExpectBox(
                std::string("No table of the statement has a field 'Fnncl_Yr'\r\n\r\nNothing was changed. ") +
                advice);
            Press(Delete);
            EXPECT_EQ(ui().txtLedgerId->Text(), id);
            EXPECT_FALSE(ui().txtLedName->Locked());
        });
        EXPECT_EQ(Masters(), before);
    }
}

TEST_F(LedgerMasterTest, ThePartyFrameFollowsTheGroup) {
    Open("", "", [&] {
        const int small = form.Height();
        EXPECT_NEAR(small, ui().ucAddPanel1->Height() + 2600, 15);
        const struct {
            const char* group;
            bool party;
        } cases[] = {{"Debtors", true}, {"Bank", false}, {"Suppliers", true}, {"Sales", false}};
        for (const auto& [group, party] : cases) {
            Choose(group);
            EXPECT_EQ(ui().frSupplier->Visible(), party) << group;
            EXPECT_EQ(form.Height(), party ? 6975 : small) << group;
            QCoreApplication::sendPostedEvents();
            const forms::Frame& above = party ? *ui().frSupplier : *ui().Frame3;
            EXPECT_NEAR(ui().ucAddPanel1->Top() - above.Top() - above.Height(), 100, 10) << group;
        }
        form.SetTop(3000);
        Choose("Debtors");
        EXPECT_EQ(form.Top(), 1395);
    });
}

TEST_F(LedgerMasterTest, TheStockBalanceIsForLedgersThatStand) {
    const int stock = books.AddLedger("Stock", "Stock in Hand", 10);
    Open("Stock in Hand", "Stock", [&] {
        EXPECT_TRUE(ui().cmdStkClBal->Visible());
        script.Modal("frmClosingBal", [](forms::Form& shown) {
            shown.Window()->findChild<QWidget*>("txtClosingBal")->setFocus();
            Type(shown, "77");
            Key(shown, Qt::Key_S, Qt::ControlModifier);
        });
        Key(form, Qt::Key_S, Qt::AltModifier);
        Choose("Sales");
        EXPECT_FALSE(ui().cmdStkClBal->Visible());
        Press(Add);
        Choose("Stock in Hand");
        EXPECT_FALSE(ui().cmdStkClBal->Visible());
        ExpectBox("Please Enter Ledger Name");
        Press(Update);
        Choose("Sales");
        Choose("Stock in Hand");
        EXPECT_FALSE(ui().cmdStkClBal->Visible()) << "a refused Add makes no ledger";
    });
    const std::function<void()> ways[] = {[&] {
                                              ExpectBox("End of File Reached");
                                              Press(Next);
                                          },
                                          [&] {
                                              PickInLookUp("St", {"Stock"});
                                              Press(Find);
                                          }};
    for (const auto& reach : ways)
        Open("", "", [&] {
            EXPECT_FALSE(ui().cmdStkClBal->Visible());
            reach();
            EXPECT_TRUE(ui().cmdStkClBal->Visible());
            Press(Add);
            EXPECT_FALSE(ui().cmdStkClBal->Visible());
        });
    EXPECT_THAT(Details(), ElementsAre(std::to_string(stock) + "|2001|10|D|77|Null|Null"));
}

}  // namespace
