#include "desk/PageTable.h"

#include <QCoreApplication>
#include <array>

#include "desk/ScreensPage.h"

namespace desk {
namespace {

constexpr const char* Context = "desk::PageTable";

template <class P>
Page* Make(Desk& desk) {
    return new P(desk);
}

constexpr auto Table = std::to_array<PageEntry>({
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
