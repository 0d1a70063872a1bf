#include "desk/SheetFiles.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QStringList>

#include "core/Screens.h"
#include "platform/basic/NewFile.h"
#include "queries/sheets/Cell.h"
#include "queries/sheets/Csv.h"
#include "queries/sheets/Page.h"
#include "queries/sheets/Workbook.h"

namespace desk {
namespace {

constexpr int LongestName = 60;         // letters, of up to four bytes: a name has room for 255
constexpr std::size_t MostUpright = 5;  // columns; the sheets of a wider table lie on their side

bool IsWide(const queries::Sheet& sheet) {
    return sheet.Columns().size() > MostUpright;
}

QString Translated(const char* text) {
    return QCoreApplication::translate("desk::SheetFiles", text);
}

}  // namespace

QString FilterOf(SheetFile kind) {
    switch (kind) {
        case SheetFile::Csv:
            return Translated("Comma-separated text (*.csv)");
        case SheetFile::Workbook:
            return Translated("Spreadsheet (*.xlsx)");
        case SheetFile::Pdf:
            return Translated("PDF (*.pdf)");
    }
    return {};
}

QString ExtensionOf(SheetFile kind) {
    return kind == SheetFile::Csv ? ".csv" : kind == SheetFile::Workbook ? ".xlsx" : ".pdf";
}

QString FileNameOf(const std::string& title, SheetFile kind) {
    static const QRegularExpression notInNames(R"([\\/:*?"<>|])");
    return QString::fromStdString(title).section(',', 0, 0).left(LongestName).replace(notInNames, "-") +
           ExtensionOf(kind);
}

void Write(const queries::Sheet& sheet, SheetFile kind, const std::string& file, const std::string& books,
           const std::function<void(double)>& laidOut) {
    const auto whole = [&] { laidOut(1); };
    if (kind == SheetFile::Workbook) return queries::WriteWorkbook(sheet, file, whole);
    if (kind == SheetFile::Pdf) {
        basic::NewFile place(file);
        qm::WritePage(queries::PageOf(sheet), {.Title = sheet.Title(), .Source = books}, IsWide(sheet),
                      place.Staging(), laidOut);
        whole();
        return place.Publish();
    }
    basic::WriteNewFile(file, [&](std::ostream& out) {
        queries::WriteCsv(sheet, out);
        whole();
    });
}

void Print(const queries::Sheet& sheet, const std::string& books) {
    qm::PrintPage(queries::PageOf(sheet), {.Title = sheet.Title(), .Source = books}, IsWide(sheet));
}

QString ClipboardText(const queries::Sheet& sheet, const std::vector<std::size_t>& rows) {
    QStringList cells;
    for (const queries::Column& column : sheet.Columns()) cells << QString::fromStdString(column.caption);
    QString text = cells.join('\t') + '\n';
    for (const std::size_t row : rows) {
        cells.clear();
        for (std::size_t column = 0; column < sheet.Columns().size(); ++column)
            cells << QString::fromStdString(
                         queries::Plain(sheet.Columns()[column].kind, sheet.At(row, column)))
                         .replace('\t', ' ')
                         .replace('\n', ' ');
        text += cells.join('\t') + '\n';
    }
    return text;
}

}  // namespace desk
