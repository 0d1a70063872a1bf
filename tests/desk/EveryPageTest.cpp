// What holds on every page of the desk, with whatever lies over it.
#include <QAbstractButton>
#include <QAccessible>
#include <QFile>
#include <QLineEdit>
#include <QRegularExpression>
#include <QShortcut>
#include <QTabBar>
#include <QTranslator>
#include <map>
#include <set>

#include "tests/desk/DeskFixture.h"
#include "tools/desktour/DeskTour.h"

namespace {

// Marks every text that went through the desk's own file, and remembers those that the file does not have.
class Marking : public QTranslator {
  public:
    Marking() { loaded = load(":/desk/translations/desk_en.qm"); }
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* source, const char* remark, int count) const override {
        const QString text = QTranslator::translate(context, source, remark, count);
        if (!text.isNull()) return text + Mark;
        static const std::set<std::string> bases{"QWidget",    "QFrame",      "QObject",
                                                 "QChartView", "QListWidget", "QToolButton"};
        const bool ours = std::string(context).starts_with("desk::") || bases.contains(context);
        const bool isData =
            std::string(context) == "desk::Heads" && QRegularExpression("\\d").match(source).hasMatch();
        if (ours && !isData) missing.insert(std::string(context) + ": " + source);
        return {};
    }

    static constexpr QChar Mark{0x2021};
    bool loaded = false;
    mutable std::set<std::string> missing;
};

class EveryPageTest : public test::DeskTest {
  protected:
    void SetUp() override { QM_FILE_ONLY("the walk lays down books of its own"); }
    void Walk(const std::function<void(const std::string& page, QWidget& shown)>& look) {
        books.CloseHost();
        desk = std::make_unique<desk::DeskWindow>();
        desk->resize(1000, 700);
        desk->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(desk.get()));
        tour::DeskTour(folder.Path()).Walk(*desk, look);
    }
    template <class W>
    static std::vector<W*> Visible(QWidget& shown) {
        std::vector<W*> found;
        for (W* const widget : shown.findChildren<W*>())
            if (widget->isVisible()) found.push_back(widget);
        return found;
    }

    // Those that Tab reaches.
    static std::vector<QWidget*> Controls(QWidget& shown) {
        std::vector<QWidget*> found;
        for (QWidget* const widget : Visible<QWidget>(shown))
            if ((widget->focusPolicy() & Qt::TabFocus) && widget->isEnabled() && !widget->focusProxy())
                found.push_back(widget);
        return found;
    }
    // Tables share theirs: the one that has the focus takes it. So do parts of a page that lie beside each
    // other.
    static bool Clash(const QShortcut& a, const QShortcut& b) {
        const auto &first = *qobject_cast<QWidget*>(a.parent()),
                   &second = *qobject_cast<QWidget*>(b.parent());
        if (a.key() != b.key() || !first.isVisible() || !second.isVisible()) return false;
        if (dynamic_cast<const desk::SheetView*>(&first) && dynamic_cast<const desk::SheetView*>(&second))
            return false;
        const bool within = a.context() == Qt::WidgetWithChildrenShortcut && b.context() == a.context();
        return !within || &first == &second || first.isAncestorOf(&second) || second.isAncestorOf(&first);
    }
    static std::string NameOf(const QWidget& widget) {
        return widget.metaObject()->className() + (" " + widget.objectName().toStdString());
    }

    test::TempFolder folder;
};

TEST_F(EveryPageTest, EachControlHasANameForWhoDoesNotSeeItAndALetterAndAKeyOfItsOwn) {
    std::set<std::string> faults;
    Walk([&](const std::string& page, QWidget& shown) {
        for (QWidget* const widget : Controls(shown)) {
            const std::string what = page + ": " + NameOf(*widget);
            QAccessibleInterface* const face = QAccessible::queryAccessibleInterface(widget);
            if (!face || face->text(QAccessible::Name).trimmed().isEmpty())
                faults.insert(what + " has no name");
            if (!face || face->role() == QAccessible::Client) faults.insert(what + " has no role");
        }
        std::map<QKeySequence, QString> letters;
        const auto take = [&](const QString& caption) {
            const QKeySequence letter = QKeySequence::mnemonic(caption);
            if (!letter.isEmpty() && !letters.emplace(letter, caption).second)
                faults.insert(page + ": " + caption.toStdString() + " shares its letter");
        };
        for (auto* const button : Visible<QAbstractButton>(shown)) take(button->text());
        for (auto* const bar : Visible<QTabBar>(shown))
            for (int tab = 0; tab < bar->count(); ++tab) take(bar->tabText(tab));
        for (auto* const action : shown.actions()) take(action->text());
        const auto keys = shown.findChildren<QShortcut*>();
        for (auto a = keys.begin(); a != keys.end(); ++a)
            for (auto b = std::next(a); b != keys.end(); ++b)
                if (Clash(**a, **b))
                    faults.insert(page + ": two take " + (*a)->key().toString().toStdString());
    });
    EXPECT_THAT(faults, testing::IsEmpty());
}

// From the first control of the page downwards, and in a row from left to right.
TEST_F(EveryPageTest, TabGoesThroughThePageAsItIsRead) {
    std::set<std::string> faults;
    Walk([&](const std::string& page, QWidget&) {
        if (!desk->Shown() || page.find("overview") != page.npos) return;  // from chart to chart
        std::vector<QWidget*> controls = Controls(*desk->Shown());
        QWidget* last = nullptr;
        for (QWidget* at = desk->Shown()->nextInFocusChain(); at != desk->Shown();
             at = at->nextInFocusChain()) {
            if (std::ranges::find(controls, at) == controls.end()) continue;
            const auto place = [&](QWidget& of) {
                return QRect(of.mapTo(desk->Shown(), QPoint()), of.size());
            };
            if (last && place(*at).bottom() < place(*last).top())
                faults.insert(page + ": " + NameOf(*at) + " comes after " + NameOf(*last));
            last = at;
        }
    });
    EXPECT_THAT(faults, testing::IsEmpty());
}

TEST_F(EveryPageTest, TheManualHasTheChapterOfEach) {
    QFile manual(":/desk/manual.md");
    ASSERT_TRUE(manual.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(manual.readAll());
    Walk([&](const std::string& page, QWidget&) {
        if (!desk->Shown() || page == "manual") return;
        const QString chapter = desk->Shown()->Chapter();
        EXPECT_TRUE(QRegularExpression("^#+ " + QRegularExpression::escape(chapter) + "$",
                                       QRegularExpression::MultilineOption)
                        .match(text)
                        .hasMatch())
            << page << " asks for '" << chapter.toStdString() << "'";
    });
}

TEST_F(EveryPageTest, EachTextComesFromTheFilesOfItsLanguage) {
    Marking marking;
    ASSERT_TRUE(marking.loaded);
    std::set<std::string> bare;
    desk = std::make_unique<desk::DeskWindow>();  // the desk's own texts first: the marks lie over them
    QCoreApplication::installTranslator(&marking);
    Walk([&](const std::string& page, QWidget& shown) {
        const auto look = [&](const QString& text) {
            static const QRegularExpression word("[A-Za-z]{3}");
            if (word.match(text).hasMatch() && !text.contains(Marking::Mark))
                bare.insert(page + ": " + text.toStdString());
        };
        // What comes from the books, from a failure or from the toolkit.
        static const std::set<QString> data{"firm",      "place",      "title",     "subtitle",
                                            "emptyText", "noticeText", "noticeMore"};
        for (auto* const label : Visible<QLabel>(shown))
            if (!data.contains(label->objectName())) look(label->text());
        for (auto* const button : Visible<QAbstractButton>(shown))
            if (!button->property("set").toBool() && page != "keys") look(button->text());
        for (auto* const box : Visible<QLineEdit>(shown)) look(box->placeholderText());
        for (auto* const list : Visible<QAbstractItemView>(shown))
            if (!desk->Shown() || list->accessibleName() != desk->Shown()->Title())
                look(list->accessibleName());
    });
    QCoreApplication::removeTranslator(&marking);
    EXPECT_THAT(marking.missing, testing::IsEmpty());
    EXPECT_THAT(bare, testing::IsEmpty());
}

}  // namespace
