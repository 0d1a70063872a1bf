#pragma once

#include <QString>
#include <functional>
#include <string>

#include "queries/Sheet.h"

namespace desk {

// What becomes of a sheet beside being looked at. Each raises what writing raises; a file is whole or as it
// was.
enum class SheetFile { Csv, Workbook, Pdf };

QString FilterOf(SheetFile kind);     // of the dialog that asks for its name: "Spreadsheet (*.xlsx)"
QString ExtensionOf(SheetFile kind);  // ".xlsx"
QString FileNameOf(const std::string& title, SheetFile kind);  // "Rao and Sons.xlsx"
// On any thread. `books` stands in the margin of paper, the heads on each sheet. `laidOut` hears how much of
// the paper is done, from 0 to 1, and is asked a last time before a file takes its name; it may raise to end
// that.
void Write(const queries::Sheet& sheet, SheetFile kind, const std::string& file, const std::string& books,
           const std::function<void(double part)>& laidOut);
void Print(const queries::Sheet& sheet, const std::string& books);  // on the main thread; after the preview

// The rows as a spreadsheet takes them from the clipboard: the captions, then each row, tabs between.
QString ClipboardText(const queries::Sheet& sheet, const std::vector<std::size_t>& rows);

}  // namespace desk
