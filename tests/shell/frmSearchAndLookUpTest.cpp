#include "shell/frmSearchAndLookUp.h"
#include "shell/modSearch.h"
#include "tests/screens/ScreenFixture.h"

using namespace testing;

namespace {

class LookUpTest : public test::ScreenTest {
  protected:
    LookUpTest() {
        test::FreshBooks::Run("Delete * from Ledger_Master");
        for (const char* name : {"Anand Traders", "sharma & Sons", "Shah Brothers"})
            books.AddLedger(name, "Suppliers");
        lookUp.BaseQuery = "select ledger_ID as [Ledger Id],Name from Ledger_Master";
        qm::SearchLikePrefix = lookUp.BaseQuery + " where Name like ";
        qm::SearchResultKey = "before";
        qm::SearchResultName = "Before";
    }
    ~LookUpTest() override { lookUp.Unload(); }

    void InLookUp(const std::function<void()>& visit) {
        script.Modal("frmSearchAndLookUp", [visit](forms::Form&) { visit(); });
        lookUp.Show(forms::vbModal);
    }
    forms::MSFlexGrid& Grid() { return *lookUp.ui().grd; }
    test::Lines Names() { return RowTexts(Grid(), 2, 2); }
    std::string Id(const std::string& name) {
        return test::FreshBooks::One("Select Ledger_ID From Ledger_Master Where Name = '" + name + "'");
    }
    void Search(const char* text) {
        lookUp.ui().txtsearch->SetFocus();
        Type(lookUp, text);
    }
    static std::string Results() { return qm::SearchResultKey + " " + qm::SearchResultName; }

    qm::frmSearchAndLookUp& lookUp = forms::Default<qm::frmSearchAndLookUp>();
};

TEST_F(LookUpTest, TypingNarrowsAndForbiddenCharactersEmptyTheBox) {
    InLookUp([&] {
        EXPECT_EQ(Grid().TextMatrix(0, 1), "Ledger Id");
        EXPECT_EQ(Grid().TextMatrix(3, 0), "3");
        EXPECT_EQ(lookUp.ui().lblstatus->Caption(), "(3)  Records Found !");
        const struct {
            const char* typed;
            const char* stands;
            test::Lines names;
        } cases[] = {
            {"SH", "SH", {"sharma & Sons", "Shah Brothers"}},
            {"a", "SHa", {"sharma & Sons", "Shah Brothers"}},
            {"r", "SHar", {"sharma & Sons"}},
            {"'", "", {"Anand Traders", "sharma & Sons", "Shah Brothers"}},
            {"  an", "  an", {"Anand Traders"}},
            {"[", "", {"Anand Traders", "sharma & Sons", "Shah Brothers"}},
            {"x", "x", {}},
        };
        for (const auto& c : cases) {
            Search(c.typed);
            EXPECT_EQ(lookUp.ui().txtsearch->Text(), c.stands);
            EXPECT_THAT(Names(), ElementsAreArray(c.names)) << c.typed;
            EXPECT_EQ(lookUp.ui().lblstatus->Caption(),
                      "(" + std::to_string(c.names.size()) + ")  Records Found !");
        }
        for (const char forbidden : std::string("/*\"|")) {
            lookUp.ui().txtsearch->SetText(std::string("An") + forbidden);
            EXPECT_EQ(lookUp.ui().txtsearch->Text(), "");
        }
    });
}

TEST_F(LookUpTest, AChoiceHidesAndTheNextUseShowsTheWholeListUnderTheTypedText) {
    InLookUp([&] {
        Search("sh");
        Grid().SetRow(2);
        Key(lookUp, Qt::Key_Return);
        EXPECT_FALSE(lookUp.Visible());
    });
    EXPECT_TRUE(lookUp.Loaded());
    EXPECT_EQ(Results(), Id("Shah Brothers") + " Shah Brothers");
    InLookUp([&] {
        EXPECT_EQ(lookUp.ui().txtsearch->Text(), "sh");
        EXPECT_THAT(Names(), SizeIs(3));
        Type(lookUp, "s");
        EXPECT_EQ(lookUp.ui().txtsearch->Text(), "s") << "typing replaces it";
        for (const auto& [key, row] :
             {std::pair(Qt::Key_Up, 1), {Qt::Key_Down, 2}, {Qt::Key_Down, 2}, {Qt::Key_Up, 1}}) {
            Key(lookUp, key);
            EXPECT_EQ(std::pair(Grid().Row(), Grid().ColSel()), std::pair(row, 2));
        }
        Key(lookUp, Qt::Key_Backspace);
        DoubleClickCell(Grid(), 0, 1);
        EXPECT_TRUE(lookUp.Visible()) << "the heading is no choice";
        DoubleClickCell(Grid(), 1, 2);
        EXPECT_FALSE(lookUp.Visible());
    });
    EXPECT_EQ(Results(), Id("Anand Traders") + " Anand Traders");
}

TEST_F(LookUpTest, TheCloseBoxAndEscLeaveTheResultsOfTheShowingBefore) {
    const std::function<void()> ways[] = {[&] { lookUp.Window()->close(); },
                                          [&] { Key(lookUp, Qt::Key_Escape); },
                                          [&] {
                                              Grid().SetFocus();
                                              Key(lookUp, Qt::Key_Escape);
                                          }};
    for (const auto& close : ways) {
        InLookUp([&] {
            BringToFront(lookUp);
            Search("an");
            close();
            EXPECT_FALSE(lookUp.Loaded());
        });
        EXPECT_EQ(Results(), "before Before");
    }
}

// A search that finds nothing still lets Select be pressed: the key is then "0", the text the heading's.
TEST_F(LookUpTest, SelectWithoutARow) {
    InLookUp([&] {
        Search("x");
        Click(lookUp.ui().cmdget);
    });
    EXPECT_EQ(Results(), "0 Name");
}

// The name is read past the row: the error shows, and the name of the choice before is gone all the same.
TEST_F(LookUpTest, AQueryOfOneColumnHasNoNameToGive) {
    lookUp.BaseQuery = "select Name from Ledger_Master where Name like 'An%'";
    InLookUp([&] {
        script.Box("Run-time error '9':\n\nSubscript out of range");
        Click(lookUp.ui().cmdget);
        EXPECT_TRUE(lookUp.Visible());
    });
    EXPECT_EQ(Results(), "Anand Traders ");
}

TEST_F(LookUpTest, NoRowsAtTheFirstShowingDisableSelectUntilTheFormIsUnloaded) {
    const std::string all = std::exchange(lookUp.BaseQuery, lookUp.BaseQuery + " where Name = 'Nobody'");
    InLookUp([&] {
        EXPECT_FALSE(lookUp.ui().cmdget->Enabled());
        EXPECT_FALSE(Grid().Enabled());
        EXPECT_EQ(lookUp.ui().lblstatus->Caption(), "(0)  Records Found !");
        lookUp.BaseQuery = all;
        lookUp.Hide();
    });
    InLookUp([&] {
        EXPECT_THAT(Names(), SizeIs(3));
        EXPECT_FALSE(lookUp.ui().cmdget->Enabled());
    });
    InLookUp([&] { EXPECT_TRUE(lookUp.ui().cmdget->Enabled()); });
}

TEST_F(LookUpTest, AQueryThatFailsLeavesTheGridAsItStands) {
    InLookUp([&] {
        lookUp.Initialize("select nothing from NoTable");
        EXPECT_THAT(Names(), SizeIs(3));
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    });
}

// A dynamic set does not know its count: the grid grows with it, and ends with its last row.
TEST_F(LookUpTest, ADynamicSetIsReadToItsEnd) {
    for (int number = 1; number <= 203; ++number)
        Run("Insert Into Ledger_Master (Ledger_ID, Name) Values (" + std::to_string(1000 + number) +
            ", Null)");
    const auto load = [&](const std::string& condition, int cursorType) {
        ado::Recordset rows;
        rows.Open("Select Ledger_ID, Name From Ledger_Master Where Ledger_ID " + condition,
                  qm::shared().Connection, cursorType, ado::adLockReadOnly);
        lookUp.LoadRecordsetIntoGrid(rows, Grid(), false, false);
        return Grid().Rows();
    };
    EXPECT_EQ(load("> 1000", ado::adOpenDynamic), 204);
    EXPECT_EQ(Grid().TextMatrix(203, 0) + Grid().TextMatrix(203, 1) + Grid().TextMatrix(203, 2), "2031203");
    EXPECT_EQ(basic::ToLong(Grid().ColData(1)), ado::adInteger);
    EXPECT_EQ(load("= 1001", ado::adOpenDynamic), 2);
    EXPECT_EQ(load("= 5", ado::adOpenDynamic), 1);
    load("> 1000", ado::adOpenForwardOnly);
    EXPECT_EQ(Grid().TextMatrix(1, 1), "") << "other sets are not read";
}

TEST_F(LookUpTest, ChecksSizeTheColumnsAndMarkTheFirstRow) {
    lookUp.ui().chkHighlightFirstRow->SetValue(0);
    lookUp.ui().chkAutosizeColumns->SetValue(0);
    lookUp.Show();
    EXPECT_EQ(Grid().ColWidth(1), lookUp.TextWidth("Ledger Id") + 200) << "the click sized them";
    EXPECT_EQ(Grid().Row(), 0);
    Grid().SetColWidth(2, 10);
    lookUp.ui().chkAutosizeColumns->SetValue(1);
    EXPECT_EQ(Grid().ColWidth(2), lookUp.TextWidth("Anand Traders") + 200) << "the first of the longest";
    lookUp.ui().chkHighlightFirstRow->SetValue(1);
    EXPECT_EQ(std::pair(Grid().Row(), Grid().ColSel()), std::pair(1, 2));
}

}  // namespace
