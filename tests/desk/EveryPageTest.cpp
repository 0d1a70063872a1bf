// What holds on every page of the desk, with whatever lies over it.
#include <QAbstractButton>
#include <QAccessible>
#include <QFile>
#include <QLineEdit>
#include <QRegularExpression>
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

    test::TempFolder folder;
};

TEST_F(EveryPageTest, EachControlHasANameForWhoDoesNotSeeItAndALetterOfItsOwn) {
    std::set<std::string> nameless;
    Walk([&](const std::string& page, QWidget& shown) {
        std::map<QKeySequence, QString> letters;
        for (QWidget* const widget : Visible<QWidget>(shown)) {
            const std::string what =
                page + ": " + widget->metaObject()->className() + " " + widget->objectName().toStdString();
            if (widget->focusPolicy() != Qt::NoFocus && widget->isEnabled() && !widget->focusProxy()) {
                QAccessibleInterface* const face = QAccessible::queryAccessibleInterface(widget);
                if (!face || face->text(QAccessible::Name).trimmed().isEmpty()) nameless.insert(what);
                if (face && face->role() == QAccessible::Client && widget->objectName() != "page")
                    nameless.insert(what + " has no role");
            }
        }
        const auto take = [&](const QString& caption) {
            const QKeySequence letter = QKeySequence::mnemonic(caption);
            if (letter.isEmpty()) return;
            const auto [at, isNew] = letters.emplace(letter, caption);
            EXPECT_TRUE(isNew) << page << ": " << at->second.toStdString() << " and "
                               << caption.toStdString();
        };
        for (auto* const button : Visible<QAbstractButton>(shown)) take(button->text());
        for (auto* const bar : Visible<QTabBar>(shown))
            for (int tab = 0; tab < bar->count(); ++tab) take(bar->tabText(tab));
    });
    EXPECT_THAT(nameless, testing::IsEmpty());
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
        static const std::set<QString> data{"firm", "place", "title", "subtitle", "emptyText"};
        for (auto* const label : Visible<QLabel>(shown))
            if (!data.contains(label->objectName())) look(label->text());
        for (auto* const button : Visible<QAbstractButton>(shown)) look(button->text());
        for (auto* const box : Visible<QLineEdit>(shown)) look(box->placeholderText());
        for (auto* const list : Visible<QAbstractItemView>(shown))
            if (list->objectName() != "manual") look(list->accessibleName());
    });
    QCoreApplication::removeTranslator(&marking);
    EXPECT_THAT(marking.missing, testing::IsEmpty());
    EXPECT_THAT(bare, testing::IsEmpty());
}

}  // namespace
