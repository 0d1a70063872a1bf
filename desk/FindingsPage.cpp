#include "desk/FindingsPage.h"

#include <QCoreApplication>

#include "desk/Books.h"
#include "desk/BooksCheck.h"
#include "desk/ListPage.h"

namespace desk {
namespace {

struct Words {
    Q_DECLARE_TR_FUNCTIONS(desk::FindingsPage)
};

void OpenRecord(Desk& desk, const queries::Sheet& sheet, std::size_t row) {
    const std::string text = basic::TextOrEmpty(sheet.At(row, 1));
    const FoundRecord record = RecordOf(text, desk.Books().YearInForce());
    if (record.Form.empty())
        desk.Note(Words::tr("This line names no record of the year that is open: %1")
                      .arg(QString::fromStdString(text)));
    else
        desk.OpenScreen(record.Form, record.Record);
}

}  // namespace

void OpenFindings(Desk& desk) {
    const BooksCheck::ResultPtr result = desk.Books().Check().Last();
    if (!result) return;
    const QString count = BooksCheck::CountsOf(*result);
    desk.Push(new ListPage(
        desk, {.Name = "findings",
               .Title = Words::tr("Check of the books"),
               .Subtitle = Words::tr("%1; checked %2").arg(count, result->At.toString("dd-MMM-yyyy HH:mm")),
               .Chapter = "When something goes wrong",
               .Empty = Words::tr("Nothing was found"),
               .EmptyText = Words::tr("Pages, ledgers, vouchers, stock and bills agree with each other."),
               .Make = [result](queries::Reading&) { return SheetView::SheetPtr(FindingsSheet(*result)); },
               .Activated = [&desk](const queries::Sheet& sheet,
                                    std::size_t row) { OpenRecord(desk, sheet, row); }}));
}

}  // namespace desk
