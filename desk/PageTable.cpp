#include "desk/PageTable.h"

#include <QCoreApplication>
#include <array>

#include "desk/BooksPage.h"
#include "desk/LedgersPage.h"
#include "desk/OverviewPage.h"
#include "desk/PartiesPage.h"
#include "desk/ResultsPage.h"
#include "desk/ScreensPage.h"
#include "desk/StockPage.h"
#include "desk/VouchersPage.h"

namespace desk {
namespace {

constexpr const char* Context = "desk::PageTable";

template <class P>
Page* Make(Desk& desk) {
    return new P(desk);
}

constexpr auto Table = std::to_array<PageEntry>({
    {"overview", QT_TRANSLATE_NOOP("desk::PageTable", "Overview"), Make<OverviewPage>},
    {"vouchers", QT_TRANSLATE_NOOP("desk::PageTable", "Vouchers"), Make<VouchersPage>},
    {"ledgers", QT_TRANSLATE_NOOP("desk::PageTable", "Ledgers"), Make<LedgersPage>},
    {"results", QT_TRANSLATE_NOOP("desk::PageTable", "Results"), Make<ResultsPage>},
    {"parties", QT_TRANSLATE_NOOP("desk::PageTable", "Parties"), Make<PartiesPage>},
    {"stock", QT_TRANSLATE_NOOP("desk::PageTable", "Stock"), Make<StockPage>},
    {"books", QT_TRANSLATE_NOOP("desk::PageTable", "Books"), Make<BooksPage>},
    {"screens", QT_TRANSLATE_NOOP("desk::PageTable", "Screens"), Make<ScreensPage>},
});

}  // namespace

QString PageEntry::Caption() const {
    return QCoreApplication::translate(Context, Title);
}

std::span<const PageEntry> PageTable() {
    return Table;
}

}  // namespace desk
