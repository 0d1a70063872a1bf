#include "desk/FindingsPage.h"

#include <QCoreApplication>

#include "desk/Books.h"
#include "desk/BooksCheck.h"
#include "desk/ListPage.h"
#include "host/doors/Counted.h"

namespace desk {
namespace {

QString Tr(const char* text) {
    return QCoreApplication::translate("desk::FindingsPage", text);
}

void OpenRecord(Desk& desk, const queries::Sheet& sheet, std::size_t row) {
    const std::string text = basic::TextOrEmpty(sheet.At(row, 1));
    const FoundRecord record = RecordOf(text, desk.Books().YearInForce());
    if (record.Form.empty())
        desk.Note(
            Tr("This line names no record of the year that is open: %1").arg(QString::fromStdString(text)));
    else
        desk.OpenScreen(record.Form, record.Record);
}

}  // namespace

void OpenFindings(Desk& desk) {
    const BooksCheck::ResultPtr result = desk.Books().Check().Last();
    if (!result) return;
    const QString count =
        QString::fromStdString(host::Counted(result->Errors, "error") + ", " +
                               host::Counted(result->Findings.size() - result->Errors, "note"));
    desk.Push(new ListPage(
        desk, {.Name = "findings",
               .Title = Tr("Check of the books"),
               .Subtitle = Tr("%1; checked %2").arg(count, result->At.toString("dd-MMM-yyyy HH:mm")),
               .Chapter = "When something goes wrong",
               .Empty = Tr("Nothing was found"),
               .EmptyText = Tr("Pages, ledgers, vouchers, stock and bills agree with each other."),
               .Make = [result](queries::Reading&) { return SheetView::SheetPtr(FindingsSheet(*result)); },
               .Activated = [&desk](const queries::Sheet& sheet,
                                    std::size_t row) { OpenRecord(desk, sheet, row); }}));
}

}  // namespace desk
