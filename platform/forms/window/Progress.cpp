#include "platform/forms/window/Progress.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QProgressDialog>
#include <QPushButton>

#include "platform/forms/controls/Text.h"
#include "platform/forms/window/Application.h"
#include "platform/forms/window/FocusReturn.h"
#include "platform/forms/window/Style.h"

namespace forms {
namespace {

constexpr int AppearsAfter = 500, BetweenLooks = 50;  // milliseconds

bool IsInput(QEvent::Type type) {
    switch (type) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::ShortcutOverride:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::Wheel:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::ContextMenu:
        case QEvent::Close:
            return true;
        default:
            return false;
    }
}

}  // namespace

class Progress::Box : public QObject {
  public:
    Box(const std::string& what, int steps, Cancel cancel)
        : dialog_(ToQt(what), cancel == Cancel::Offered ? tr("&Cancel") : QString(), 0, steps,
                  focus_.Window()) {
        Style::Apply(dialog_);
        dialog_.setWindowTitle("Tovik Softwares");
        dialog_.setWindowModality(Qt::ApplicationModal);
        dialog_.setMinimumWidth(360);
        dialog_.setMinimumDuration(AppearsAfter);
        dialog_.setAutoClose(false);
        dialog_.setAutoReset(false);
        for (auto* button : dialog_.findChildren<QPushButton*>())
            button->setAutoDefault(false);  // Enter goes on waiting
        if (cancel == Cancel::None) dialog_.setWindowFlag(Qt::WindowCloseButtonHint, false);
        offered_ = cancel == Cancel::Offered;
        since_.start();
        QCoreApplication::instance()->installEventFilter(this);
        SetMousePointer(11);
    }
    ~Box() override {
        SetMousePointer(0);
        QCoreApplication::processEvents();  // what was typed meanwhile is dropped with the rest
        QCoreApplication::instance()->removeEventFilter(this);
        dialog_.hide();
    }

    bool Step(int done) {
        if (!dialog_.isVisible() && since_.elapsed() >= AppearsAfter) dialog_.show();
        const bool last = done >= dialog_.maximum();
        if (last || !looked_.isValid() || looked_.elapsed() >= BetweenLooks) {
            looked_.start();
            dialog_.setValue(done);
            QCoreApplication::processEvents();
        }
        return !dialog_.wasCanceled();
    }
    bool Visible() const { return dialog_.isVisible(); }

  protected:
    bool eventFilter(QObject* object, QEvent* event) override {
        if (!IsInput(event->type())) return false;
        const auto* widget = qobject_cast<QWidget*>(object);
        if (!widget) return false;  // the window below a widget hands on to it
        const bool ours = widget->window() == &dialog_;
        if (ours && (offered_ || event->type() != QEvent::Close)) return false;
        event->ignore();
        return true;
    }

  private:
    const FocusReturn focus_;
    QProgressDialog dialog_;
    QElapsedTimer since_, looked_;
    bool offered_ = false;
};

Progress::Progress(const std::string& what, int steps, Cancel cancel)
    : box_(std::make_unique<Box>(what, steps, cancel)) {}
Progress::~Progress() = default;
bool Progress::Step(int done) {
    return box_->Step(done);
}
bool Progress::Visible() const {
    return box_->Visible();
}

}  // namespace forms
