#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/forms/Controls.h"
#include "platform/forms/grid/VSFlexGrid.h"
#include "ui_frmNewMenu.h"

namespace qm {

// How a screen is opened: on its own, by its form's name, or from the main menu, by the key of its row.
struct ScreenEntry {
    std::string_view Form;  // "frmVoucher"
    std::string_view Key;   // "fVoucher"; "": no row and no dispatch leads to it
    void (*Open)();         // modally, through the screen's own opening operation; returns when it has closed
    // The same on one record, by its number; null where the screen shows none by itself.
    void (*OpenRecord)(const std::string& record) = nullptr;
};

// The main menu: a window without frame, two grids as menus. The options of a category appear as soon as the
// mouse is over it; a click on an option opens its screen. By keyboard: arrows, Enter, Alt and the first
// letter of a category or an option, Esc.
class frmNewMenu : public forms::FormOf<Ui::frmNewMenu> {
  public:
    // Opens the books in dataPath and reads the current year, then shows the menu modally. Its rows open the
    // screens of the table that bear their keys; a row whose screen does not stand does nothing. Raises what
    // opening the books raises.
    void Load(std::span<const ScreenEntry> screens);

  protected:
    void Wire() override;
    void Form_Load() override;
    void Form_Activate() override;
    void Form_MouseMove() override;

  private:
    void ClearOptions();
    void ShowCategory(int row);
    void MarkOption(int row);
    void Press(forms::VSFlexGrid& grid);
    void Release(forms::VSFlexGrid& grid);
    unsigned PressedColour(const forms::VSFlexGrid& grid);
    void OpenOption(int row);
    void StepCategory(int step);
    void StepOption(int step);
    bool Letter(int keyCode);
    int ListKey(int& keyCode, int shift);

    void vsFinOptions_MouseMove();
    void vsFinOptions_MouseDown() { Press(*ui().vsFinOptions); }
    void vsFinOptions_MouseUp() { Release(*ui().vsFinOptions); }
    void vsFinOptions_KeyDown(int& keyCode, int shift);
    void vsOptions_MouseMove();
    void vsOptions_MouseDown() { Press(*ui().vsOptions); }
    void vsOptions_MouseUp() { Release(*ui().vsOptions); }
    void vsOptions_Click();
    void vsOptions_KeyDown(int& keyCode, int shift);
    void lblMinimize_Click();
    void lblMinimize_MouseMove();
    void cmdExit_Click();
    void lblClose_Click() { cmdExit_Click(); }
    void lblClose_MouseMove();

    std::span<const ScreenEntry> screens_;
    int pressedRow_ = -1;
    unsigned colourBefore_ = forms::NoColor;  // of the pressed row
};

}  // namespace qm
