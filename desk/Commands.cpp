#include "desk/Commands.h"

#include <QActionGroup>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QShortcut>
#include <QWidget>
#include <algorithm>
#include <string>
#include <utility>

#include "desk/Desk.h"
#include "desk/PageTable.h"
#include "desk/ScreenList.h"
#include "desk/Theme.h"

namespace desk {

Commands::Commands(QWidget& window, Desk& desk, QMenu& menu) : window_(window), desk_(desk), menu_(menu) {
    QCoreApplication::instance()->installEventFilter(this);
}

void Commands::Add(const QKeySequence& key, std::function<void()> act, const QString& caption) {
    const auto run = [this, act = std::move(act)] { desk_.Try(act); };
    connect(new QShortcut(key, &window_), &QShortcut::activated, this, run);
    if (!caption.isEmpty())
        menu_.addAction(caption + '\t' + key.toString(QKeySequence::NativeText), this, run);
}

void Commands::AddRoads() {
    int number = 0;
    for (const PageEntry& page : PageTable())
        Add(QKeySequence(Qt::ALT | static_cast<Qt::Key>(Qt::Key_1 + number++)),
            [this, key = QString::fromLatin1(page.Key)] { desk_.Go(key); });
    for (const Screen& screen : ScreenList())
        Add(QKeySequence(QString::fromLatin1(screen.Key)),
            [this, form = std::string(screen.Form)] { desk_.OpenScreen(form); });
    Add(QKeySequence(Qt::ALT | Qt::Key_Left), [this] { desk_.Back(); });
}

void Commands::AddLooks() {
    menu_.addSeparator();
    auto* const choices = new QActionGroup(&menu_);
    const std::pair<Theme::Choice, QString> looks[] = {{Theme::Choice::System, tr("Colours of the system")},
                                                       {Theme::Choice::Light, tr("Light colours")},
                                                       {Theme::Choice::Dark, tr("Dark colours")}};
    for (const auto& [choice, caption] : looks) {
        QAction* const action = menu_.addAction(caption);
        action->setCheckable(true);
        action->setChecked(Theme::Chosen() == choice);
        choices->addAction(action);
        connect(action, &QAction::triggered, this, [this, wanted = choice] {
            Theme::Choose(wanted);
            Theme::Apply(window_);
        });
    }
    menu_.addSeparator();
}

// The toolkit takes some of the keys for itself there: Ctrl+E to go to the end of the line, Ctrl+K to delete
// up to there.
bool Commands::eventFilter(QObject* object, QEvent* event) {
    if (event->type() != QEvent::ShortcutOverride) return false;
    const auto* const box = qobject_cast<QLineEdit*>(object);
    const QKeyCombination key = static_cast<QKeyEvent*>(event)->keyCombination();
    if (!box || !window_.isAncestorOf(box) ||
        !(key.keyboardModifiers() & (Qt::ControlModifier | Qt::AltModifier)))
        return false;
    const auto own = window_.findChildren<QShortcut*>();
    const bool isOwn =
        std::ranges::any_of(own, [&](const QShortcut* shortcut) { return shortcut->key() == key; });
    if (isOwn) event->ignore();
    return isOwn;
}

}  // namespace desk
