#pragma once

#include "inventory/frmItemList.h"
#include "platform/forms/grid/VSFlexGrid.h"
#include "tests/screens/ScreenFixture.h"

// What the tests of the stock screens share: items, and the picker as a user works it.
class StockScreensTest : public test::ScreenTest {
  protected:
    using Lines = test::Lines;

    // Stock counters as they stand in the statement, "Null" too.
    static void AddItem(int id, const std::string& name, const std::string& price = "Null",
                        const std::string& open = "Null", const std::string& issued = "Null",
                        const std::string& received = "Null") {
        Run("Insert Into ItemMaster2001 (Item_ID, Item_Name, Unit_Price, Open_Stock, IssuedQty, ReceivedQty) "
            "Values (" +
            std::to_string(id) + ", \"" + name + "\", " + price + ", " + open + ", " + issued + ", " +
            received + ")");
    }

    // Types into a cell and leaves it by Enter.
    static void Enter(forms::Form& form, forms::VSFlexGrid& grid, int row, int col, const std::string& text) {
        grid.SetFocus();
        grid.Select(row, col);
        Type(form, text.c_str());
        Key(form, Qt::Key_Return);
    }
    static qm::frmItemList& Picker() { return forms::Default<qm::frmItemList>(); }
    // Ticks the check box of an item that the picker lists.
    static void Tick(const std::string& name) {
        forms::VSFlexGrid& grid = *Picker().ui().vsItems;
        for (int row = 1; row < grid.Rows(); ++row)
            if (grid.TextMatrix(row, 2) == name) return ClickCell(grid, row, 0);
        ADD_FAILURE() << "no item " << name;
    }
    // The picker comes next; the user ticks the items and leaves it by OK.
    void ExpectPick(const Lines& names) {
        script.Modal("frmItemList", [names](forms::Form&) {
            for (const std::string& name : names) Tick(name);
            Click(Picker().ui().cmdOK);
        });
    }
};
