#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace qm {

// Whether a window could be shown at all: a display is named by the environment.
bool DisplayIsThere();

// Loads libqmscreens.so from this library's own folder, once; the screens then show the message boxes. False
// where it cannot be loaded.
bool LoadScreens();

// Loads the screens and shows the main menu modally. Raises where the screens or a display are missing.
void ShowMainMenu();

// Opens one screen modally by its form's name, such as "frmFinYear", on the books that are open. Raises where
// there is no such screen and, as above, where none can be shown. Where the screen shows one record, `record`
// names it: the number of a voucher, a ledger, an item, a receipt, an issue or an order; "" as the menu opens
// it.
void OpenScreen(const std::string& form, const std::string& record = {});

// Opens the voucher screen on the lines of a voucher as those of a new one, dated today. Nothing is posted
// until the user saves. Raises as above.
void CopyVoucher(std::int32_t number);

// Gives back the memory in which pages of the books are kept, once a screen that may have read many is
// closed.
void ForgetPages();

// Write pictures of all screens, and the reports as PDF and text files, of the books that are open; no
// display is needed. Raise what opening and writing raise (see screens/Pictures.h, screens/ReportFiles.h).
void WritePictures(const std::string& folder);
void WriteReports(const std::string& folder);

// What a page of one's own is called on paper.
struct PageNames {
    std::string Title;   // names the document
    std::string Source;  // whose figures these are: left in the bottom margin
};

// How much of a piece of work is done, from 0 to 1. May raise to end it.
using Progress = std::function<void(double part)>;

// Writes a page, in the markup of reports, as a PDF file, laid out as the report view does; no display is
// needed. The sheets lie on their side where it is wide. On any thread, once LoadScreens has been called on
// that of the windows. Raises where the screens are missing, 75 "Path/File access error", and what `progress`
// raises.
void WritePage(const std::string& html, const PageNames& names, bool isWide, const std::string& file,
               const Progress& progress = {});

// Shows such a page as it will be printed, modally; from there it goes to a printer. Raises where the screens
// or a display are missing.
void PrintPage(const std::string& html, const PageNames& names, bool isWide);

// The names that OpenScreen knows; none where the screens cannot be loaded.
std::vector<std::string> ScreenNames();

}  // namespace qm
