#include <QTimer>

#include "core/clQm.h"
#include "core/qmcls.h"
#include "host/audit/Audit.h"
#include "platform/basic/Text.h"
#include "screens/ScreenTable.h"
#include "shell/frmNewMenu.h"
#include "tests/screens/ScreenFixture.h"

using namespace testing;

namespace {

// The rows of the categories, and the screens that their options open.
const std::pair<int, test::Lines> Screens[] = {{5, {"frmFinYear", "frmGrpMain", "Ledger_Master"}},
                                               {10, {"frmVoucher"}},
                                               {15, {"frmTPL", "frmDayBook", "frmPartyLedger"}}};

class MenuTest : public test::ScreenTest {
  protected:
    // The host's call, with the menu visited while it stands.
    void InMenu(const std::function<void(qm::frmNewMenu& menu)>& visit) {
        script.Modal("frmNewMenu",
                     [visit](forms::Form& form) { visit(dynamic_cast<qm::frmNewMenu&>(form)); });
        books.Host().QmMainMenu();
        EXPECT_FALSE(forms::Default<qm::frmNewMenu>().Loaded());
    }
    // Every option of every category, clicked with the mouse; the screens that come are closed again.
    void WalkWithTheMouse(qm::frmNewMenu& menu) {
        for (const auto& [category, screens] : Screens) {
            Hover(*menu.ui().vsFinOptions, category);
            for (const int row : {0, 3, 6}) {
                const auto place = static_cast<std::size_t>(row / 3);
                if (place < screens.size()) script.Modal(screens[place]);
                ClickCell(*menu.ui().vsOptions, row, 1);
                EXPECT_TRUE(menu.Visible());
                EXPECT_EQ(script.LeftOver(), 0U);
            }
        }
    }
    // Captions and keys of the rows that have any, with their row.
    static test::Lines Shown(qm::frmNewMenu& menu) {
        test::Lines lines;
        const forms::VSFlexGrid& grid = *menu.ui().vsOptions;
        for (int row = 0; row < grid.Rows(); ++row) {
            const std::string key = basic::TextOrEmpty(grid.CellData(row, 1));
            if (!grid.TextMatrix(row, 1).empty() || !key.empty())
                lines.push_back(std::to_string(row) + " " + grid.TextMatrix(row, 1) + " " + key);
        }
        return lines;
    }
    // The row that is marked; -1: none.
    static int Marked(qm::frmNewMenu& menu) {
        const forms::VSFlexGrid& grid = *menu.ui().vsOptions;
        for (int row = 0; row < grid.Rows(); ++row)
            if (grid.CellBackColor(row, 1) != forms::NoColor) return row;
        return -1;
    }
};

const test::Lines Masters = {"0 Set Financial Year frmFinYear", "3 Group Master frmGrpMain",
                             "6 Ledger Master Ledger_Master"};
const test::Lines Transactions = {"0 Voucher Entry fVoucher"};
const test::Lines Reports = {"0 Final Results frmTPL", "3 Day Book frmDayBook", "6 Ledger frmPartyLedger"};

TEST_F(MenuTest, OptionsFollowTheMouseOverTheCategories) {
    InMenu([](qm::frmNewMenu& menu) {
        forms::VSFlexGrid& categories = *menu.ui().vsFinOptions;
        EXPECT_EQ(categories.TextMatrix(10, 0), "\tTransactions");
        EXPECT_THAT(Shown(menu), IsEmpty());
        const std::pair<int, test::Lines> walk[] = {
            {5, Masters}, {7, Masters}, {15, Reports}, {0, Reports}, {10, Transactions}};
        for (const auto& [row, options] : walk) {
            Hover(categories, row);
            EXPECT_THAT(Shown(menu), ElementsAreArray(options)) << "row " << row;
        }
    });
}

TEST_F(MenuTest, OnlyALiveOptionIsMarkedAndBearsTheHand) {
    InMenu([](qm::frmNewMenu& menu) {
        forms::VSFlexGrid& options = *menu.ui().vsOptions;
        const auto pointer = [&] { return options.viewport()->cursor().shape(); };
        Hover(*menu.ui().vsFinOptions, 10);
        Hover(options, 0, 1);
        EXPECT_EQ(Marked(menu), 0);
        EXPECT_EQ(pointer(), Qt::BitmapCursor) << "the picture of imgMouseIcon";
        Hover(options, 3, 1);
        EXPECT_EQ(Marked(menu), -1);
        EXPECT_EQ(pointer(), Qt::ArrowCursor);
        QTest::mousePress(options.viewport(), Qt::LeftButton, {}, Place(options, 6, 1));
        EXPECT_EQ(Marked(menu), 6);
        QTest::mouseRelease(options.viewport(), Qt::LeftButton, {}, Place(options, 6, 1));
        EXPECT_EQ(Marked(menu), -1) << "a click on a row without a key does nothing";
    });
}

// The mouse goes on with its button held: what it comes to is marked, what it left no longer.
TEST_F(MenuTest, AReleaseElsewhereMarksNoSecondRow) {
    InMenu([](qm::frmNewMenu& menu) {
        const auto drag = [](forms::VSFlexGrid& grid, int from, int to, int col) {
            QTest::mousePress(grid.viewport(), Qt::LeftButton, {}, Place(grid, from, col));
            Hover(grid.viewport(), Place(grid, to, col), Qt::LeftButton);
            QTest::mouseRelease(grid.viewport(), Qt::LeftButton, {}, {-5, -5});  // outside: no click
        };
        forms::VSFlexGrid& categories = *menu.ui().vsFinOptions;
        const auto colour = [&](int row) { return categories.CellBackColor(row, 0); };
        Hover(categories, 5);
        const unsigned shown = colour(5);
        QTest::mousePress(categories.viewport(), Qt::LeftButton, {}, Place(categories, 5, 0));
        EXPECT_NE(colour(5), shown);
        QTest::mousePress(categories.viewport(), Qt::RightButton, {}, Place(categories, 5, 0));
        QTest::mouseRelease(categories.viewport(), Qt::RightButton, {}, Place(categories, 5, 0));
        QTest::mouseRelease(categories.viewport(), Qt::LeftButton, {}, Place(categories, 5, 0));
        EXPECT_EQ(colour(5), shown);
        drag(categories, 5, 15, 0);
        EXPECT_EQ(colour(5), forms::NoColor);
        EXPECT_EQ(colour(15), shown);

        forms::VSFlexGrid& options = *menu.ui().vsOptions;
        drag(options, 0, 3, 1);
        EXPECT_EQ(Marked(menu), 3);
    });
}

// The key decides, by whatever row it is borne: the items' screen is known though no row leads to it.
TEST_F(MenuTest, DispatchesByTheKeyOfTheRow) {
    InMenu([this](qm::frmNewMenu& menu) {
        const struct {
            const char *key, *screen;
        } keys[] = {{"ItemMaster", "ItemMaster"}, {"fVoucher", "frmVoucher"}, {"frmVoucher", ""},
                    {"frmReceipt", ""},           {"frmNobody", ""},          {"", ""}};
        for (const auto& [key, screen] : keys) {
            SCOPED_TRACE(key);
            menu.ui().vsOptions->SetCellData(6, 1, key);
            if (*screen) script.Modal(screen);
            ClickCell(*menu.ui().vsOptions, 6, 1);
            EXPECT_EQ(script.LeftOver(), 0U);
        }
    });
}

TEST_F(MenuTest, ReadsTheCurrentYearAtItsStart) {
    Run("Insert Into Fnncl_Yr_Mstr (Fnncl_Yr) Values ('2002-2003')");
    Run("Update Fnncl_Yr_Mstr Set Crrnt_Yr_Flg = False Where Fnncl_Yr = '2001-2002'");
    Run("Update Fnncl_Yr_Mstr Set Crrnt_Yr_Flg = True Where Fnncl_Yr = '2002-2003'");
    EXPECT_EQ(qm::shared().FinYear, "2001");
    InMenu([](qm::frmNewMenu&) { EXPECT_EQ(qm::shared().FinYear, "2002"); });
}

// A host in any language: the class through its factory, dataPath, the menu, and out again. Every option
// opens its screen, and the menu is live again afterwards; rows without one do nothing.
TEST_F(MenuTest, AHostThroughTheFactoryWalksAllScreens) {
    const std::u16string path = basic::ToUtf16(books.DataPath());
    books.CloseHost();
    void *factory = nullptr, *object = nullptr;
    ASSERT_EQ(DllGetClassObject(CLSID_clQm, IID_IClassFactory, &factory), S_OK);
    ASSERT_EQ(static_cast<IClassFactory*>(factory)->CreateInstance(nullptr, IID__clQm, &object), S_OK);
    static_cast<IClassFactory*>(factory)->Release();
    auto* const host = static_cast<_clQm*>(object);
    BSTR dataPath = SysAllocString(path.c_str());
    EXPECT_EQ(host->put_dataPath(dataPath), S_OK);
    SysFreeString(dataPath);
    script.Modal("frmNewMenu", [&](forms::Form& form) {
        auto& menu = dynamic_cast<qm::frmNewMenu&>(form);
        WalkWithTheMouse(menu);
        Click(menu.ui().lblClose);
    });
    EXPECT_EQ(host->QmMainMenu(), S_OK);
    EXPECT_EQ(host->Release(), 0U);
    books.OpenHost();
    EXPECT_THAT(host::Audit::Run(), IsEmpty());
}

TEST_F(MenuTest, WalksAllScreensWithTheKeyboard) {
    InMenu([&](qm::frmNewMenu& menu) {
        const auto focused = [&] { return menu.ActiveControl()->Name(); };
        EXPECT_EQ(focused(), "vsFinOptions");
        for (const auto& [category, screens] : Screens) {
            Key(menu, Qt::Key_Down);
            EXPECT_EQ(menu.ui().vsFinOptions->Row(), category);
            Key(menu, Qt::Key_Right);
            EXPECT_EQ(focused(), "vsOptions");
            int row = 0;
            for (const std::string& screen : screens) {
                EXPECT_EQ(Marked(menu), row) << screen;
                script.Modal(screen);
                Key(menu, Qt::Key_Return);
                EXPECT_EQ(script.LeftOver(), 0U);
                Key(menu, Qt::Key_Down);
                row += 3;
            }
            EXPECT_EQ(Marked(menu), row - 3) << "there is none below the last";
            Key(menu, Qt::Key_Left);
            EXPECT_EQ(Marked(menu), -1);
        }
        Key(menu, Qt::Key_M, Qt::AltModifier);
        EXPECT_THAT(Shown(menu), ElementsAreArray(Masters));
        script.Modal("frmFinYear");
        Key(menu, Qt::Key_S, Qt::AltModifier);
        EXPECT_EQ(script.LeftOver(), 0U);
        Key(menu, Qt::Key_Escape);
        EXPECT_FALSE(menu.Loaded());
    });
}

TEST_F(MenuTest, LabelsTurnRedUnderTheMouseAndTheBackgroundMovesTheWindow) {
    InMenu([](qm::frmNewMenu& menu) {
        const unsigned calm = menu.ui().lblClose->ForeColor();
        for (forms::Label* label : {menu.ui().lblClose, menu.ui().lblMinimize}) {
            Hover(label, {5, 5});
            EXPECT_EQ(label->ForeColor(), forms::vbRed);
        }
        Hover(menu.ui().lblTitle, {5, 5});
        EXPECT_EQ(menu.ui().lblClose->ForeColor(), calm);
        EXPECT_EQ(menu.ui().lblMinimize->ForeColor(), calm);

        const QPoint before = menu.Window()->pos();
        const auto drag = [&](forms::Label* label) {
            QTest::mousePress(label, Qt::LeftButton, {}, {4, 4});
            Hover(label, {24, 14}, Qt::LeftButton);
        };
        drag(menu.ui().lblClose);
        EXPECT_EQ(menu.Window()->pos(), before) << "a label that is clicked drags nothing";
        drag(menu.ui().lblTitle);
        EXPECT_EQ(menu.Window()->pos(), before + QPoint(20, 10));
        QTest::mouseRelease(menu.ui().lblTitle, Qt::LeftButton, {}, {4, 4});
        Click(menu.ui().lblMinimize);
        EXPECT_TRUE(menu.Window()->isMinimized());
    });
}

TEST_F(MenuTest, BooksThatCannotBeOpenedAreTheHostsError) {
    books.CloseHost();
    qm::clQm host;
    host.dataPath("");
    EXPECT_THROW(host.QmMainMenu(), basic::Error);
    EXPECT_FALSE(forms::Default<qm::frmNewMenu>().Loaded());
}

}  // namespace
