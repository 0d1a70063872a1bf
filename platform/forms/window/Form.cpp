#include "platform/forms/window/Form.h"

#include <QApplication>
#include <QBoxLayout>
#include <QEventLoop>
#include <QGridLayout>
#include <QScreen>
#include <QWindow>
#include <algorithm>

#include "platform/basic/Error.h"
#include "platform/forms/controls/Accessibility.h"
#include "platform/forms/controls/EventScope.h"
#include "platform/forms/controls/Text.h"
#include "platform/forms/controls/TextMeasure.h"
#include "platform/forms/controls/UserControl.h"
#include "platform/forms/window/EventRouter.h"
#include "platform/forms/window/MessageBox.h"
#include "platform/forms/window/Script.h"
#include "platform/forms/window/Style.h"

namespace forms {
namespace {

// Pixels for the system's title and border, unknown before it shows.
constexpr QMargins FrameAllowance(4, 32, 4, 4);
constexpr std::int32_t PathAccess = 75, ObjectWasUnloaded = 364, AlreadyDisplayed = 400;

QRect RoomOn(const QScreen& screen) {
    return screen.availableGeometry() - FrameAllowance;
}

bool IsTooHigh(const QWidget& window, const QRect& room) {
    return window.minimumSizeHint().height() > room.height();
}

// What a screen is too small for stands closer together, so that grids and boxes keep the room that there is.
void Tighten(QWidget& window, Qt::Orientations ways) {
    if (!window.layout() || !ways) return;
    for (QLayout* layout : window.findChildren<QLayout*>()) {
        QMargins margins = layout->contentsMargins();
        auto* const grid = qobject_cast<QGridLayout*>(layout);
        if (ways & Qt::Horizontal) {
            margins = {margins.left() / 2, margins.top(), margins.right() / 2, margins.bottom()};
            if (grid) grid->setHorizontalSpacing(4);
        }
        if (ways & Qt::Vertical) {
            margins = {margins.left(), margins.top() / 2, margins.right(), margins.bottom() / 2};
            if (grid)
                grid->setVerticalSpacing(2);
            else if (qobject_cast<QVBoxLayout*>(layout))
                layout->setSpacing(2);
        }
        layout->setContentsMargins(margins);
    }
    window.layout()->activate();  // it held the window to its height
}

// Moves the window's place, without its frame, into the room; only as much as is needed.
void PutInto(const QRect& room, QWidget& window, QRect place) {
    place.moveLeft(
        std::clamp(place.left(), room.left(), std::max(room.left(), room.right() - place.width() + 1)));
    place.moveTop(
        std::clamp(place.top(), room.top(), std::max(room.top(), room.bottom() - place.height() + 1)));
    window.setGeometry(place);
}

void CentreOn(QWidget& window, const QWidget* below) {
    const QRect room = RoomOn(*(below ? below : &window)->screen());
    const QSize size = window.size().boundedTo(room.size());
    Qt::Orientations ways;
    ways.setFlag(Qt::Horizontal, size.width() < window.width());
    ways.setFlag(Qt::Vertical, size.height() < window.height() || IsTooHigh(window, room));
    Tighten(window, ways);
    window.resize(size);
    QRect place(QPoint(), window.size());
    place.moveCenter(below ? below->geometry().center() : room.center());
    PutInto(room, window, place);
}

// After a size or a place was set on a window that is shown.
void KeepOnScreen(QWidget& window) {
    const QRect room = RoomOn(*window.screen());
    if (!window.isVisible() || room.contains(window.geometry())) return;
    if (IsTooHigh(window, room)) Tighten(window, Qt::Vertical);
    QRect place = window.geometry();
    place.setHeight(std::min(place.height(), room.height()));
    PutInto(room, window, place);
}

}  // namespace

Form::~Form() {
    if (!window_) return;
    window_->LetGoOfForm();
    delete window_;
}

void Form::EnsureLoaded() {
    if (window_) return;
    EnsureApplication();
    EventRouter::Install();
    ShowUntrappedBy(ShowUntrappedError);
    window_ = new FormWindow(*this);
    {
        const EventScope scope(window_);
        try {
            BuildWindow(*window_);
            Style::Apply(*window_);
            window_->ensurePolished();  // later it would undo the colours that Form_Load sets
            NameForAssistance(*window_);
            Wire();
            Form_Load();
        } catch (...) {
            Discard();
            throw;
        }
    }
    if (!window_) throw basic::Error(ObjectWasUnloaded, "Object was unloaded", "forms.Form");
}

void Form::Show(ShowMode mode) {
    EnsureLoaded();
    if (mode == vbModal && Visible())
        throw basic::Error(AlreadyDisplayed, "Form already displayed; can't show modally", "forms.Form");
    FormWindow* const top = FormWindow::Topmost();
    Form* const below = top && top != window_ ? static_cast<Form*>(top->Owner()) : nullptr;
    if (!Visible()) {
        FormWindow::Shown().push_back(window_);
        window_->setWindowModality(mode == vbModal ? Qt::ApplicationModal : Qt::NonModal);
        CentreOn(*window_, below ? below->window_ : nullptr);
        window_->winId();
        if (below) window_->windowHandle()->setTransientParent(below->window_->windowHandle());
    }
    Activate();
    if (mode != vbModal || !Visible()) return;
    RunModal();
    if (below && below->Visible()) below->Activate();
}

// Brings the window to the front and runs Form_Activate; the first control gets the focus if Form_Activate
// gave it to none.
void Form::Activate() {
    const QPointer<FormWindow> window = window_;
    window->Focus().SetShowing(true);
    window->show();
    window->raise();
    window->activateWindow();
    // A window that was hidden and comes back may still have the platform's focus: nobody then tells the
    // toolkit.
    if (QGuiApplication::focusWindow() == window->windowHandle()) QApplication::setActiveWindow(window);
    RunEvent(window, [this] { Form_Activate(); });
    if (!window || window != window_) return;
    window->Focus().SetShowing(false);
    if (window->isVisible()) window->Focus().First();
}

void Form::RunModal() {
    const QPointer<FormWindow> window = window_;
    QEventLoop loop;
    window->modalLoop_ = &loop;
    if (!Script::TakeModal(*this, Name())) loop.exec(QEventLoop::DialogExec);
    if (!window) return;
    window->modalLoop_ = nullptr;
    if (window->Owner() && window->isVisible()) Unload();  // the program is ending
    if (!window->Owner()) delete window;
}

void Form::Hide() {
    if (!window_) return;
    window_->hide();
    std::erase(FormWindow::Shown(), window_);
    if (window_->modalLoop_) window_->modalLoop_->quit();
}

void Form::Unload() {
    if (!window_ || unloading_) return;
    if (window_->runningEvents_ > 0) {
        window_->unloadWanted_ = true;
        return;
    }
    unloading_ = true;
    RunEvent(window_, [this] { Form_Unload(); });
    unloading_ = false;
    Discard();
}

void Form::Discard() {
    FormWindow* const window = window_;
    window_ = nullptr;
    window->LetGoOfForm();
    DropWindow();
    window->hide();
    if (window->modalLoop_) {
        window->modalLoop_->quit();  // RunModal deletes the window
    } else {
        window->deleteLater();
    }
}

bool Form::Visible() const {
    return window_ && window_->isVisible();
}

std::string Form::Name() {
    EnsureLoaded();
    return FromQt(window_->objectName());
}

std::string Form::Caption() {
    EnsureLoaded();
    return FromQt(window_->windowTitle());
}

void Form::SetCaption(const std::string& caption) {
    EnsureLoaded();
    window_->setWindowTitle(ToQt(caption));
}

void Form::SetMousePointer(int pointer) {
    EnsureLoaded();
    pointer == vbHourglass ? window_->setCursor(Qt::WaitCursor) : window_->unsetCursor();
}

void Form::Minimize() {
    EnsureLoaded();
    window_->showMinimized();
}

void Form::SetBorderless() {
    EnsureLoaded();
    window_->setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
}

int Form::TextWidth(const std::string& text) {
    EnsureLoaded();
    QFont font = window_->font();
    font.setBold(true);
    return TwipsFromPixels(TextMeasure(font).Width(text), window_);
}

void Form::WritePicture(const std::string& path) {
    EnsureLoaded();
    if (!window_->grab().save(ToQt(path)))
        throw basic::Error(PathAccess, "Path/File access error: " + path + " cannot be written",
                           "forms.Form");
}

double Form::PixelDensity() {
    EnsureLoaded();
    return window_->devicePixelRatioF();
}

int Form::Top() {
    EnsureLoaded();
    return TwipsFromPixels(window_->y(), window_);
}

void Form::SetTop(int top) {
    EnsureLoaded();
    window_->move(window_->x(), PixelsFromTwips(top, window_));
    KeepOnScreen(*window_);
}

int Form::Width() {
    EnsureLoaded();
    return TwipsFromPixels(window_->width(), window_);
}

int Form::Height() {
    EnsureLoaded();
    return TwipsFromPixels(window_->height(), window_);
}

// The layout first learns what was shown or hidden just before: what stands no more would hold the window
// open.
void Form::SetHeight(int height) {
    EnsureLoaded();
    if (QLayout* layout = window_->layout()) layout->activate();
    window_->resize(window_->width(), PixelsFromTwips(height, window_));
    KeepOnScreen(*window_);
}

std::vector<basic::Control*> Form::Controls() {
    EnsureLoaded();
    std::vector<basic::Control*> controls;
    for (QWidget* widget : window_->findChildren<QWidget*>()) {
        auto* control = dynamic_cast<Control*>(widget);
        if (control && !UserControl::Around(widget->parentWidget())) controls.push_back(control);
    }
    return controls;
}

Control* Form::ActiveControl() const {
    return window_ ? window_->Active() : nullptr;
}

void Form::Form_KeyDown(int keyCode, int shift) {
    if (!(shift & vbCtrlMask)) return;
    for (const auto& [letter, run] : CtrlCommands())
        if (letter == keyCode) return run();
}

bool Form::HasCommand(int keyCode) {
    const auto commands = CtrlCommands();
    return std::any_of(commands.begin(), commands.end(),
                       [=](const Command& c) { return c.first == keyCode; });
}

}  // namespace forms
