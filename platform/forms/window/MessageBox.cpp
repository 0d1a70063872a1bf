#include "platform/forms/window/MessageBox.h"

#include <QGridLayout>
#include <QMessageBox>

#include "platform/basic/Error.h"
#include "platform/forms/controls/Text.h"
#include "platform/forms/window/Application.h"
#include "platform/forms/window/FocusReturn.h"
#include "platform/forms/window/Script.h"
#include "platform/forms/window/Style.h"

namespace forms {
namespace {

constexpr const char* UntrappedTitle = "Tovik Softwares";
constexpr int YesNo = 4, Information = 64;
constexpr int IconSide = 36;
constexpr int FrameButtons = 140;  // pixels: the frame's icon and buttons, with a margin
constexpr int AnswerOk = 1, AnswerYes = 6, AnswerNo = 7;

// The system's frame cuts a title that is longer than its box is wide.
void MakeRoomForTitle(QMessageBox& box) {
    QFont font = box.font();
    font.setBold(true);
    const int width = QFontMetrics(font).horizontalAdvance(box.windowTitle()) + FrameButtons;
    auto* const rows = qobject_cast<QGridLayout*>(box.layout());
    rows->addItem(new QSpacerItem(width, 0), rows->rowCount(), 0, 1, rows->columnCount());
}

int Ask(const std::string& text, int flags, const std::string& title) {
    const FocusReturn focus;
    const PointerPause pause;
    QMessageBox box(focus.Window());
    Style::Apply(box);
    box.setWindowTitle(ToQt(title));
    box.setTextFormat(Qt::PlainText);
    box.setText(ToQt(WithLineEnds(text)));
    const char* const icon = flags & YesNo ? ":/forms/icons/question.svg" : ":/forms/icons/information.svg";
    if (flags & Information)
        box.setIconPixmap(QIcon(icon).pixmap(QSize(IconSide, IconSide), box.devicePixelRatio()));
    MakeRoomForTitle(box);
    if (!(flags & YesNo)) {
        box.exec();
        return AnswerOk;
    }
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box.setDefaultButton(QMessageBox::Yes);
    box.setEscapeButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes ? AnswerYes : AnswerNo;
}

std::string Describe(std::int32_t number, const std::string& description) {
    return "Run-time error '" + std::to_string(number) + "':\n\n" + description;
}

std::string Describe(const std::exception_ptr& error) {
    constexpr std::int32_t OutOfMemory = 7, Internal = 51;
    try {
        std::rethrow_exception(error);
    } catch (const basic::Error& e) {
        return Describe(e.Number, e.Description);
    } catch (const std::bad_alloc&) {
        return Describe(OutOfMemory, "Out of memory");
    } catch (const std::exception& e) {
        return Describe(Internal, e.what());
    } catch (...) {
        return Describe(Internal, "Internal error");
    }
}

}  // namespace

int ShowMessage(const std::string& text, int flags, const std::string& title) {
    if (const auto answer = Script::TakeBox(text, flags, title)) return *answer;
    EnsureApplication();
    return Ask(text, flags, title);
}

void ShowUntrappedError(std::exception_ptr error) {
    ShowMessage(Describe(error), 0, UntrappedTitle);
}

}  // namespace forms
