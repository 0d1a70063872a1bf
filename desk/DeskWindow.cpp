#include "desk/DeskWindow.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QCoreApplication>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QKeySequence>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>
#include <exception>
#include <utility>

#include "core/Screens.h"
#include "desk/Commands.h"
#include "desk/DeskHead.h"
#include "desk/EmptyState.h"
#include "desk/FileJobs.h"
#include "desk/HelpPage.h"
#include "desk/KeyList.h"
#include "desk/Page.h"
#include "desk/PageList.h"
#include "desk/PageTable.h"
#include "desk/RecentBooks.h"
#include "desk/Theme.h"
#include "desk/Translations.h"
#include "desk/WaitBox.h"
#include "desk/YearSwitch.h"

namespace desk {
namespace {

constexpr int Narrow = 960, Tight = 720;  // pixels

}  // namespace

DeskWindow::DeskWindow()
    : watch_(books_, {.Changed = [this] { ShowChanges(); },
                      .Lost = [this](const basic::Error& why) { TellLost(why); },
                      .Back = [this] { Note(tr("The books can be read again.")); }}) {
    LoadTranslations();
    setObjectName("desk");
    setWindowTitle(tr("Accounts"));
    setMinimumSize(480, 320);
    const QSize frame(16, 40);  // what a window manager puts around it
    resize(QSize(1200, 760).boundedTo(screen()->availableSize() - frame));
    LayOut();
    year_ = std::make_unique<YearSwitch>(
        books_, *notice_,
        [this](const std::string& shortForm, const auto& then) { SwitchYear(shortForm, then); });
    AddCommands();
    Theme::Apply(*this);
    head_->ShowBooks(books_);
}

DeskWindow::~DeskWindow() {
    DropPages();
}

void DeskWindow::LayOut() {
    head_ = new DeskHead(
        *this,
        {.Search = [this](const QString& words, const SearchField::Take& take) { finder_.Find(words, take); },
         .LeaveSearch = [this] { pages_->TakeFocus(); },
         .WantYear =
             [this](const std::string& shortForm) {
                 // The list shows the year in force until it is another.
                 if (ShowHead()) year_->Ask(shortForm);
             }});
    notice_ = new NoticeBar(this);
    notice_->Left = [this] {
        pages_->KeepFocus();
        pages_->TakeFocus();
    };
    list_ = new PageList(this, [this](const QString& key) { Go(key); });
    auto* const none = new EmptyState(
        tr("No books are open"),
        tr("Open the folder in which the books stand, or lay new ones down with qmhost create."),
        tr("Open a folder\u2026"), [this] { AskForFolder(); });
    pages_ = new PageStack(*this, none, this);
    pages_->Turned = [this](const QString& key) { list_->Mark(key); };
    writing_ = new FileJobs(this, [this] { pages_->TakeFocus(); });
    auto* const row = new QHBoxLayout;
    row->setSpacing(0);
    row->addWidget(list_);
    row->addWidget(pages_, 1);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(head_);
    column->addWidget(notice_);
    column->addLayout(row, 1);
    column->addWidget(writing_);
}

void DeskWindow::AddCommands() {
    auto* const commands = new Commands(*this, *this, head_->Menu());
    commands->setParent(this);
    commands->AddRoads();
    commands->Add(QKeySequence(Qt::CTRL | Qt::Key_K), [this] { head_->Search().Begin(); });
    commands->Add(QKeySequence(Qt::CTRL | Qt::Key_Y),
                  [this] { head_->findChild<QComboBox*>("year")->showPopup(); });
    commands->Add(QKeySequence(Qt::ALT | Qt::Key_0), [this] { notice_->TakeFocus(); });
    commands->Add(QKeySequence(Qt::Key_Escape), [this] { Escape(); });
    commands->Add(
        QKeySequence(Qt::CTRL | Qt::Key_O), [this] { AskForFolder(); }, tr("Open a folder\u2026"));
    commands->Add(
        QKeySequence(Qt::Key_F5),
        [this] {
            if (Shown()) Shown()->Refresh();
        },
        tr("Bring up to date"));
    commands->Add(
        QKeySequence::HelpContents, [this] { ShowManual(); }, tr("Manual"));
    commands->Add(
        QKeySequence(Qt::Key_Question), [this] { TellKeys(); }, tr("Keys of this page"));
    commands->AddLooks();
    commands->Add(
        QKeySequence(Qt::CTRL | Qt::Key_Q), [this] { close(); }, tr("Leave"));
}

void DeskWindow::TellKeys() {
    if (Shown()) ShowKeys(*this, *Shown());
}

void DeskWindow::ShowManual() {
    if (!dynamic_cast<HelpPage*>(Shown())) Push(new HelpPage(*this, Shown() ? Shown()->Chapter() : ""));
}

void DeskWindow::Escape() {
    if (!notice_->isVisible()) return Back();
    notice_->Dismiss();
}

void DeskWindow::AskForFolder() {
    const QString folder = QFileDialog::getExistingDirectory(this, tr("Folder of the books"), books_.Place());
    if (!folder.isEmpty()) OpenBooks(folder.toStdString());
}

void DeskWindow::OpenBooks(const std::string& address) {
    const std::string before = books_.AreOpen() ? books_.Address() : "";
    DropPages();
    year_->Forget();
    if (Try([&] { books_.Open(address); }))
        notice_->Dismiss();
    else if (!before.empty() && before != address)
        Try([&] { books_.Open(before); });
    ShowBooks();
}

void DeskWindow::ShowBooks() {
    ShowHead();
    list_->setEnabled(books_.AreOpen());
    if (!books_.AreOpen()) {
        setWindowTitle(tr("Accounts"));
        return pages_->ShowNone();
    }
    RecentBooks::Add(books_.Place());
    setWindowTitle(tr("%1 \u2013 Accounts").arg(books_.Name()));
    watch_.Start();
    Go(QString::fromLatin1(PageTable().front().Key));
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
            TellFailed(failure, address);
        else if (books_.AreOpen() && !note.isEmpty())
            Note(note);
    });
}

// Where the books do not even open any more, as when their server is gone, the way back to them is a key.
void DeskWindow::TellFailed(const std::exception_ptr& failure, const std::string& address) {
    const bool told = Try([&] {
        try {
            std::rethrow_exception(failure);
        } catch (const basic::Error& error) {
            if (books_.AreOpen()) throw;
            notice_->Tell(error, {{tr("Open the books again"), [this, address] { OpenBooks(address); }}});
        }
    });
    if (told) notice_->TakeFocus();
}

void DeskWindow::Run() {
    show();
    loop_.exec();
}

void DeskWindow::DropPages() {
    watch_.Stop();
    writing_->Cancel();
    pages_->Clear();
}

void DeskWindow::Go(const QString& key) {
    if (books_.AreOpen()) Try([&] { pages_->Go(key); });
}

bool DeskWindow::ShowHead() {
    return Try([this] { head_->ShowBooks(books_); });
}

void DeskWindow::OpenScreen(const std::string& form, const std::string& record) {
    InScreen([&] { qm::OpenScreen(form, record); });
}

void DeskWindow::CopyVoucher(std::int32_t number) {
    InScreen([&] { qm::CopyVoucher(number); });
}

void DeskWindow::InScreen(const std::function<void()>& open) {
    if (!books_.AreOpen()) return;
    pages_->KeepFocus();
    try {
        books_.RequireFile();
    } catch (const basic::Error& error) {
        TellLost(error);  // what a screen wrote would go where nobody looks for it
        return notice_->TakeFocus();
    }
    const bool done = Try([&] {
        open();
        qm::ForgetPages();
    });
    done ? watch_.LookNow() : watch_.Look();  // where a server is gone, the user has waited once
    activateWindow();
    pages_->TakeFocus();
}

void DeskWindow::WriteFile(const QString& what, std::function<void(queries::Reading&, Worker::Job&)> work,
                           const QString& done) {
    writing_->Run(books_.Writer(), what, std::move(work), [this, done](std::exception_ptr failure) {
        const bool stands = Try([&] {
            if (failure) std::rethrow_exception(failure);
        });
        if (stands) Note(done);
    });
}

// Where another file stands in the place of the books, it is a key away.
void DeskWindow::TellLost(const basic::Error& error) {
    if (books_.IsFileThere()) return Tell(error);
    notice_->Tell(error,
                  {{tr("Open what stands there"), [this] { OpenBooks(std::string(books_.Address())); }}});
}

void DeskWindow::ShowChanges() {
    head_->ShowBooks(books_);
    year_->TellOther();
    pages_->ShowChanges();
}

void DeskWindow::InYear(const std::string& year, const std::function<void()>& then) {
    if (year == books_.YearInForce())
        Try(then);
    else
        year_->Ask(year, then);
}

void DeskWindow::SwitchYear(const std::string& shortForm, const std::function<void()>& then) {
    const QString key = list_->Marked();
    if (!Try([&] { books_.SwitchYear(shortForm); })) return;
    DropPages();  // what they show is of the year before
    year_->Forget();
    ShowHead();
    watch_.Start();
    Go(key);
    if (then) Try(then);
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

void DeskWindow::closeEvent(QCloseEvent* event) {
    event->accept();
    loop_.quit();
}

}  // namespace desk
