#pragma once

#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/basic/Control.h"
#include "platform/forms/controls/Control.h"
#include "platform/forms/window/Application.h"
#include "platform/forms/window/FormWindow.h"

namespace forms {

enum ShowMode { vbModeless = 0, vbModal = 1 };

// A screen. The object is not its window: loading builds the window and runs Form_Load, unloading runs
// Form_Unload and destroys the window, and the object's own members live on from one showing to the next.
// Screens derive from FormOf.
class Form : public basic::ControlHost, public WindowOwner {
  public:
    Form() = default;
    ~Form() override;
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    bool Loaded() const { return window_ != nullptr; }
    // Builds the window, if it is not there, and runs Form_Load. What Form_Load throws goes to the caller,
    // and the form is then as unloaded as before. Raises an error where there is no display.
    void EnsureLoaded();
    // Shows the window, loading it first, and runs Form_Activate. Shown modally, it returns when the window
    // is hidden or unloaded; then Form_Activate of the form below runs.
    void Show(ShowMode mode = vbModeless);
    void Hide();  // the window and its contents stay
    // Runs Form_Unload and destroys the window; an error in Form_Unload is shown and the window goes all the
    // same. Called inside an event of this form, it waits until that has returned. Nothing happens if the
    // form is not loaded.
    void Unload() override;
    bool Visible() const;

    std::string Name();  // the window's objectName; this and the next load the form
    std::string Caption();
    void SetCaption(const std::string& caption);
    void SetMousePointer(int pointer);  // 0 the usual one, 11 the hourglass
    void Minimize();
    // A window without the system's frame, which its background moves; call it in Form_Load.
    void SetBorderless();
    // Twips of the text's longest line in the window's font, as bold as a grid's heading: what is sized by it
    // clips neither.
    int TextWidth(const std::string& text);
    // Writes the window as it is shown to a PNG file. Raises 75 "Path/File access error" where it cannot.
    void WritePicture(const std::string& path);
    double PixelDensity();  // dots of the picture for each pixel at 96 dots per inch
    int Top();              // twips
    void SetTop(int top);
    int Width();
    int Height();
    void SetHeight(int height);

    // In the order of their making, without the parts of user controls.
    std::vector<basic::Control*> Controls() override;
    // Those of one kind, in the same order: `for (TextBox* box : ControlsOf<TextBox>()) box->SetText("");`
    template <class T>
    std::vector<T*> ControlsOf() {
        std::vector<T*> found;
        for (basic::Control* control : Controls())
            if (auto* wanted = dynamic_cast<T*>(control)) found.push_back(wanted);
        return found;
    }
    Control* ActiveControl() const;                 // the one that has the focus; null if none or not loaded
    FormWindow* Window() const { return window_; }  // null unless loaded
    // For another form to keep: it expires with this one.
    std::weak_ptr<Form> Reference() const { return self_; }

  protected:
    virtual void Wire() {}  // sets the handlers of the controls; runs before Form_Load
    virtual void Form_Load() {}
    // After each showing, and when a form shown modally above has closed; never after a box.
    virtual void Form_Activate() {}
    virtual void Form_Unload() {}
    void Form_Resize() override {}  // at each showing, before Form_Activate, and when the size changes
    // A capital letter and what it does together with Ctrl, before the control that has the focus gets the
    // key.
    using Command = std::pair<char, std::function<void()>>;
    virtual std::vector<Command> CtrlCommands() { return {}; }
    // Ctrl+letter: runs the letter's command, if any. keyCode is the capital letter's code.
    void Form_KeyDown(int keyCode, int shift) override;
    void Form_Escape() override {}  // Esc, where the control that has the focus has no use for it
    void Form_MouseMove() override {}

    virtual void BuildWindow(FormWindow& window) = 0;
    virtual void DropWindow() = 0;

  private:
    bool HasCommand(int keyCode) override;
    void Activate();
    void RunModal();
    void Discard();

    const std::shared_ptr<Form> self_{this, [](Form*) {}};
    FormWindow* window_ = nullptr;
    bool unloading_ = false;
};

// A form drawn by the designer: `class frmVoucher : public forms::FormOf<Ui::frmVoucher>`.
template <class UiClass>
class FormOf : public Form {
  public:
    // The controls: `ui().cmdSave->SetEnabled(false)`. Touching a control of an unloaded form loads it.
    UiClass& ui() {
        EnsureLoaded();
        return *ui_;
    }

  private:
    void BuildWindow(FormWindow& window) override {
        ui_ = std::make_unique<UiClass>();
        ui_->setupUi(&window);
    }
    void DropWindow() override { ui_.reset(); }

    std::unique_ptr<UiClass> ui_;
};

// The one default instance of a form, made at its first use. It is never destroyed: what it keeps outlives
// its windows.
template <class F>
F& Default() {
    static F* const instance = new F;
    return *instance;
}

}  // namespace forms
