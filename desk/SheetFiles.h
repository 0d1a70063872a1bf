#pragma once

#include <QString>
#include <string>

#include "queries/Sheet.h"

class QWidget;

namespace desk {

// What becomes of a sheet beside being looked at. Each raises what writing raises; a file is whole or as it
// was.
enum class SheetFile { Csv, Workbook, Pdf };

QString FilterOf(SheetFile kind);     // of the dialog that asks for its name: "Spreadsheet (*.xlsx)"
QString ExtensionOf(SheetFile kind);  // ".xlsx"
QString FileNameOf(const std::string& title, SheetFile kind);                      // "Rao and Sons.xlsx"
void Write(const queries::Sheet& sheet, SheetFile kind, const std::string& file);  // no Pdf; on any thread
// Both by the report view, on the main thread; `books` stands in the margin, the heads on each sheet of
// paper.
void Print(const queries::Sheet& sheet, const std::string& books);  // after the preview
void WritePdf(const queries::Sheet& sheet, const std::string& file, const std::string& books);

// The rows as a spreadsheet takes them from the clipboard: the captions, then each row, tabs between.
QString ClipboardText(const queries::Sheet& sheet, const std::vector<std::size_t>& rows);

}  // namespace desk
