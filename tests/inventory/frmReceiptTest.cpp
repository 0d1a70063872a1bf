#include <cstdio>
#include <cstring>

#include <unistd.h>

#include "host/make/Books.h"
#include "inventory/frmReceipt.h"
#include "platform/ado/Maintenance.h"
#include "platform/ado/store/Flight.h"
#include "platform/basic/Format.h"
#include "tests/inventory/ReceiptScreens.h"
#include "tests/platform/ado/CutWire.h"

using namespace testing;

namespace {

class ReceiptTest : public ReceiptScreensTest {
  protected:
    ~ReceiptTest() override { basic::SetNumberLocale("C"); }

    static qm::frmReceipt& Screen() { return forms::Default<qm::frmReceipt>(); }
    static auto& ui() { return Screen().ui(); }
    static forms::VSFlexGrid& Grid() { return *ui().vsReceipt; }
    static int EntryRow() { return Grid().Rows() - 4; }

    void Open(int number, const std::function<void()>& visit) {
        ExpectForm("frmReceipt", visit);
        Screen().Load(number);
        EXPECT_FALSE(Screen().Loaded());
    }
    // The button of the entry row, and the picker behind it.
    void Pick(const Lines& names) {
        ExpectPick(names);
        Grid().SetFocus();
        Grid().Select(EntryRow(), 2);
        Key(Screen(), Qt::Key_Return);
    }
    static void Enter(int row, int col, const std::string& text) {
        ReceiptScreensTest::Enter(Screen(), Grid(), row, col, text);
    }
    static void FillHead() {
        ui().txtBillNo->SetText("B/17");
        ui().cmbSupplier->SetText("Acme");
        ui().cmbItemLedgers->SetText("Cash");
        ui().txtNarration->SetText(" coal and sand ");
    }
    // Two bags of coal and one of sand, 250 with 10 off, 5 tax and 20 charges.
    void FillReceipt() {
        FillHead();
        Pick({"Coal", "Sand"});
        Enter(1, 4, "2");
        Enter(1, 5, "wet");
        Enter(2, 4, "1");
        SetRates(ui(), "10", "5", "20", "0.5");
    }
    void ExpectSaved(int number) {
        ExpectBox("Issue details saved with Receipt voucher no. '" + std::to_string(number) + "'");
    }
    void SaveReceipt() {
        FillReceipt();
        ExpectSaved(1);
        Click(ui().cmdSave);
    }
    // A save while another program holds the books: for a moment, with a voucher that bears the number.
    void SaveBesideAnotherProgram(const std::string& number) {
        const std::string begin = test::OnServer() ? "BEGIN; SELECT pg_advisory_xact_lock(29037)"
                                                   : "PRAGMA key = '" + std::string(host::BooksPassword) +
                                                         "'; BEGIN IMMEDIATE",
                          hold =
                              test::OnServer() ? "\\! echo held; sleep 0.3" : ".system echo held; sleep 0.3",
                          shell = test::OnServer()
                                      ? "psql -q " + books.DataPath().erase(books.DataPath().size() - 1)
                                      : "sqlcipher -batch " + books.DataPath() + host::BooksFile,
                          command = "printf '%s\\n' \"" + begin +
                                    ";\" 'INSERT INTO \"tb_Ledger2001\" (\"LedgerTrnNo\") VALUES (" + number +
                                    ");' '" + hold + "' 'COMMIT;' | " + shell;
        FILE* const other = popen(command.c_str(), "r");
        char line[256];
        while (fgets(line, sizeof line, other) && !std::strstr(line, "held")) {
        }
        Click(ui().cmdSave);
        EXPECT_EQ(pclose(other), 0);
    }
    static Lines Numbers() { return ListOf(*ui().cmbReceipt); }
    static Lines Column(int col) { return RowTexts(Grid(), col, col); }
    static void ExpectMode(bool saved) {
        EXPECT_EQ(ui().dtpDate->Enabled(), !saved);
        EXPECT_EQ(ui().cmdSave->Enabled(), !saved);
        EXPECT_EQ(ui().cmbSupplier->Locked(), saved);
        EXPECT_EQ(ui().cmbItemLedgers->Locked(), saved);
        for (const auto* box : {ui().txtBillNo, ui().txtNarration, ui().txtDiscount, ui().txtTaxRate,
                                ui().txtOtherCharges, ui().txtRoundOff})
            EXPECT_EQ(box->Locked(), saved) << box->Name();
    }

    int whole_ = 0, failed_ = 0;
    const std::string cash = std::to_string(books.AddLedger("Cash", "Cash In Hand"));
    // Of the receipt that FillReceipt enters, as the tables hold it.
    const Lines stockRows{"1|37009|Receipt|1|0|Coal|0|2|wet|100|0|15",
                          "1|37009|Receipt|2|0|Sand|0|1||50|0|7.5"};
    const Lines entryRows{"1|" + acme + "|Acme|37009|coal and sand|Journal|0|232.5|False",
                          "1|" + cash + "|Cash|37009|coal and sand|Journal|232.5|0|False"};
};

TEST_F(ReceiptTest, ReckonsTheBillOfItsRows) {
    Open(0, [&] {
        Pick({"Coal", "Sand"});
        Enter(1, 4, "12");
        Enter(2, 4, "1.01");
        SetRates(ui(), "10", "5", "", ".");
        EXPECT_EQ(Computed(ui()), (Lines{"1,250.35", "1,250.35", "1,250.35"}));
        EXPECT_EQ(ui().txtBillTotal->Text(), "1,250.50");
        EXPECT_EQ(Column(4), (Lines{"12", "1.01", "", "", "", "Bill Total = "}));
        EXPECT_EQ(Column(5).back(), "Rs. 1,250.50");
        Enter(1, 4, "0");
        Enter(2, 4, "0");
        EXPECT_EQ(ui().txtBillTotal->Text() + Column(5).back(), "");
        Screen().Window()->resize(792, 564);
        QApplication::processEvents();
        for (const QWidget* box : {ui().txtBillTotal, ui().txtTotalAmt, ui().txtNetAmt})
            EXPECT_GT(box->width(), box->fontMetrics().horizontalAdvance("1,234,567,890.00") + 20);
    });
}

// Into the item counters, the bill and two ledger rows.
TEST_F(ReceiptTest, IsBookedAndViewed) {
    Open(0, [&] {
        EXPECT_EQ(Numbers(), Lines{"<New>"});
        ExpectMode(false);
        SaveReceipt();
        EXPECT_EQ(Numbers(), (Lines{"1", "<New>"}));
        EXPECT_EQ(ui().cmbReceipt->Text(), "1") << "the screen stays on the saved receipt";
        ExpectMode(true);
        EXPECT_EQ(Column(2), (Lines{"Coal", "Sand", "", "", "", ""}));
        EXPECT_EQ(Column(5), (Lines{"wet", "", "", "", "", "Rs. 250.00"}));
        EXPECT_EQ(Texts({ui().txtBillNo, ui().txtNarration, ui().txtDiscount, ui().txtTaxRate}),
                  (Lines{"B/17", "coal and sand", "10", "5"}));
        EXPECT_EQ(ui().cmbSupplier->Text() + ui().cmbItemLedgers->Text(), "AcmeCash");
        EXPECT_EQ(Computed(ui()), (Lines{"212.50", "232.50", "233.00"})) << "the round-off is kept on view";
        ui().cmbReceipt->SetText("99");  // no such receipt: the bill before it stays on view
        ExpectMode(true);
        EXPECT_EQ(Column(2), (Lines{"", "", "", ""}));
        EXPECT_EQ(Texts({ui().txtBillNo, ui().txtDiscount, ui().txtRoundOff}), (Lines{"B/17", "10", "0.5"}));
        EXPECT_EQ(Computed(ui()), (Lines{"", "20.00", "20.50"}));
        ui().cmbReceipt->SetListIndex(1);
        ExpectMode(false);
        EXPECT_EQ(ui().txtRoundOff->Text() + ui().txtBillNo->Text() + ui().cmbSupplier->Text(), "");
        EXPECT_EQ(Column(2), (Lines{"", "", "", ""}));
    });
    EXPECT_EQ(Stock(), stockRows);
    EXPECT_EQ(Received(), (Lines{"2", "1"}));
    EXPECT_EQ(Rows("Select Balance From ItemMaster2001"), (Lines{"Null", "Null"}));
    EXPECT_EQ(Entries(), entryRows);
    EXPECT_EQ(Bills(), Lines{"B/17|1|1|False|0|10|5|20"});
    EXPECT_THAT(Totals(), Each(Totals()[0])) << "no ledger's total moves";
}

// What the boxes show follows the user's locale nowhere, and neither do the rows: what is posted is what
// stands before the comma.
TEST_F(ReceiptTest, WritesTheSameRowsUnderEveryLocale) {
    for (const char* locale : {"en_IN", "de_DE", "C"}) {
        SCOPED_TRACE(locale);
        basic::SetNumberLocale(locale);
        QLocale::setDefault(QLocale(locale));
        Open(0, [&] {
            FillHead();
            Pick({"Coal", "Sand"});
            Enter(1, 4, "1234.5");
            Enter(2, 4, "1");
            SetRates(ui(), "10", "5", "0.25", "");
            EXPECT_EQ(Computed(ui()), (Lines{"123,481.55", "123,481.80", "123,481.80"}));
            ExpectSaved(1);
            Ctrl(Screen(), Qt::Key_S);
        });
        EXPECT_EQ(Stock(), (Lines{"1|37009|Receipt|1|0|Coal|0|1234.5||100|0|15",
                                  "1|37009|Receipt|2|0|Sand|0|1||50|0|7.5"}));
        EXPECT_THAT(Entries(), ElementsAre(HasSubstr("|0|123|"), HasSubstr("|123|0|")));
        EXPECT_EQ(Bills(), Lines{"B/17|1|1|False|0|10|5|0.25"});
        for (const char* table : {"tblItemLed2001", "tb_Ledger2001", "tblBills2001"})
            Run(std::string("Delete From ") + table);
    }
    QLocale::setDefault(QLocale::system());
}

// The key works though the button is disabled: the remark and a new item reach the table, with a second entry
// and a second bill. Kept.
TEST_F(ReceiptTest, CtrlSOnASavedReceiptWritesItsRemarksAndASecondEntry) {
    AddItem(3, "Peat", "40");
    Open(0, [&] { SaveReceipt(); });
    Open(1, [&] {
        EXPECT_FALSE(ui().cmdSave->Enabled());
        Enter(2, 4, "9");
        EXPECT_EQ(Grid().TextMatrix(2, 4), "1") << "a saved quantity is not edited";
        EXPECT_EQ(ui().txtRoundOff->Text() + ui().txtNetAmt->Text(), "232.50") << "it is not stored";
        Enter(2, 5, "dry");
        Pick({"Peat"});
        Enter(3, 4, "4");
        ExpectSaved(1);
        Ctrl(Screen(), Qt::Key_S);
        EXPECT_EQ(Column(5), (Lines{"wet", "dry", "", "", "", "", "Rs. 410.00"}));
    });
    EXPECT_EQ(Stock(), (Lines{stockRows[0], "1|37009|Receipt|2|0|Sand|0|1|dry|50|0|7.5",
                              "1|37009|Receipt|3|0|Peat|0|4||40|0|6"}));
    EXPECT_EQ(Received(), (Lines{"2", "1", "4"}));
    EXPECT_EQ(Entries().size(), 4u);
    EXPECT_EQ(Bills(), (Lines{"B/17|1|1|False|0|10|5|20", "B/17|1|2|False|0|10|5|20"}));
}

// Its voucher number is drawn in the transaction, when nobody else can draw one.
TEST_F(ReceiptTest, WithoutItemsItIsAnEntryOfNothing) {
    Open(0, [&] {
        FillHead();
        ExpectSaved(1);
        SaveBesideAnotherProgram("40");
        EXPECT_EQ(Numbers(), Lines{"<New>"}) << "the list is of stock rows";
        EXPECT_EQ(ui().cmbReceipt->Text() + ui().txtBillNo->Text(), "1B/17");
        ExpectMode(true);
        ui().cmbReceipt->SetText("<New>");
        ui().cmbReceipt->SetText("1");
        EXPECT_EQ(ui().txtNarration->Text(), "coal and sand");
        EXPECT_EQ(ui().cmbSupplier->Text() + ui().cmbItemLedgers->Text(), "") << "of amount 0";
    });
    EXPECT_EQ(Stock(), Lines{});
    EXPECT_THAT(Entries(),
                ElementsAre(StartsWith("40|"), "41|" + acme + "|Acme|37009|coal and sand|Journal|0|0|False",
                            "41|" + cash + "|Cash|37009|coal and sand|Journal|0|0|False"));
    EXPECT_EQ(Bills(), Lines{"B/17|1|41|False|0|0|0|0"});
}

// Only "<New>" draws a number.
TEST_F(ReceiptTest, AnEmptyNumberBoxSavesUnderNothing) {
    Run("Insert Into tblItemLed2001 (ItemLedTrnNo, ItemLedTrnType) Values (6, 'Issue')");
    Open(0, [&] {
        ui().cmbReceipt->SetFocus();
        for (int key = 0; key < 5; ++key) Key(Screen(), Qt::Key_Backspace);
        ExpectMode(false);
        FillReceipt();
        ExpectSaved(0);
        Click(ui().cmdSave);
        EXPECT_EQ(ui().cmbReceipt->Text(), "0");
        ui().cmbReceipt->SetText("<New>");
        EXPECT_EQ(Column(2), (Lines{"Coal", "Sand", "", "", "", ""})) << "it too reads the rows of number 0";
        EXPECT_EQ(ui().txtBillNo->Text(), "");
    });
    EXPECT_THAT(Stock()[1], StartsWith("0|37009|Receipt|1|"));
    EXPECT_EQ(Bills(), Lines{"B/17|0|1|False|0|10|5|20"});
}

TEST_F(ReceiptTest, RowsBeforeAFailingOneStay) {
    Run("Insert Into tblItemLed2001 (ItemLedTrnNo, ItemLedTrnType) Values (6, 'Issue')");
    Open(0, [&] {
        FillReceipt();
        Run("Delete From ItemMaster2001 Where Item_ID = 2");
        for (int attempt = 0; attempt < 2; ++attempt) {
            ExpectBox("Cannot save Receipt Details");
            ExpectLogged("frmReceipt");
            Click(ui().cmdSave);
            EXPECT_EQ(ui().cmbReceipt->Text() + ui().txtBillNo->Text(), "<New>B/17");
        }
        Enter(1, 5, "a \"big\" one");
        ExpectBox("Cannot save Receipt Details");
        ExpectLogged("frmReceipt", "Syntax error: ')' is expected where 'big' stands", "ado.Statement");
        Click(ui().cmdSave);
    });
    EXPECT_EQ(Rows("Select ItemLedTrnNo, ItemLedItemID From tblItemLed2001 Where ItemLedTrnType = 'Receipt'"),
              (Lines{"7|1", "8|1"}));
    EXPECT_EQ(Received(), Lines{"4"});
    EXPECT_EQ(Entries(), Lines{});
    EXPECT_EQ(Bills(), Lines{});
    EXPECT_EQ(Logged().size(), 3u);
    EXPECT_EQ(Logged()[0], "frmReceipt|0|");
}

// The row writer's own log row dies with the entry's transaction.
TEST_F(ReceiptTest, AnEntryThatFailsShowsThreeBoxesAndLogsOnce) {
    Open(0, [&] {
        FillReceipt();
        ui().txtNarration->SetText("12\" pipes");
        ExpectLogged("Module-FDBCode", "Syntax error: a text does not end", "ado.Statement");
        ExpectBox("Cannot save Receipt Details");
        ExpectLogged("frmReceipt");
        Click(ui().cmdSave);
    });
    EXPECT_EQ(Stock(), stockRows);
    EXPECT_EQ(Entries(), Lines{});
    EXPECT_EQ(Bills(), Lines{});
    EXPECT_EQ(Logged(), Lines{"frmReceipt|0|"});
    EXPECT_EQ(qm::Conn().TransDepth(), 0);
}

// On a server, with the connection cut in front of each statement of the save and behind it: nothing is half,
// and what is told is what stands.
TEST_F(ReceiptTest, AConnectionThatIsCutLeavesNothingHalf) {
    QM_NEEDS_SERVER();
    const std::string name = "receipt_" + std::to_string(getpid());
    const std::string server = test::ServerUri() + name + "/";
    ado::CopyBooks(qm::Conn(), server);
    books.CloseHost();
    const ado::test::CutWire wire;
    auto host = std::make_unique<qm::clQm>();
    host->dataPath(wire.Path(server));
    host->StartDataConn();
    Lines told;
    const qm::MsgBoxPort before = qm::SetMsgBoxPort([&](const std::string& text, int, const std::string&) {
        told.push_back(text);
        return qm::vbOK;
    });
    const auto save = [&](ado::test::CutWire::Cut cut, unsigned char others) {
        for (const char* table : {"tblItemLed2001", "tb_Ledger2001", "tblBills2001"})
            Run(std::string("Delete From ") + table);
        Run("Update ItemMaster2001 Set ReceivedQty = 0");
        for (const char* number : {"1", "<New>"}) ui().cmbReceipt->SetText(number);
        FillReceipt();
        told.clear();
        wire.CutNext(cut, others);
        Click(ui().cmdSave);
        wire.CutNext(ado::test::CutWire::None);
        const bool saved = told.size() == 1 && told[0].starts_with("Issue details saved");
        if (!saved) {
            ASSERT_GE(told.size(), 2u);
            EXPECT_EQ(told[told.size() - 2], "Cannot save Receipt Details");
            const bool inEntry = told.size() == 3;
            EXPECT_THAT(told.front() + told.back(), HasSubstr("connection to the server was lost"));
            EXPECT_THAT(told[0], StartsWith(inEntry ? "Formname: Module-FDBCode" : "Cannot save"));
        }
        const std::size_t rows = Stock().size();
        EXPECT_EQ(Received(), (Lines{rows > 0 ? "2" : "0", rows > 1 ? "1" : "0"}));
        EXPECT_EQ(Entries(), saved ? entryRows : Lines{});
        EXPECT_EQ(Bills().size(), saved ? 1u : 0u);
        EXPECT_TRUE(!saved || rows == 2) << rows;
        (saved ? whole_ : failed_)++;
    };
    Open(0, [&] {
        for (const auto cut : {ado::test::CutWire::Before, ado::test::CutWire::After})
            for (unsigned char others = 0; others < 90; ++others) {
                SCOPED_TRACE(static_cast<char>(cut) + std::to_string(others));
                save(cut, others);
            }
    });
    qm::SetMsgBoxPort(before);
    EXPECT_GT(whole_, 20) << failed_;
    EXPECT_GT(failed_, 60) << whole_;
    host.reset();
    ado::Flight administrator;
    administrator.Connect(ado::ReadServerAddress(test::ServerUri() + "postgres/"));
    administrator.Script("DROP DATABASE " + name + " WITH (FORCE)");
}

// Everything is missing at first; each refusal names the first that is, goes there and opens its list.
TEST_F(ReceiptTest, ChecksInOrderBeforeItSaves) {
    const struct {
        const char* message;
        const char* active;
        bool opensList;
        std::pair<int, int> cell;  // of the grid
        std::function<void()> mend;
    } cases[] = {
        {"Please select the date in Financial Year range \r\n\r\n'01-Apr-2000' to '31-Mar-2001'",
         "dtpDate",
         true,
         {},
         [] { ui().dtpDate->SetValue(basic::MakeDate(2002, 3, 31)); }},
        {"Please enter the bill no.", "txtBillNo", false, {}, [] { ui().txtBillNo->SetText("B/17"); }},
        {"Please select a supplier", "cmbSupplier", true, {}, [] { ui().cmbSupplier->SetText("Acme"); }},
        {"Please select a ledger to be debited",
         "cmbItemLedgers",
         true,
         {},
         [] { ui().cmbItemLedgers->SetText("Cash"); }},
        {"Please select items to be issued",
         "vsReceipt",
         false,
         {1, 2},
         [] { Grid().SetTextMatrix(1, 2, "Coal"); }},
        {"Please specify qty. to be issued for item\r\n\r\n'Sand'", "vsReceipt", false, {2, 4}, [] {}},
    };
    Open(0, [&] {
        Pick({"Coal", "Sand"});
        Enter(1, 4, "2");
        Grid().SetTextMatrix(1, 2, "");
        ui().dtpDate->SetValue(basic::MakeDate(2001, 3, 31));
        ui().txtBillNo->SetText("  ");
        for (const auto& c : cases) {
            SCOPED_TRACE(c.message);
            ui().cmdSave->SetFocus();
            ExpectBox(c.message);
            Click(ui().cmdSave);
            EXPECT_EQ(Active(Screen()), c.active);
            QWidget* const list = QApplication::activePopupWidget();
            EXPECT_EQ(list != nullptr, c.opensList);
            if (list) list->close();
            if (c.cell.first) {
                EXPECT_EQ(std::pair(Grid().Row(), Grid().Col()), c.cell);
            }
            c.mend();
        }
    });
    EXPECT_EQ(Stock(), Lines{});
}

TEST_F(ReceiptTest, OffersEachListItsLedgers) {
    books.AddLedger("Bank of India", "Bank");
    books.AddLedger("Dinesh", "Debtors");
    books.AddLedger("Goods", "Purchase");
    Run("Update Ledger_Master Set Deleted = True Where Name = 'Acme'");
    Run("Delete From Ledger_Details Where Ledger_ID = " + cash);
    Open(0, [&] {
        EXPECT_EQ(ListOf(*ui().cmbSupplier), (Lines{"Acme", "Dinesh"})) << "deleted ones too";
        EXPECT_EQ(ListOf(*ui().cmbItemLedgers), (Lines{"Acme", "Bank of India", "Dinesh"}));
        EXPECT_EQ(std::to_string(ui().cmbSupplier->ItemData(0)), acme);
    });
    ui().txtBillNo->SetText("<New>");  // what the filter asks, and no user can bring about
    Open(0, [&] { EXPECT_EQ(ListOf(*ui().cmbSupplier), Lines{"Dinesh"}); });
}

TEST_F(ReceiptTest, TheTotalStandsUnderARedRule) {
    Open(0, [&] {
        Pick({"Coal", "Sand"});
        Lines headings;
        for (int col = 0; col < Grid().Cols(); ++col)
            if (!Grid().ColHidden(col)) headings.push_back(Grid().TextMatrix(0, col));
        EXPECT_EQ(headings, (Lines{"Item Description", "Unit Price", "Qty.", "Remarks"}));
        const int total = Grid().Rows() - 1;
        for (int row = 1; row <= total; ++row) {
            const bool rule = row == total - 1;
            EXPECT_EQ(Grid().RowHeight(row) == 50, rule) << row;
            for (int col = 1; col < 6; ++col)
                EXPECT_EQ(Grid().CellBackColor(row, col), rule ? forms::vbRed : forms::NoColor) << row;
        }
    });
}

TEST_F(ReceiptTest, TheGridTakesOnlyWhatBelongsThere) {
    Open(0, [&] {
        Pick({"Coal"});
        ExpectPick({"Coal", "Sand"});
        ExpectBox("Item 'Coal' is already present in the list\r\n\r\nCannot add");
        Grid().Select(EntryRow(), 2);
        Key(Screen(), Qt::Key_Return);
        EXPECT_EQ(Column(2), (Lines{"Coal", "Sand", "", "", "", ""}));

        Grid().Select(1, 2);
        Key(Screen(), Qt::Key_Return);  // opens no picker: the row has its item
        Enter(1, 3, "7");
        Enter(EntryRow(), 4, "7");
        Enter(1, 4, "1x2-3,4.5678901");
        EXPECT_EQ(Column(3), (Lines{"100", "50", "", "", "", ""}));
        EXPECT_EQ(Column(4), (Lines{"1234.5678", "", "", "", "", "Bill Total = "}));
        ExpectBox("Please enter a valid numeric quantity");
        Enter(2, 4, "1.2.3");
        EXPECT_TRUE(Grid().Editing());
        Key(Screen(), Qt::Key_Escape);
        Enter(2, 5, std::string(120, 'r'));
        EXPECT_EQ(Grid().TextMatrix(2, 5).size(), 99u);
        for (int row = EntryRow() + 1; row < Grid().Rows(); ++row) {
            Grid().Select(row, 4);
            EXPECT_LE(Grid().Row(), EntryRow()) << "the total rows are not entered";
        }
    });
}

TEST_F(ReceiptTest, AnInputTakesFiguresOnly) {
    Open(0, [&] {
        ui().txtDiscount->SetFocus();
        Type(Screen(), "-1a0.5");
        EXPECT_EQ(ui().txtDiscount->Text(), "10.5");
        Key(Screen(), Qt::Key_Tab);
        Type(Screen(), "1..");
        ExpectBox("Please enter a valid numeric quantity");
        Key(Screen(), Qt::Key_Tab);
        EXPECT_EQ(Active(Screen()) + ui().txtTaxRate->Text(), "txtTaxRate");
    });
}

TEST_F(ReceiptTest, DeleteTakesAnItemThatIsNotSaved) {
    const auto remove = [&](int row, int answer) {
        ExpectQuestion("Remove Item '" + Grid().TextMatrix(row, 2) + "'", answer);
        Grid().SetFocus();
        Grid().Select(row, 2);
        Key(Screen(), Qt::Key_Delete);
    };
    Open(0, [&] {
        FillReceipt();
        Grid().Select(EntryRow(), 2);
        Key(Screen(), Qt::Key_Delete);  // the entry row asks nothing
        remove(2, qm::vbNo);
        EXPECT_EQ(ui().txtBillTotal->Text(), "250.00");
        remove(2, qm::vbYes);
        EXPECT_EQ(ui().txtBillTotal->Text(), "200.00");
        EXPECT_EQ(Column(2), (Lines{"Coal", "", "", "", ""}));
        EXPECT_EQ(Grid().Row(), 1);
        ExpectSaved(1);
        Click(ui().cmdSave);
        ExpectQuestion("Remove Item 'Coal'", qm::vbYes);
        ExpectBox("Item Item 'Coal' has been received \r\n\r\nCannot remove");
        Grid().SetFocus();
        Key(Screen(), Qt::Key_Delete);
    });
    EXPECT_EQ(Stock().size(), 1u);
}

TEST_F(ReceiptTest, IsEnteredByTheKeyboardAlone) {
    const auto tab = [](int times = 1) {
        while (times--) Key(Screen(), Qt::Key_Tab);
    };
    Open(0, [&] {
        tab(2);
        Type(Screen(), "B/17");
        tab();
        Key(Screen(), Qt::Key_Down);
        tab();
        Key(Screen(), Qt::Key_Down);  // Acme
        Key(Screen(), Qt::Key_Down);  // Cash
        tab();
        Type(Screen(), "coal and sand");
        tab();
        script.Modal("frmItemList", [&](forms::Form& picker) {
            BringToFront(picker);
            Key(picker, Qt::Key_Tab);
            Key(picker, Qt::Key_Tab);
            for (int row = 0; row < 2; ++row) {
                Key(picker, Qt::Key_Space);
                Key(picker, Qt::Key_Down);
            }
            Key(picker, Qt::Key_Tab, Qt::ControlModifier);
            Key(picker, Qt::Key_Space);
        });
        Key(Screen(), Qt::Key_Return);
        BringToFront(Screen());
        tab(2);
        Type(Screen(), "2");
        tab();
        Type(Screen(), "wet");
        tab(3);
        Type(Screen(), "1");
        Key(Screen(), Qt::Key_Return);
        Key(Screen(), Qt::Key_Tab, Qt::ControlModifier);
        tab();
        Type(Screen(), "10");
        tab();
        Type(Screen(), "5");
        tab(2);
        Type(Screen(), "20");
        ExpectSaved(1);
        Ctrl(Screen(), Qt::Key_S);
        EXPECT_EQ(ui().cmdExit->toolTip(), "Exit      Ctrl+S") << "kept, though the key is X";
        Ctrl(Screen(), Qt::Key_X);
    });
    EXPECT_EQ(Stock(), stockRows);
    EXPECT_EQ(Entries(), entryRows);
    EXPECT_EQ(Bills(), Lines{"B/17|1|1|False|0|10|5|20"});
}

}  // namespace
