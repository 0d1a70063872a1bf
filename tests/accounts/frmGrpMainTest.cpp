#include "accounts/Ledger_Master.h"
#include "accounts/frmGrpMain.h"
#include "tests/screens/ScreenFixture.h"
#include "vouchers/frmVoucher.h"

using namespace testing;

namespace {

class GroupMasterTest : public test::ScreenTest {
  protected:
    ~GroupMasterTest() override { form.Unload(); }

    auto& ui() { return form.ui(); }
    forms::TreeView& Tree() { return *ui().tvTreeView; }
    forms::ListView& List() { return *ui().lvListView; }
    void Open() {
        Show(form);
        Tree().expandAll();
    }
    static std::string GroupKey(const std::string& name) {
        return "R" + test::FreshBooks::One(
                         "Select Group_Id From Group_Head_Master Where Group_Head_Name = '" + name + "'");
    }
    static std::string LedgerKey(int ledger) { return "C" + std::to_string(ledger); }
    void ClickNode(const std::string& key) {
        QTest::mouseClick(Tree().viewport(), Qt::LeftButton, {},
                          Tree().visualItemRect(&Tree().Item(key)).center());
    }
    void ClickLine(int line) {
        QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, List().CellRect(line, 0).center());
    }
    void EditLabel(const std::string& key) {
        ClickNode(key);
        Key(form, Qt::Key_F2);
    }
    void EndEdit() {
        Key(form, Qt::Key_Return);
        QCoreApplication::processEvents();
        Tree().expandAll();
    }
    void Rename(const std::string& key, const char* text) {
        EditLabel(key);
        Retype(form, text);
        EndEdit();
    }
    // The nodes of the second level, as "group/ledger".
    Lines Ledgers() {
        Lines ledgers;
        for (QTreeWidgetItemIterator it(&Tree()); *it; ++it)
            if ((*it)->parent())
                ledgers.push_back((*it)->parent()->text(0).toStdString() + "/" +
                                  (*it)->text(0).toStdString());
        return ledgers;
    }
    Lines Listed() {
        Lines lines;
        for (int i = 1; i <= List().Count(); ++i) {
            const forms::ListLine line = List().Item(i);
            std::string text = line.Key + "|" + line.Text;
            for (const std::string& item : line.SubItems) text += "|" + item;
            lines.push_back(text);
        }
        return lines;
    }
    std::string Heads() {
        std::string heads;
        for (int column = 1; column <= List().ColumnCount(); ++column)
            heads += List().ColumnText(column) + "|";
        return heads;
    }
    static void Post(int voucher, int ledger, const std::string& amounts, const std::string& balance,
                     const std::string& table = "tb_Ledger2001") {
        Run("Insert Into " + table +
            " (LedgerTrnNo, LedgerCode, LedgerTxnDate, LedgerNarration, LedgerDrAmt, LedgerCrAmt, "
            "LedgerLedBal) Values (" +
            std::to_string(voucher) + ", " + std::to_string(ledger) + ", 36980, 'Goods', " + amounts + ", '" +
            balance + "')");
    }
    static Lines Totals(int ledger) {
        return Rows(
            "Select LedDetDRTxnTot, LedDetCRTxnTot, Closing_Bal From Ledger_Details Where Ledger_ID = " +
            std::to_string(ledger));
    }
    // How many rows the ledger has as a leaf, as a ledger, in the years' figures; then its marks.
    static std::string Left(int ledger) {
        const std::string id = std::to_string(ledger);
        return std::to_string(Rows("Select * From Group_Head_Master Where Group_Id = " + id).size()) +
               std::to_string(Rows("Select * From Ledger_Master Where Ledger_ID = " + id).size()) +
               std::to_string(Rows("Select * From Ledger_Details Where Ledger_ID = " + id).size()) +
               (Rows("Select * From Ledger_Master Where Deleted = True And Ledger_ID = " + id).empty()
                    ? ""
                    : " deleted");
    }

    qm::frmGrpMain form;
};

TEST_F(GroupMasterTest, TheTreeShowsThisYearsLedgersUnderThePrimaryGroups) {
    books.AddLedger("Zenith Limited of Poona", "Suppliers");
    books.AddLedger("Twenty letters here.", "Suppliers");
    const int retired = books.AddLedger("Retired", "Suppliers");
    const int lastYears = books.AddLedger("Of last year", "Bank");
    const int doubled = books.AddLedger("Doubled", "Bank");
    const int nested = books.AddLedger("Nested", "Bank");
    Run("Update Ledger_Master Set Deleted = True Where Ledger_ID = " + std::to_string(retired));
    Run("Update Ledger_Details Set Fnncl_Yr = 2000 Where Ledger_ID = " + std::to_string(lastYears));
    Run("Insert Into Ledger_Details (Ledger_ID, Fnncl_Yr) Values (" + std::to_string(doubled) + ", 2001)");
    Run("Update Group_Head_Master Set Parent_Id = " + std::to_string(doubled) +
        " Where Group_Id = " + std::to_string(nested));
    Open();
    EXPECT_THAT(Ledgers(), ElementsAre("Bank/Doubled", "Suppliers/Twenty letters here.",
                                       "Suppliers/Zenith Limited of Po"));
    EXPECT_EQ(Tree().Count(), 16 + 3);
    EXPECT_EQ(Tree().topLevelItem(1)->text(0), "Capital");
    EXPECT_EQ(ui().lblDetails->Caption(), "Details");
    EXPECT_EQ(Tree().SelectedItem(), nullptr);
}

TEST_F(GroupMasterTest, OpeningRewritesTheTotalsOfTheWholeYear) {
    const int bank = books.AddLedger("Bank of Test", "Bank", 1000);
    const int idle = books.AddLedger("Idle", "Bank", 5, "C");
    Post(1, bank, "10, 0", "0Dr");
    Post(2, bank, "0, 2.5", "0Dr");
    Run("Update Ledger_Details Set LedDetDRTxnTot = 99, LedDetCRTxnTot = 1");
    Open();
    EXPECT_THAT(Totals(bank), ElementsAre("10|2.5|1007.5"));
    EXPECT_THAT(Totals(idle), ElementsAre("99|1|93")) << "no row: the totals it had";
}

TEST_F(GroupMasterTest, TheWayDownFromGroupToVoucher) {
    const int anand = books.AddLedger("Anand Traders and Sons", "Suppliers", 1234.5, "C");
    books.AddLedger("Bharat", "Suppliers", 0);
    books.AddLedger("Cash", "Cash In Hand");
    Post(7, anand, "0, 20", "1254.5Cr");
    Post(7, anand, "Null, 0.125", "");
    Open();
    ClickNode(GroupKey("Suppliers"));
    EXPECT_EQ(ui().lblDetails->Caption(), "Group Details : Suppliers");
    EXPECT_EQ(Heads(), "Ledger Name|Opening|Dr Total|Cr Total|Closing|");
    EXPECT_THAT(Listed(),
                ElementsAre(LedgerKey(anand) + "|Anand Traders and Sons|1,234.50|00.00|20.13|-1,254.63",
                            HasSubstr("|Bharat|00.00|||")));
    ClickLine(1);
    EXPECT_EQ(ui().lblDetails->Caption(), "Voucher Details : Anand Traders and Sons");
    EXPECT_EQ(Heads(), "Date|Narration|Dr Amount|Cr Amount|Balance|");
    EXPECT_THAT(Listed(),
                ElementsAre("V7|01-Apr-2001|Goods|00.00|20.00|1254.5Cr", "V7|01-Apr-2001|Goods||00.13|"));
    script.Modal("frmVoucher", [&](forms::Form& shown) {
        EXPECT_EQ(dynamic_cast<qm::frmVoucher&>(shown).ui().txtVoucherNo->Text(), "7");
        EXPECT_THAT(Listed(), IsEmpty());
        Post(8, anand, "5, 0", "");  // as a save of the screen would
    });
    Key(form, Qt::Key_Return);
    EXPECT_THAT(Listed(), IsEmpty());
    EXPECT_THAT(Totals(anand), ElementsAre("5|20.125|-1249.625")) << "rebuilt when the voucher closed";
    EXPECT_EQ(Tree().SelectedItem(), nullptr) << "the tree is a new one";
    Tree().expandAll();
    ClickNode(LedgerKey(anand));
    EXPECT_EQ(ui().lblDetails->Caption(), "Voucher Details : Anand Traders and So");
    EXPECT_THAT(Listed(), SizeIs(3));
}

TEST_F(GroupMasterTest, TheFirstTwoWidthsChangePlacesAtEveryShowing) {
    const int cash = books.AddLedger("Cash", "Cash In Hand");
    Post(1, cash, "1, 0", "");
    Open();
    const int name = List().ColumnWidth(1), figure = List().ColumnWidth(2);
    EXPECT_EQ(name, 3300);
    const auto widths = [&] { return std::pair(List().ColumnWidth(1), List().ColumnWidth(2)); };
    ClickNode(GroupKey("Cash In Hand"));
    EXPECT_EQ(widths(), std::pair(figure, name));
    ClickNode(GroupKey("Bank"));
    EXPECT_EQ(widths(), std::pair(name, figure)) << "from group to group too";
    Tree().SetFocus();
    Key(form, Qt::Key_Down);
    EXPECT_EQ(widths(), std::pair(figure, name)) << "the keys choose as the mouse does";
    ClickNode(LedgerKey(cash));
    EXPECT_EQ(widths(), std::pair(name, figure));
    script.Modal("frmVoucher");
    ClickLine(1);
    EXPECT_EQ(widths(), std::pair(name, figure)) << "a voucher leaves them";
}

TEST_F(GroupMasterTest, AnIdBeyond16BitsEndsTheClickQuietly) {
    const int cash = books.AddLedger("Cash", "Cash In Hand");
    Post(40000, cash, "1, 0", "");
    Open();
    ClickNode(LedgerKey(cash));
    ClickLine(1);
    EXPECT_THAT(Listed(), SizeIs(1));
}

TEST_F(GroupMasterTest, AddHandsOnWhatIsSelected) {
    const int shortName = books.AddLedger("Anand", "Suppliers");
    const int longName = books.AddLedger("Zenith Limited of Poona", "Suppliers");
    Open();
    const struct {
        std::string key;
        std::string group, ledger, id;
    } cases[] = {
        {"", "", "", ""},
        {GroupKey("Sales"), "Sales", "", ""},
        {GroupKey("Suppliers"), "Suppliers", "Anand", std::to_string(shortName)},
        {LedgerKey(shortName), "Suppliers", "Anand", std::to_string(shortName)},
        {LedgerKey(longName), "Suppliers", "Zenith Limited of Po", ""},  // of that name there is none
    };
    for (const auto& test : cases) {
        if (!test.key.empty()) ClickNode(test.key);
        script.Modal("Ledger_Master", [&](forms::Form& shown) {
            auto& ledger = dynamic_cast<qm::Ledger_Master&>(shown).ui();
            EXPECT_EQ(ledger.Combo1->Text(), test.group);
            EXPECT_EQ(ledger.txtLedName->Text(), test.ledger);
            EXPECT_EQ(ledger.txtLedgerId->Text(), test.id);
            if (test.key.empty()) books.AddLedger("New", "Bank");
        });
        Key(form, Qt::Key_A, Qt::ControlModifier);
        Tree().expandAll();
        EXPECT_THAT(Ledgers(), Contains("Bank/New"));
        EXPECT_EQ(Tree().SelectedItem(), nullptr);
    }
}

TEST_F(GroupMasterTest, Deletes) {
    const char* const inUse =
        "One or more transactions already exist for the selected ledger\r\n\r\nCannot delete !!!";
    const int supplier = books.AddLedger("Anand", "Suppliers"), debtor = books.AddLedger("Mehta", "Debtors"),
              old = books.AddLedger("Old", "Bank"), used = books.AddLedger("Used", "Bank");
    Run("Select * Into tb_Ledger2000 From tblsysLedgerstr");
    Run("Insert Into Ledger_Details (Ledger_ID, Fnncl_Yr) Values (" + std::to_string(old) + ", 2000)");
    Post(1, supplier, "1, 0", "");
    Post(1, old, "1, 0", "", "tb_Ledger2000");
    Post(2, used, "1, 0", "");
    Open();
    Key(form, Qt::Key_D, Qt::ControlModifier);  // nothing selected
    const struct {
        std::string key;
        const char* box;
        int ledger;
        const char* left;
        std::size_t shown;  // ledgers in the tree
        bool selected;      // the tree stands as it was
    } cases[] = {
        {GroupKey("Bank"), "Can Not Delete Primary Group", 0, "000", 4, false},
        {GroupKey("Sales"), "Can Not Delete Primary Group", 0, "000", 4, false},
        {LedgerKey(used), inUse, used, "111", 4, true},
        {LedgerKey(supplier), nullptr, supplier, "111 deleted", 3, false},
        {LedgerKey(debtor), "Record deleted", debtor, "000", 2, false},
        {LedgerKey(old), "Record deleted", old, "001", 1, false},
    };
    for (const auto& test : cases) {
        ClickNode(test.key);
        if (test.box) ExpectBox(test.box);
        Key(form, Qt::Key_D, Qt::ControlModifier);
        EXPECT_EQ(Tree().SelectedItem() != nullptr, test.selected) << test.key;
        Tree().expandAll();
        EXPECT_EQ(Left(test.ledger), test.left) << test.key;
        EXPECT_THAT(Ledgers(), SizeIs(test.shown)) << test.key;
    }
    EXPECT_THAT(Rows("Select * From Group_Head_Master Where Parent_Id = 0"), SizeIs(16));
}

TEST_F(GroupMasterTest, ABackslashInANameCountsAsALevel) {
    Run("Insert Into Group_Head_Master (Group_Head_Name, Parent_Id) Values ('Stock\\Spares', 0)");
    const int spares = std::stoi(GroupKey("Stock\\Spares").substr(1));
    books.AddLedger("Bolts", "Stock\\Spares");
    Open();
    ClickNode("R" + std::to_string(spares));
    ExpectBox("Can Not Delete Group Has Sub Groups");
    Click(ui().cmdDelete);
    Tree().expandAll();
    Rename("R" + std::to_string(spares), "Spares");
    EXPECT_THAT(Ledgers(), ElementsAre("Spares/Bolts"));
}

TEST_F(GroupMasterTest, ALedgerIsRenamedAsALeafOnly) {
    const int longName = books.AddLedger("Zenith Limited of Poona", "Suppliers");
    Open();
    const auto names = [&] {
        const std::string id = std::to_string(longName);
        return test::FreshBooks::One("Select Group_Head_Name From Group_Head_Master Where Group_Id = " + id) +
               "|" + test::FreshBooks::One("Select Name From Ledger_Master Where Ledger_ID = " + id);
    };
    for (const auto& [key, modifier, stored] :
         {std::tuple(Qt::Key_X, Qt::ControlModifier, "Zenith Limited of Poona"),
          {Qt::Key_E, Qt::AltModifier, "Be"}}) {
        EditLabel(LedgerKey(longName));
        Retype(form, "Be");
        Key(form, Qt::Key_C, Qt::ControlModifier);
        Key(form, key, modifier);
        EXPECT_FALSE(form.Loaded());
        EXPECT_EQ(names(), stored + std::string("|Zenith Limited of Poona"))
            << "a command keeps the old name, leaving takes the new one";
        Open();
    }
    Rename(LedgerKey(longName), "Zenith Limited of Poona");
    EditLabel(LedgerKey(longName));
    EndEdit();
    EXPECT_EQ(names(), "Zenith Limited of Po|Zenith Limited of Poona") << "the label was cut";
    Rename(LedgerKey(longName), "Zenith");
    EXPECT_EQ(names(), "Zenith|Zenith Limited of Poona");
    EXPECT_THAT(Ledgers(), ElementsAre("Suppliers/Zenith"));
    ExpectBox("Can Not Edit Primary Group");
    Rename(GroupKey("Suppliers"), "Vendors");
    EXPECT_THAT(Ledgers(), ElementsAre("Suppliers/Zenith")) << "the refused label is gone";
    script.Box("Run-time error '-2147217900':\n\nSyntax error: a text does not end");
    Rename(LedgerKey(longName), "Zenith's");
    EXPECT_EQ(names(), "Zenith|Zenith Limited of Poona");
    EXPECT_THAT(Ledgers(), ElementsAre("Suppliers/Zenith")) << "the label of what stands";
}

TEST_F(GroupMasterTest, TheSplitterKeepsItsLimits) {
    Open();
    const int panes = ui().picPanes->Width();
    const struct {
        int to;  // twips from the left
        int bar, tree;
    } cases[] = {{4500, 4500, 4500}, {100, 500, 1600}, {panes, panes - 500, panes - 500}};
    const auto pixels = [&](int twips) { return forms::PixelsFromTwips(twips, form.Window()); };
    for (const auto& test : cases) {
        QWidget* const handle = ui().imgSplitter;
        QTest::mousePress(handle, Qt::LeftButton, {}, {0, 9});
        EXPECT_TRUE(ui().picSplitter->Visible());
        Hover(handle, {pixels(test.to) - handle->x(), 9}, Qt::LeftButton);
        EXPECT_NEAR(ui().picSplitter->Left(), test.bar, 15);
        QTest::mouseRelease(handle, Qt::LeftButton, {}, {0, 9});
        EXPECT_FALSE(ui().picSplitter->Visible());
        EXPECT_NEAR(Tree().Control::Width(), test.tree, 15);
        EXPECT_NEAR(List().Left() - Tree().Control::Width(), 60, 15);
    }
    Hover(ui().imgSplitter, {-300, 9});  // no button: no drag
    EXPECT_NEAR(Tree().Control::Width(), panes - 500, 15);
    form.Window()->resize(form.Window()->width() - 60, 500);
    EXPECT_NEAR(Tree().Control::Width(), panes - 500, 15) << "the split stays";
    EXPECT_EQ(List().Left() + List().Control::Width(), std::max(ui().picPanes->Width(), List().Left()));
    Key(form, Qt::Key_X, Qt::ControlModifier);
    EXPECT_FALSE(form.Loaded());
}

}  // namespace
