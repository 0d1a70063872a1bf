#include "screens/PictureBooks.h"

#include <filesystem>
#include <utility>

#include <stdlib.h>

#include "core/DBCode.h"
#include "core/ErrorModule.h"
#include "core/modGeneral.h"
#include "platform/ado/Maintenance.h"
#include "platform/basic/Clock.h"
#include "platform/basic/Error.h"
#include "platform/basic/Number.h"

namespace qm {
namespace {

namespace fs = std::filesystem;

constexpr std::int32_t PathAccess = 75;

// Over the first supplier and the last items.
void LendOrder() {
    const auto suppliers =
        FetchFirstColumn("Select Ledger_ID From Ledger_Master Where PrimaryGrp = 'Suppliers'");
    const std::int32_t lastItem = Highest("Item_ID", "ItemMaster");
    if (Highest("PoNumber", "tblPO") != 0 || suppliers.empty() || lastItem <= 0) return;
    Conn().Execute("Insert Into tblPO" + shared().FinYear +
                   " Select 1 As PoNumber, Ledger_ID As PoSupplierID, Name As PoSupplierName, " +
                   basic::ToText(DateNumber(basic::Clock::Today())) +
                   " As PoDate, 'Within a week' As PoDlvTerm, False As PoCancelled From Ledger_Master Where "
                   "Ledger_ID = " +
                   basic::ToText(suppliers.front()));
    Conn().Execute("Insert Into tblPODet" + shared().FinYear +
                   " Select 1 As PoDetPoNo, Item_ID As PoDetItemID, Item_Name As PoDetItemDesc, 24 As "
                   "PoDetQtyOrder From ItemMaster" +
                   shared().FinYear + " Where Item_ID > " + std::to_string(lastItem - 3));
}

// By the road of every start. The folder that users see named stays that of the books.
void OpenCopyIn(const std::string& folder) {
    const std::string own = std::exchange(shared().DataPath, folder);
    shared().Connection = nullptr;
    try {
        OpenConnection(BooksFile);
    } catch (const basic::Error&) {
        shared().DataPath = own;
        throw;
    }
    shared().DataPath = own;
}

}  // namespace

std::int32_t Highest(const std::string& field, const std::string& table) {
    const auto column =
        FetchFirstColumn("Select Max(" + field + ") As High From " + table + shared().FinYear);
    return basic::ToLong(basic::NumberOrZero(column.at(0)));
}

PictureBooks::Folder::Folder() : path((fs::temp_directory_path() / "qmhost-XXXXXX").string()) {
    if (mkdtemp(path.data()) == nullptr)
        throw basic::Error(PathAccess, "Path/File access error: " + path + " cannot be made",
                           "screens.PictureBooks");
    path += '/';
}

PictureBooks::Folder::~Folder() {
    std::error_code ignored;
    fs::remove_all(path, ignored);
}

PictureBooks::PictureBooks() : books_(shared().Connection) {
    ado::BackUp(Conn(), folder_.path + BooksFile);
    try {
        OpenCopyIn(folder_.path);
        LendOrder();
    } catch (const basic::Error&) {
        shared().Connection = books_;
        throw;
    }
}

PictureBooks::~PictureBooks() {
    SkipOnError([] { Conn().Close(); });
    shared().Connection = books_;
}

}  // namespace qm
