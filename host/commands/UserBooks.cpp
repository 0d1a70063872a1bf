#include "host/commands/UserBooks.h"

#include <cstdlib>

#include "core/Boxes.h"
#include "core/Screens.h"
#include "host/commands/Sample.h"
#include "host/make/Books.h"
#include "host/make/Fail.h"

namespace host {
namespace {

namespace fs = std::filesystem;

}  // namespace

fs::path UserBooksFolder() {
    const auto variable = [](const char* name) {
        const char* const value = std::getenv(name);
        return fs::path(value == nullptr ? "" : value);
    };
    if (const fs::path data = variable("XDG_DATA_HOME"); data.is_absolute()) return data / "qmaccounts";
    if (const fs::path home = variable("HOME"); home.is_absolute())
        return home / ".local" / "share" / "qmaccounts";
    Fail("no folder for the books is known: name one, or set HOME");
}

bool UserBooksStand() {
    const fs::path folder = UserBooksFolder();
    if (fs::exists(folder / BooksFile)) return true;
    if (!qm::DisplayIsThere())
        Fail("there are no books in " + folder.string() +
             " and no display to ask on: lay them down with qmhost create");
    const int year = FinancialYearOfToday();
    const std::string years = LongForm(year);
    const std::string none = "There are no books yet in " + folder.string() + ".\r\n\r\n";
    if (qm::Ask(none + "Lay down sample books of a small trading firm for " + years + ", to look around in?"))
        CreateBooks(folder, year, [year](const fs::path& staging) { FillWithSample(staging, year); });
    else if (qm::Ask(none + "Lay down new, empty books for " + years + " instead?"))
        CreateBooks(folder, year);
    return fs::exists(folder / BooksFile);
}

}  // namespace host
