#include "tests/inventory/StockScreens.h"

using namespace testing;

namespace {

class ItemListTest : public StockScreensTest {
  protected:
    ItemListTest() {
        AddItem(12, "Coal", "4.5");
        AddItem(120, "copper \xc3\xa4", "1234.5");
        AddItem(7, "Sand");
        AddItem(2, "Tab\there", "3");
    }
    ~ItemListTest() override { Picker().Unload(); }

    void InPicker(const std::function<void()>& visit) {
        ExpectForm("frmItemList", visit);
        Picker().Load();
    }
    auto& ui() { return Picker().ui(); }
    Lines Listed() { return RowTexts(*ui().vsItems, 2, 2); }
    void ChooseItemName() {  // by the arrow keys: the empty line, the number, the name
        ui().cmbSearchList->SetFocus();
        for (int step = 0; step < 3; ++step) Key(Picker(), Qt::Key_Down);
    }
    void Search(const char* text) {
        ui().txtSearchText->SetFocus();
        Retype(Picker(), text);
    }
    // The three lists as the stock screens take them; "Nothing" for one that is not there.
    static std::string Taken() {
        std::ostringstream text;
        const auto write = [&](const auto& list) {
            if (!list) text << "Nothing";
            for (std::size_t i = 0; list && i < list->size(); ++i) text << (i ? "," : "") << (*list)[i];
            text << ";";
        };
        write(Picker().SelItems());
        write(Picker().SelItemIds());
        write(Picker().SelItemPrice());
        return text.str();
    }

    const Lines all{"Coal", "copper \xc3\xa4", "Sand", "Tab\there"};
};

TEST_F(ItemListTest, WhatIsTickedCanBeTakenOnce) {
    ExpectPick({"Sand", "copper \xc3\xa4"});
    Picker().Load();
    EXPECT_FALSE(Picker().Loaded());
    EXPECT_EQ(Taken(), "copper \xc3\xa4,Sand;120,7;1234.5,0;") << "in the order of the list";
    EXPECT_EQ(Taken(), "Nothing;Nothing;Nothing;");
    ExpectPick({});
    Picker().Load();
    EXPECT_EQ(Taken(), ";;;") << "nothing ticked is an empty list";
    InPicker([&] {
        Tick("Coal");
        Picker().Window()->close();
    });
    EXPECT_EQ(Taken(), "Nothing;Nothing;Nothing;");
}

TEST_F(ItemListTest, TypingNarrowsInWhatTheListSays) {
    const struct {
        const char* in;
        const char* typed;
        Lines listed;
    } cases[] = {
        {"Item ID", "12", {"Coal", "copper \xc3\xa4"}},
        {"Item ID", "120", {"copper \xc3\xa4"}},
        {"Item ID", "2", {"Tab\there"}},
        {"Item Name", "CO", {"Coal", "copper \xc3\xa4"}},
        {"Item Name", "copper \xc3\x84", {"copper \xc3\xa4"}},
        {"Item Name", "%a", {"Coal", "Sand", "Tab\there"}},
    };
    for (const auto& c : cases)
        InPicker([&] {
            EXPECT_EQ(Listed(), all);
            ui().cmbSearchList->SetText(c.in);
            ui().txtSearchText->SetText(c.typed);
            EXPECT_THAT(Listed(), UnorderedElementsAreArray(c.listed)) << c.in << ' ' << c.typed;
        });
}

TEST_F(ItemListTest, TheEmptyLineSearchesNothing) {
    InPicker([&] {
        Search("co");
        EXPECT_EQ(Listed(), all);
        ChooseItemName();
        EXPECT_EQ(Listed(), (Lines{"Coal", "copper \xc3\xa4"}))
            << "the choice takes the text that stands there";
        Tick("Coal");
        Search("coa");
        EXPECT_EQ(Listed(), Lines{"Coal"});
        EXPECT_FALSE(ui().vsItems->CellChecked(1, 0)) << "a new search starts with no ticks";
        ui().cmbSearchList->SetListIndex(0);
        EXPECT_EQ(Listed(), all) << "the whole list, under the typed text";
        Tick("Sand");
        Search("x");
        EXPECT_EQ(Listed(), all);
        EXPECT_TRUE(ui().vsItems->CellChecked(3, 0)) << "what is typed under the empty line fills nothing";
        EXPECT_EQ(ui().cmbSearchList->ListCount(), 3);
    });
}

// The statement fails and nobody traps it: the window stays, with an empty list.
TEST_F(ItemListTest, AnApostropheRaises) {
    InPicker([&] {
        ui().cmbSearchList->SetText("Item Name");
        script.Box("Run-time error '-2147217900':\n\nSyntax error: a text does not end");
        Search("'");
        EXPECT_EQ(Listed(), Lines{});
        EXPECT_TRUE(Picker().Visible());
    });
}

TEST_F(ItemListTest, OnlyTheTickIsEditedAndTheHeadingSorts) {
    InPicker([&] {
        forms::VSFlexGrid& grid = *ui().vsItems;
        for (int col = 1; col < 4; ++col) {
            grid.Select(1, col);
            grid.EditCell();
            EXPECT_FALSE(grid.Editing()) << col;
        }
        Hover(grid, 0);
        EXPECT_EQ(grid.ToolTipText(), "Click on the headers to sort");
        Hover(grid, 2);
        EXPECT_EQ(grid.ToolTipText(), "");
        ClickCell(grid, 0, 2);
        EXPECT_EQ(Listed(), (Lines{"Coal", "copper \xc3\xa4", "Sand", "Tab\there"}));
        ClickCell(grid, 0, 1);
        EXPECT_EQ(Listed(), (Lines{"Tab\there", "Sand", "Coal", "copper \xc3\xa4"}))
            << "codes sort as numbers";
        grid.Select(2, 0);
        grid.SetFocus();
        Key(Picker(), Qt::Key_Space);
        Click(ui().cmdOK);
    });
    EXPECT_EQ(Taken(), "Sand;7;0;");
}

}  // namespace
