// Every screen as a screen reader and the keyboard meet it: names, roles, the way of Tab, letters behind Alt.
#include <QAbstractButton>
#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <algorithm>
#include <map>

#include "inventory/frmItemList.h"
#include "purchasing/frmPOReceipt.h"
#include "reports/frmLedger.h"
#include "screens/ScreenTable.h"
#include "shell/frmNewMenu.h"
#include "shell/frmSearchAndLookUp.h"
#include "tests/screens/ScreenFixture.h"
#include "years/frmClosingBal.h"
#include "years/frmNewFinYear.h"

using namespace testing;

namespace {

using forms::Control;

template <class F>
void ShowModal() {
    forms::Default<F>().Show(forms::vbModal);
}

// The screens that only others open.
constexpr struct {
    const char* Form;
    void (*Open)();
} InnerScreens[] = {
    {"frmNewMenu", [] { forms::Default<qm::frmNewMenu>().Load(qm::ScreenTable()); }},
    {"frmNewFinYear", ShowModal<qm::frmNewFinYear>},
    {"frmClosingBal", [] { forms::Default<qm::frmClosingBal>().Load(1); }},
    {"frmSearchAndLookUp",
     [] {
         forms::Default<qm::frmSearchAndLookUp>().BaseQuery = "Select Ledger_ID, Name From Ledger_Master";
         forms::Default<qm::frmSearchAndLookUp>().ui().mylbl->SetCaption(" Enter Ledger Name   ");
         ShowModal<qm::frmSearchAndLookUp>();
     }},
    {"frmItemList", [] { forms::Default<qm::frmItemList>().Load(); }},
    {"frmPOReceipt", [] { forms::Default<qm::frmPOReceipt>().Load(1); }},
    {"frmLedger", ShowModal<qm::frmLedger>},
};

class EveryScreen : public test::ScreenTest, public WithParamInterface<std::string> {
  protected:
    EveryScreen() {
        books.AddLedger("Cash", "Cash in Hand");
        books.AddLedger("Sales", "Sales");
        Run("Insert Into tblPO2001 (PoNumber, PoDate) Values (1, 37000)");
        Run("Insert Into tblPODet2001 (PoDetPoNo, PoDetItemID, PoDetQtyOrder) Values (1, 1, 2)");
        Run("Insert Into ItemMaster2001 (Item_ID, Item_Name) Values (1, 'Coal')");
    }
    // Opens the screen as the menu or a user does, and looks at it.
    void Visit(const std::function<void(QWidget&)>& look) {
        script.Modal(GetParam(), [&](forms::Form& form) { look(*form.Window()); });
        if (const qm::ScreenEntry* screen = qm::ScreenByForm(GetParam())) return screen->Open();
        for (const auto& inner : InnerScreens)
            if (inner.Form == GetParam()) inner.Open();
    }
    // The controls that a user can come to now, as Tab reaches them.
    static std::vector<QWidget*> Stops(QWidget& window) {
        std::vector<QWidget*> stops;
        QWidget* widget = &window;
        do {
            const auto* control = dynamic_cast<Control*>(widget);
            if (control && control->TakesFocus() && widget->isVisibleTo(&window) && widget->isEnabled() &&
                (widget->focusPolicy() & Qt::TabFocus))
                stops.push_back(widget);
            widget = widget->nextInFocusChain();
        } while (widget != &window);
        return stops;
    }
    static std::string Name(const QWidget& widget) { return widget.objectName().toStdString(); }
};

TEST_P(EveryScreen, NamesEachControlForAScreenReader) {
    Visit([](QWidget& window) {
        for (QWidget* widget : window.findChildren<QWidget*>()) {
            const auto* control = dynamic_cast<Control*>(widget);
            if (!control || !control->TakesFocus()) continue;
            QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(widget);
            ASSERT_TRUE(seen) << Name(*widget);
            EXPECT_FALSE(seen->text(QAccessible::Name).trimmed().isEmpty()) << Name(*widget);
            if (const auto* box = qobject_cast<QComboBox*>(widget); box && box->isEditable()) {
                EXPECT_FALSE(box->lineEdit()->accessibleName().isEmpty())
                    << Name(*widget) << " as it is typed";
            }
            EXPECT_THAT(seen->role(), AllOf(Ne(QAccessible::NoRole), Ne(QAccessible::Client)))
                << Name(*widget);
        }
    });
}

// Down the window and, within a line, to the right; a container is left when all in it was passed.
TEST_P(EveryScreen, TabGoesInReadingOrder) {
    Visit([](QWidget& window) {
        const std::vector<QWidget*> stops = Stops(window);
        EXPECT_FALSE(stops.empty());
        for (std::size_t i = 1; i < stops.size(); ++i) {
            if (stops[i]->parentWidget() != stops[i - 1]->parentWidget()) continue;
            const QRect before = stops[i - 1]->geometry(), next = stops[i]->geometry();
            const bool below = next.top() >= before.bottom() - before.height() / 2;
            const bool right = next.left() >= before.right();
            EXPECT_TRUE(below || right) << Name(*stops[i - 1]) << " leads to " << Name(*stops[i]);
        }
    });
}

// Of 1280 x 800 dots at twice the density, less what the system puts around a window.
TEST_P(EveryScreen, FitsASmallDisplay) {
    Visit([](QWidget& window) {
        const QSize room(640 - 8, 400 - 36);
        const QSize least = window.minimumSizeHint().expandedTo(window.minimumSize());
        EXPECT_EQ(least.boundedTo(room), least) << least.width() << " x " << least.height();
    });
}

// Letters that captions of a screen share as they were given: they only move the focus between their
// controls.
const std::multimap<std::string, std::string> SharedLetters = {
    {"ItemMaster", "Alt+N"}, {"frmPO", "Alt+S"},      {"frmPOReceipt", "Alt+R"},
    {"frmReceipt", "Alt+D"}, {"frmReceipt", "Alt+R"}, {"frmReceipt", "Alt+S"}};

bool IsShared(const std::string& screen, const std::string& letter) {
    const auto [first, last] = SharedLetters.equal_range(screen);
    return std::any_of(first, last, [&](const auto& entry) { return entry.second == letter; });
}

TEST_P(EveryScreen, HasNoTwoControlsBehindOneLetter) {
    Visit([](QWidget& window) {
        std::map<std::string, std::string> letters;
        for (QWidget* widget : window.findChildren<QWidget*>()) {
            const auto* button = qobject_cast<QAbstractButton*>(widget);
            const auto* label = qobject_cast<QLabel*>(widget);
            if (!dynamic_cast<Control*>(widget) || !widget->isVisibleTo(&window)) continue;
            const QString text = button ? button->text() : label ? label->text() : QString();
            const QString letter = QKeySequence::mnemonic(text).toString();
            if (letter.isEmpty() || IsShared(GetParam(), letter.toStdString())) continue;
            const auto [other, isFirst] = letters.emplace(letter.toStdString(), Name(*widget));
            EXPECT_TRUE(isFirst) << letter.toStdString() << ": " << other->second << " and " << Name(*widget);
        }
    });
}

std::vector<std::string> Screens() {
    std::vector<std::string> names;
    for (const qm::ScreenEntry& screen : qm::ScreenTable()) names.emplace_back(screen.Form);
    for (const auto& inner : InnerScreens) names.emplace_back(inner.Form);
    return names;
}

INSTANTIATE_TEST_SUITE_P(All, EveryScreen, ValuesIn(Screens()),
                         [](const auto& screen) { return screen.param; });

}  // namespace
