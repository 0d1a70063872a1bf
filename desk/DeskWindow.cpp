#include "desk/DeskWindow.h"

#include <QActionGroup>
#include <QCloseEvent>
#include <QComboBox>
#include <QCoreApplication>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QScreen>
#include <QShortcut>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "core/Screens.h"
#include "desk/Cures.h"
#include "desk/DeskHead.h"
#include "desk/EmptyState.h"
#include "desk/HelpPage.h"
#include "desk/JobBar.h"
#include "desk/KeyList.h"
#include "desk/NoticeBar.h"
#include "desk/Page.h"
#include "desk/PageList.h"
#include "desk/PageTable.h"
#include "desk/RecentBooks.h"
#include "desk/ScreenList.h"
#include "desk/StatementPage.h"
#include "desk/Theme.h"
#include "desk/Translations.h"
#include "desk/WaitBox.h"

namespace desk {
namespace {

constexpr int LookEvery = 1000;           // milliseconds
constexpr int Narrow = 960, Tight = 720;  // pixels
constexpr std::size_t MostHits = 6;       // of each kind
constexpr std::size_t MostWaysBack = 40;

QString LongForm(const std::string& shortForm) {
    const int year = QString::fromStdString(shortForm).toInt();
    return QString("%1-%2").arg(year).arg(year + 1);
}

}  // namespace

DeskWindow::DeskWindow() {
    LoadTranslations();
    setObjectName("desk");
    setWindowTitle(tr("Accounts"));
    setMinimumSize(480, 320);
    const QSize frame(16, 40);  // what a window manager puts around it
    resize(QSize(1200, 760).boundedTo(screen()->availableSize() - frame));
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    head_ = new DeskHead(
        *this, {.Search = [this](const QString& words, const SearchField::Take& take) { Find(words, take); },
                .LeaveSearch =
                    [this] {
                        if (shown_) shown_->TakeFocus();
                    },
                .WantYear = [this](const std::string& year) { WantYear(year); }});
    notice_ = new NoticeBar(this);
    auto* const row = new QHBoxLayout;
    row->setSpacing(0);
    list_ = new PageList(this, [this](const QString& key) { Go(key); });
    stack_ = new QStackedWidget(this);
    empty_ = new EmptyState(
        tr("No books are open"),
        tr("Open the folder in which the books stand, or lay new ones down with qmhost create."),
        tr("Open a folder\u2026"), [this] { AskForFolder(); });
    stack_->addWidget(empty_);
    row->addWidget(list_);
    row->addWidget(stack_, 1);
    column->addWidget(head_);
    column->addWidget(notice_);
    column->addLayout(row, 1);
    FillMenu();
    AddKeys();
    Theme::Apply(*this);
    head_->ShowBooks(books_);
    QCoreApplication::instance()->installEventFilter(this);
    watch_.setInterval(LookEvery);
    connect(&watch_, &QTimer::timeout, this, [this] { Watch(); });
}

DeskWindow::~DeskWindow() {
    DropPages();
}

void DeskWindow::AddKeys() {
    const auto add = [this](const QKeySequence& key, std::function<void()> act) {
        auto* const shortcut = new QShortcut(key, this);
        connect(shortcut, &QShortcut::activated, this, [this, act = std::move(act)] { Try(act); });
    };
    int number = 0;
    for (const PageEntry& page : PageTable())
        add(QKeySequence(Qt::ALT | static_cast<Qt::Key>(Qt::Key_1 + number++)),
            [this, key = QString::fromLatin1(page.Key)] { Go(key); });
    for (const Screen& screen : ScreenList())
        add(QKeySequence(QString::fromLatin1(screen.Key)),
            [this, form = std::string(screen.Form)] { OpenScreen(form, {}); });
    add(QKeySequence(Qt::CTRL | Qt::Key_K), [this] { head_->Search().Begin(); });
    add(QKeySequence(Qt::CTRL | Qt::Key_Y), [this] { head_->findChild<QComboBox*>("year")->showPopup(); });
    add(QKeySequence(Qt::ALT | Qt::Key_Left), [this] { Back(); });
    add(QKeySequence(Qt::Key_Escape), [this] { Escape(); });
    add(QKeySequence(Qt::Key_F5), [this] {
        if (shown_) shown_->Refresh();
    });
    add(QKeySequence::HelpContents, [this] { ShowManual(); });
    add(QKeySequence(Qt::Key_Question), [this] { TellKeys(); });
    add(QKeySequence(Qt::CTRL | Qt::Key_O), [this] { AskForFolder(); });
    add(QKeySequence(Qt::CTRL | Qt::Key_Q), [this] { close(); });
}

void DeskWindow::FillMenu() {
    QMenu& menu = head_->Menu();
    menu.addAction(tr("Open a folder\u2026\tCtrl+O"), this, [this] { Try([this] { AskForFolder(); }); });
    menu.addAction(tr("Bring up to date\tF5"), this, [this] {
        if (shown_) Try([this] { shown_->Refresh(); });
    });
    menu.addAction(tr("Manual\tF1"), this, [this] { ShowManual(); });
    menu.addAction(tr("Keys of this page\t?"), this, [this] { TellKeys(); });
    menu.addSeparator();
    auto* const choices = new QActionGroup(&menu);
    const std::pair<Theme::Choice, QString> looks[] = {{Theme::Choice::System, tr("Colours of the system")},
                                                       {Theme::Choice::Light, tr("Light colours")},
                                                       {Theme::Choice::Dark, tr("Dark colours")}};
    for (const auto& [choice, caption] : looks) {
        QAction* const action = menu.addAction(caption);
        action->setCheckable(true);
        action->setChecked(Theme::Chosen() == choice);
        choices->addAction(action);
        connect(action, &QAction::triggered, this, [this, wanted = choice] {
            Theme::Choose(wanted);
            Theme::Apply(*this);
        });
    }
    menu.addSeparator();
    menu.addAction(tr("Leave\tCtrl+Q"), this, [this] { close(); });
}

void DeskWindow::TellKeys() {
    if (shown_) ShowKeys(*this, *shown_);
}

void DeskWindow::ShowManual() {
    if (!dynamic_cast<HelpPage*>(shown_)) Push(new HelpPage(*this, shown_ ? shown_->Chapter() : ""));
}

void DeskWindow::AskForFolder() {
    const QString folder = QFileDialog::getExistingDirectory(this, tr("Folder of the books"), books_.Place());
    if (!folder.isEmpty()) OpenBooks(folder.toStdString());
}

void DeskWindow::OpenBooks(const std::string& address) {
    const std::string before = books_.AreOpen() ? books_.Address() : "";
    DropPages();
    toldYear_.clear();
    if (Try([&] { books_.Open(address); }))
        notice_->Dismiss();
    else if (!before.empty() && before != address)
        Try([&] { books_.Open(before); });
    ShowHead();
    list_->setEnabled(books_.AreOpen());
    if (books_.AreOpen()) {
        RecentBooks::Add(books_.Place());
        setWindowTitle(tr("%1 \u2013 Accounts").arg(books_.Name()));
        watch_.start();
        Go(QString::fromLatin1(PageTable().front().Key));
    } else {
        watch_.stop();
        setWindowTitle(tr("Accounts"));
        ShowNone();
    }
}

void DeskWindow::Reopen(const std::string& address, const std::function<QString()>& meanwhile) {
    QTimer::singleShot(0, this, [this, address, meanwhile] {
        if (!meanwhile) return OpenBooks(address);
        DropPages();
        books_.Close();
        QString note;
        std::exception_ptr failure;
        try {
            WaitBox(this, tr("The books are being put in their place\u2026")).RunAside([&] {
                note = meanwhile();
            });
        } catch (...) {
            failure = std::current_exception();
        }
        OpenBooks(address);
        if (failure)
            Try([&] { std::rethrow_exception(failure); });
        else if (books_.AreOpen() && !note.isEmpty())
            Note(note);
    });
}

void DeskWindow::Run() {
    show();
    loop_.exec();
}

void DeskWindow::DropPages() {
    watch_.stop();
    watchFailed_ = false;
    qDeleteAll(std::exchange(writing_, {}));
    shown_ = nullptr;
    history_.clear();
    pages_.clear();
    upToDate_.clear();
    while (stack_->count() > 1) delete stack_->widget(1);  // the first is the empty state
}

void DeskWindow::Go(const QString& key) {
    if (!books_.AreOpen()) return;
    Try([&] {
        const auto pages = PageTable();
        const auto entry =
            std::find_if(pages.begin(), pages.end(), [&](const PageEntry& each) { return key == each.Key; });
        if (entry == pages.end()) return;
        Page*& page = pages_[key];
        if (!page) {
            page = entry->Make(*this);
            stack_->addWidget(page);
            upToDate_[page] = changes_;
        }
        if (shown_ != page) KeepWayBack();
        Show(page);
    });
}

void DeskWindow::Push(Page* page) {
    stack_->addWidget(page);
    upToDate_[page] = changes_;
    KeepWayBack();
    Show(page);
}

// To what is shown now. Of very many the oldest is given up: a page may hold the rows of a long list.
void DeskWindow::KeepWayBack() {
    if (!shown_) return;
    history_.push_back(shown_);
    if (history_.size() <= MostWaysBack) return;
    Page* const oldest = history_.front();
    history_.erase(history_.begin());
    Drop(oldest);
}

void DeskWindow::Back() {
    Page* const left = shown_;
    if (!history_.empty()) {
        Page* const to = history_.back();
        history_.pop_back();
        Show(to);
    } else if (!books_.AreOpen()) {
        ShowNone();
    }
    if (left && left != shown_) Drop(left);
}

// A page of the list stays, and so does one to which a way leads back.
void DeskWindow::Drop(Page* page) {
    const bool ofTheList =
        std::any_of(pages_.begin(), pages_.end(), [&](const auto& each) { return each.second == page; });
    if (ofTheList || page == shown_ || std::ranges::count(history_, page) > 0) return;
    upToDate_.erase(page);
    page->deleteLater();
}

void DeskWindow::Show(Page* page) {
    if (shown_ && shown_ != page) shown_->KeepFocus();
    shown_ = page;
    stack_->setCurrentWidget(page);
    for (const auto& [key, each] : pages_)
        if (each == page) list_->Mark(key);
    if (std::exchange(upToDate_[page], changes_) != changes_) Try([&] { page->Refresh(); });
    page->TakeFocus();
}

void DeskWindow::ShowNone() {
    shown_ = nullptr;
    stack_->setCurrentWidget(empty_);
    empty_->setFocus();
}

bool DeskWindow::ShowHead() {
    return Try([this] { head_->ShowBooks(books_); });
}

void DeskWindow::Escape() {
    if (notice_->isVisible()) {
        notice_->Dismiss();
        if (shown_) shown_->TakeFocus();
    } else {
        Back();
    }
}

void DeskWindow::OpenScreen(const std::string& form, const std::string& record) {
    InScreen([&] { qm::OpenScreen(form, record); });
}

void DeskWindow::CopyVoucher(std::int32_t number) {
    InScreen([&] { qm::CopyVoucher(number); });
}

void DeskWindow::InScreen(const std::function<void()>& open) {
    if (!books_.AreOpen()) return;
    if (shown_) shown_->KeepFocus();
    try {
        books_.RequireFile();
    } catch (const basic::Error& error) {
        return TellLost(error);  // what a screen wrote would go where nobody looks for it
    }
    Try(open);
    LookForChanges();
    activateWindow();
    if (shown_) shown_->TakeFocus();
}

void DeskWindow::WriteFile(const QString& what, std::function<void(queries::Reading&, Worker::Job&)> work,
                           const QString& done) {
    std::erase_if(writing_, [](JobBar* bar) {
        if (!bar->Running()) bar->deleteLater();
        return !bar->Running();
    });
    JobBar* const bar = writing_.emplace_back(new JobBar(this));
    layout()->addWidget(bar);
    bar->Run(books_.Writer(), what, std::move(work), [this, done](std::exception_ptr failure) {
        const bool stands = Try([&] {
            if (failure) std::rethrow_exception(failure);
        });
        if (stands) Note(done);
    });
}

bool DeskWindow::Try(const std::function<void()>& work) {
    try {
        work();
        return true;
    } catch (const basic::Error& error) {
        Tell(error);
    } catch (const std::exception& error) {
        notice_->Show(NoticeBar::Kind::Fault, QString::fromUtf8(error.what()));
    }
    return false;
}

void DeskWindow::Tell(const basic::Error& error) {
    QString more;
    if (const auto cure = CureOf(error)) more = tr("Why: %1. What to do: %2.").arg(cure->Cause, cure->Remedy);
    notice_->Show(NoticeBar::Kind::Fault, QString::fromStdString(error.Description), more);
}

void DeskWindow::Note(const QString& text) {
    notice_->Show(NoticeBar::Kind::Note, text);
}

// A server may be long in answering: whether it does is seen aside first.
void DeskWindow::Watch() {
    if (!books_.OnServer()) return LookForChanges();
    if (!look_.expired()) return;
    look_ = books_.Watcher().Start(
        *this, [](queries::Reading& books, Worker::Job&) { books.ChangedByOthers(); },
        [this](std::exception_ptr failure) {
            TakeLook([&] {
                if (failure) std::rethrow_exception(failure);
                return books_.Changed();
            });
        });
}

void DeskWindow::LookForChanges() {
    TakeLook([this] {
        books_.RequireFile();
        return books_.Changed();
    });
}

// A failure is told once, not every second.
void DeskWindow::TakeLook(const std::function<bool()>& changed) {
    try {
        const bool changedNow = changed();
        const bool isBack = std::exchange(watchFailed_, false);
        if (isBack) Note(tr("The books can be read again."));
        if (changedNow || isBack) ShowChanges();
    } catch (const basic::Error& error) {
        if (!std::exchange(watchFailed_, true)) TellLost(error);
    }
}

void DeskWindow::ShowChanges() {
    ++changes_;
    head_->ShowBooks(books_);
    TellOtherYear();
    if (!shown_) return;
    upToDate_[shown_] = changes_;
    shown_->Refresh();
}

// Where another file stands in the place of the books, it is a key away.
void DeskWindow::TellLost(const basic::Error& error) {
    if (books_.IsFileThere()) return Tell(error);
    const auto cure = CureOf(error);
    notice_->Show(NoticeBar::Kind::Fault, QString::fromStdString(error.Description),
                  cure ? tr("Why: %1. What to do: %2.").arg(cure->Cause, cure->Remedy) : QString(),
                  {{tr("Open what stands there"), [this] { OpenBooks(std::string(books_.Address())); }}});
}

// The flag of the current year was moved elsewhere: this program goes on in its own until the user follows.
void DeskWindow::TellOtherYear() {
    const auto other = books_.OtherYear();
    if (!other || *other == toldYear_) return;
    toldYear_ = *other;
    notice_->Show(NoticeBar::Kind::Note,
                  tr("The current year of these books is %1 now.").arg(LongForm(*other)),
                  tr("This window and its screens still work in %1.").arg(LongForm(books_.YearInForce())),
                  {{tr("Work in %1").arg(LongForm(*other)), [this, year = *other] { SwitchYear(year); }},
                   {tr("Stay"), {}}});
}

void DeskWindow::WantYear(const std::string& shortForm, const std::function<void()>& then) {
    if (!ShowHead()) return;  // the list shows the year in force until it is another
    if (shortForm == books_.YearInForce()) return;
    const QString wanted = LongForm(shortForm), now = LongForm(books_.YearInForce());
    notice_->Show(
        NoticeBar::Kind::Note, tr("Make %1 the current year?").arg(wanted),
        tr("All pages and screens then show %1, and new vouchers go there. Other programs that open these "
           "books follow. Nothing of %2 changes.")
            .arg(wanted, now),
        {{tr("Switch to %1").arg(wanted), [this, shortForm, then] { SwitchYear(shortForm, then); }},
         {tr("Stay in %1").arg(now), [this] {
              if (shown_) shown_->TakeFocus();
          }}});
}

void DeskWindow::InYear(const std::string& year, const std::function<void()>& then) {
    if (year == books_.YearInForce())
        Try(then);
    else
        WantYear(year, then);
}

void DeskWindow::SwitchYear(const std::string& shortForm, const std::function<void()>& then) {
    const QString key = pages_.empty() ? QString() : list_->currentItem()->data(Qt::UserRole).toString();
    if (!Try([&] { books_.SwitchYear(shortForm); })) return;
    DropPages();  // what they show is of the year before
    toldYear_.clear();
    ShowHead();
    watch_.start();
    Go(key);
    if (then) Try(then);
}

std::vector<Found> DeskWindow::FindPages(const QString& words) {
    std::vector<Found> found;
    const auto fits = [&](const QString& text) { return text.contains(words, Qt::CaseInsensitive); };
    for (const PageEntry& page : PageTable())
        if (fits(page.Caption()))
            found.push_back(
                {tr("Page"), page.Caption(), {}, [this, key = QString::fromLatin1(page.Key)] { Go(key); }});
    for (const Screen& screen : ScreenList())
        if (fits(screen.CaptionText()))
            found.push_back({tr("Screen"), screen.CaptionText(), QString::fromLatin1(screen.Key),
                             [this, form = std::string(screen.Form)] { OpenScreen(form, {}); }});
    return found;
}

// Pages and screens at once; what the books hold as the worker finds it.
void DeskWindow::Find(const QString& words, const SearchField::Take& take) {
    take(FindPages(words), !books_.AreOpen());
    if (!books_.AreOpen()) return;
    books_.Background().Cancel(search_);
    const auto hits = std::make_shared<std::vector<queries::SearchHit>>();
    search_ = books_.Background().Start(
        head_->Search(),
        [hits, text = words.toStdString()](queries::Reading& books, Worker::Job&) {
            *hits = queries::Search(books, text, MostHits);
        },
        [this, hits, take](std::exception_ptr failure) {
            std::vector<Found> found;
            for (const queries::SearchHit& hit : *hits) found.push_back(HitOf(hit));
            take(std::move(found), true);
            if (failure) Try([&] { std::rethrow_exception(failure); });
        });
}

Found DeskWindow::HitOf(const queries::SearchHit& hit) {
    const QString text = QString::fromStdString(hit.text), detail = QString::fromStdString(hit.detail);
    const std::string number = std::to_string(hit.number);
    const auto screen = [this](const char* form, const std::string& record) {
        return [this, form, record] { OpenScreen(form, record); };
    };
    switch (hit.kind) {
        case queries::SearchHit::Kind::Voucher:
        case queries::SearchHit::Kind::Narration:
            return {tr("Voucher"), text, detail, screen("frmVoucher", number)};
        case queries::SearchHit::Kind::Ledger:
            return {tr("Ledger"), text, detail, [this, text, id = hit.number] {
                        Try([&] { Push(new StatementPage(*this, id, text)); });
                    }};
        case queries::SearchHit::Kind::Item:
            return {tr("Item"), text, detail, screen("ItemMaster", number)};
        case queries::SearchHit::Kind::Bill:
            return {tr("Bill"), text, detail, screen("frmReceipt", number)};
        case queries::SearchHit::Kind::OrderBill:
            return {tr("Bill"), text, detail, screen("frmPO", number)};
        case queries::SearchHit::Kind::Order:
            return {tr("Order"), text, detail, screen("frmPO", number)};
    }
    return {};
}

void DeskWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    list_->SetNarrow(width() < Narrow);
    if (const bool tight = width() < Tight; tight != property("tight").toBool()) {
        setProperty("tight", tight);
        Theme::Apply(*this);
    }
}

bool DeskWindow::event(QEvent* event) {
    if (event->type() == QEvent::WindowUnblocked) activateWindow();  // not every system gives the focus back
    if (event->type() == QEvent::ThemeChange) {
        Theme::ReadSystem();
        Theme::Apply(*this);
    }
    return QWidget::event(event);
}

// The desk's own keys work in its text boxes, too, where the toolkit takes some for itself: Ctrl+E to go to
// the end of the line, Ctrl+K to delete up to there.
bool DeskWindow::eventFilter(QObject* object, QEvent* event) {
    if (event->type() != QEvent::ShortcutOverride) return false;
    const auto* const box = qobject_cast<QLineEdit*>(object);
    const QKeyCombination key = static_cast<QKeyEvent*>(event)->keyCombination();
    if (!box || !isAncestorOf(box) || !(key.keyboardModifiers() & (Qt::ControlModifier | Qt::AltModifier)))
        return false;
    const auto own = findChildren<QShortcut*>();
    const bool isOwn = std::any_of(own.begin(), own.end(),
                                   [&](const QShortcut* shortcut) { return shortcut->key() == key; });
    if (isOwn) event->ignore();
    return isOwn;
}

void DeskWindow::closeEvent(QCloseEvent* event) {
    event->accept();
    loop_.quit();
}

}  // namespace desk
