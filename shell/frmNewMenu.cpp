#include "shell/frmNewMenu.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "core/DBCode.h"
#include "core/ErrorModule.h"

namespace qm {
namespace {

struct Option {
    int Row;
    const char *Caption, *Key;
};
struct Category {
    int Row;
    const char *Caption, *Picture;
    std::vector<Option> Options;
};

// The whole menu.
const std::vector<Category>& Categories() {
    static const std::vector<Category> categories = {
        {5,
         "Masters",
         ":/shell/icons/masters.svg",
         {{0, "Set Financial Year", "frmFinYear"},
          {3, "Group Master", "frmGrpMain"},
          {6, "Ledger Master", "Ledger_Master"}}},
        {10, "Transactions", ":/shell/icons/transactions.svg", {{0, "Voucher Entry", "fVoucher"}}},
        {15,
         "Reports",
         ":/shell/icons/reports.svg",
         {{0, "Final Results", "frmTPL"}, {3, "Day Book", "frmDayBook"}, {6, "Ledger", "frmPartyLedger"}}},
    };
    return categories;
}

constexpr int MenuRows = 20, Captions = 3;  // captions of each grid
constexpr int Pixel = 15, RowTwips = 210, CaptionTwips = 600, PictureTwips = 510, OptionTwips = 4200;
constexpr const char* OptionMark = ":/shell/icons/mark.svg";

// Back colours of rows, and what each grid shows under the mouse and while pressed.
constexpr unsigned CategoryShown = 0x7A5C2F, CategoryPressed = 0x946A2B;
constexpr unsigned OptionShown = 0xF5F1EA, OptionPressed = 0xEDE4D5;

const Category* CategoryAt(int row) {
    const auto& all = Categories();
    const auto found =
        std::find_if(all.begin(), all.end(), [row](const Category& c) { return c.Row == row; });
    return found == all.end() ? nullptr : &*found;
}

void Paint(forms::VSFlexGrid& grid, int row, unsigned colour) {
    grid.SetCellBackColor(row, 0, row, grid.Cols() - 1, colour);
}

// The next row with a caption, from `row` on; the same row where there is none.
int NextCaption(const forms::VSFlexGrid& grid, int col, int row, int step) {
    for (int next = row + step; next >= 0 && next < grid.Rows(); next += step)
        if (!grid.TextMatrix(next, col).empty()) return next;
    return row;
}

void SetUp(forms::VSFlexGrid& grid, int cols, const std::vector<int>& captionRows) {
    grid.SetFixedRows(0);
    grid.SetRows(MenuRows);
    grid.SetCols(cols);
    grid.SetGridLines(false);
    grid.SetHighLight(false);
    for (int row = 0; row < MenuRows; ++row) grid.SetRowHeight(row, RowTwips);
    for (const int row : captionRows) grid.SetRowHeight(row, CaptionTwips);
}

}  // namespace

void frmNewMenu::Load(std::span<const ScreenEntry> screens) {
    screens_ = screens;
    OpenConnection(BooksFile);
    LoadCurrentYear();
    Show(forms::vbModal);
}

void frmNewMenu::Wire() {
    ui().vsFinOptions->MouseMove = [this](int, int, int, int) { vsFinOptions_MouseMove(); };
    ui().vsFinOptions->KeyDown = [this](int& code, int shift) { vsFinOptions_KeyDown(code, shift); };
    ui().vsOptions->MouseMove = [this](int, int, int, int) { vsOptions_MouseMove(); };
    ui().vsOptions->KeyDown = [this](int& code, int shift) { vsOptions_KeyDown(code, shift); };
    ui().vsOptions->Click = [this] { vsOptions_Click(); };
    ui().vsFinOptions->MouseDown = [this](int, int, int, int) { vsFinOptions_MouseDown(); };
    ui().vsFinOptions->MouseUp = [this](int, int, int, int) { vsFinOptions_MouseUp(); };
    ui().vsOptions->MouseDown = [this](int, int, int, int) { vsOptions_MouseDown(); };
    ui().vsOptions->MouseUp = [this](int, int, int, int) { vsOptions_MouseUp(); };
    ui().lblMinimize->Click = [this] { lblMinimize_Click(); };
    ui().lblMinimize->MouseMove = [this] { lblMinimize_MouseMove(); };
    ui().lblClose->Click = [this] { lblClose_Click(); };
    ui().lblClose->MouseMove = [this] { lblClose_MouseMove(); };
}

void frmNewMenu::Form_Load() {
    SetBorderless();
    SetUp(*ui().vsFinOptions, 1, {5, 10, 15});
    for (const Category& category : Categories()) {
        ui().vsFinOptions->SetTextMatrix(category.Row, 0, std::string("\t") + category.Caption);
        ui().vsFinOptions->SetCellPicture(category.Row, 0, category.Picture);
    }
    SetUp(*ui().vsOptions, 3, {0, 3, 6});
    for (forms::VSFlexGrid* grid : {ui().vsFinOptions, ui().vsOptions})
        grid->SetMouseIcon(ui().imgMouseIcon->Picture());
    ui().vsOptions->SetColWidth(0, PictureTwips);
    ui().vsOptions->SetColWidth(1, OptionTwips);
    Form_MouseMove();
}

// On a small display the rows between the captions give way.
void frmNewMenu::Form_Activate() {
    for (forms::VSFlexGrid* grid : {ui().vsFinOptions, ui().vsOptions}) {
        const int left = (grid->Height() - Captions * CaptionTwips) / (MenuRows - Captions) / Pixel * Pixel;
        for (int row = 0; row < MenuRows; ++row)
            if (grid->RowHeight(row) != CaptionTwips) grid->SetRowHeight(row, std::clamp(left, 0, RowTwips));
    }
}

void frmNewMenu::Form_MouseMove() {
    for (forms::Label* label : {ui().lblMinimize, ui().lblClose}) label->SetForeColor(forms::vbHighlight);
}

void frmNewMenu::ClearOptions() {
    MarkOption(-1);
    for (int row = 0; row < MenuRows; ++row) {
        ui().vsOptions->SetTextMatrix(row, 1, "");
        ui().vsOptions->SetCellData(row, 1, {});
    }
}

void frmNewMenu::ShowCategory(int row) {
    ClearOptions();
    for (const Option& option : CategoryAt(row)->Options) {
        ui().vsOptions->SetTextMatrix(option.Row, 1, option.Caption);
        ui().vsOptions->SetCellData(option.Row, 1, option.Key);
    }
    for (const Category& category : Categories())
        Paint(*ui().vsFinOptions, category.Row, category.Row == row ? CategoryShown : forms::NoColor);
}

// Only one option is marked; -1, or a row without a caption: none.
void frmNewMenu::MarkOption(int row) {
    forms::VSFlexGrid& grid = *ui().vsOptions;
    for (int each = 0; each < MenuRows; ++each) {
        const bool marked = each == row && !grid.TextMatrix(each, 1).empty();
        grid.SetCellPicture(each, 0, marked ? OptionMark : ui().imgClear->Picture());
        Paint(grid, each, marked ? OptionShown : forms::NoColor);
    }
}

void frmNewMenu::Press(forms::VSFlexGrid& grid) {
    Release(grid);  // a second button may be pressed while the first is held
    pressedRow_ = grid.MouseRow();
    if (pressedRow_ < 0) return;
    colourBefore_ = grid.CellBackColor(pressedRow_, 0);
    Paint(grid, pressedRow_, PressedColour(grid));
}

// A row that was painted anew while the mouse was dragged over others keeps that colour. Kept 81.
void frmNewMenu::Release(forms::VSFlexGrid& grid) {
    const int row = std::exchange(pressedRow_, -1);
    if (row > -1 && grid.CellBackColor(row, 0) == PressedColour(grid)) Paint(grid, row, colourBefore_);
}

unsigned frmNewMenu::PressedColour(const forms::VSFlexGrid& grid) {
    return &grid == ui().vsOptions ? OptionPressed : CategoryPressed;
}

// A row without a key, and one whose screen does not stand, does nothing.
void frmNewMenu::OpenOption(int row) {
    const std::string key = basic::TextOrEmpty(ui().vsOptions->CellData(row, 1));
    if (key.empty()) return;
    const auto screen = std::find_if(screens_.begin(), screens_.end(),
                                     [&](const ScreenEntry& each) { return each.Key == key; });
    if (screen != screens_.end()) screen->Open();
}

// The highlight of a row without a category has the colour of the ground.
void frmNewMenu::vsFinOptions_MouseMove() {
    const int row = ui().vsFinOptions->MouseRow();
    if (row < 1) return;
    SkipOnError(
        [&] { ui().vsFinOptions->SetMousePointer(CategoryAt(row) ? forms::vbHand : forms::vbDefault); });
    if (CategoryAt(row)) SkipOnError([&] { ShowCategory(row); });
}

void frmNewMenu::vsOptions_MouseMove() {
    forms::VSFlexGrid& grid = *ui().vsOptions;
    const int row = grid.MouseRow();
    MarkOption(row);
    const bool live = row > -1 && !grid.TextMatrix(row, 1).empty();
    grid.SetMousePointer(live ? forms::vbHand : forms::vbDefault);
}

void frmNewMenu::vsOptions_Click() {
    if (ui().vsOptions->MouseRow() > -1) OpenOption(ui().vsOptions->MouseRow());
}

void frmNewMenu::StepCategory(int step) {
    forms::VSFlexGrid& grid = *ui().vsFinOptions;
    const int row = NextCaption(grid, 0, grid.Row(), step);
    if (!CategoryAt(row)) return;
    grid.SetRow(row);
    ShowCategory(row);
}

// Step 0 marks the first option that stands.
void frmNewMenu::StepOption(int step) {
    forms::VSFlexGrid& grid = *ui().vsOptions;
    grid.Select(step == 0 ? 0 : NextCaption(grid, 1, grid.Row(), step), 1);
    MarkOption(grid.Row());
    grid.SetFocus();
}

// Alt and the first letter of a category shows it, of an option opens it.
bool frmNewMenu::Letter(int keyCode) {
    for (const Category& category : Categories())
        if (category.Caption[0] == keyCode) {
            ui().vsFinOptions->SetRow(category.Row);
            ShowCategory(category.Row);
            ui().vsFinOptions->SetFocus();
            return true;
        }
    for (int row = 0; row < MenuRows; ++row)
        if (const std::string& caption = ui().vsOptions->TextMatrix(row, 1); caption[0] == keyCode) {
            StepOption(0);
            ui().vsOptions->SetRow(row);
            MarkOption(row);
            OpenOption(row);
            return true;
        }
    return false;
}

// Takes the key, and does what it does in both lists. Gives what is left for the list itself, 0 for nothing.
int frmNewMenu::ListKey(int& keyCode, int shift) {
    const int code = std::exchange(keyCode, 0);
    if (shift & forms::vbAltMask) {
        if (!Letter(code)) keyCode = code;
        return 0;
    }
    if (code == forms::vbKeyEscape) {
        cmdExit_Click();
        return 0;
    }
    return code;
}

void frmNewMenu::vsFinOptions_KeyDown(int& keyCode, int shift) {
    switch (const int code = ListKey(keyCode, shift)) {
        case forms::vbKeyUp:
        case forms::vbKeyDown:
            return StepCategory(code == forms::vbKeyUp ? -1 : 1);
        case forms::vbKeyRight:
        case forms::vbKeyReturn:
        case forms::vbKeyTab:
            return StepOption(0);
        default:
            return;
    }
}

void frmNewMenu::vsOptions_KeyDown(int& keyCode, int shift) {
    switch (const int code = ListKey(keyCode, shift)) {
        case forms::vbKeyUp:
        case forms::vbKeyDown:
            return StepOption(code == forms::vbKeyUp ? -1 : 1);
        case forms::vbKeyLeft:
        case forms::vbKeyTab:
            MarkOption(-1);
            return ui().vsFinOptions->SetFocus();
        case forms::vbKeyReturn:
            return OpenOption(ui().vsOptions->Row());
        default:
            return;
    }
}

void frmNewMenu::lblMinimize_Click() {
    Minimize();
}

void frmNewMenu::lblMinimize_MouseMove() {
    ui().lblMinimize->SetForeColor(forms::vbRed);
}

void frmNewMenu::lblClose_MouseMove() {
    ui().lblClose->SetForeColor(forms::vbRed);
}

void frmNewMenu::cmdExit_Click() {
    Unload();
}

}  // namespace qm
