#include "screens/LentOrder.h"

#include "core/DBCode.h"
#include "core/FDBCode.h"
#include "core/modGeneral.h"
#include "platform/basic/Clock.h"
#include "platform/basic/Number.h"

namespace qm {

std::int32_t Highest(const std::string& field, const std::string& table) {
    const auto column = FetchFirstColumn("Select Max(" + field + ") As High From " + YearTable(table));
    return basic::ToLong(basic::NumberOrZero(column.at(0)));
}

LentOrder::LentOrder() {
    const auto suppliers =
        FetchFirstColumn("Select Ledger_ID From Ledger_Master Where PrimaryGrp = 'Suppliers'");
    const std::int32_t lastItem = Highest("Item_ID", "ItemMaster");
    lent_ = Highest("PoNumber", "tblPO") == 0 && !suppliers.empty() && lastItem > 0;
    if (!lent_) return;
    const auto run = [](const std::string& sql) { shared().Connection->Execute(sql); };
    shared().Connection->BeginTrans();
    run("Insert Into " + YearTable("tblPO") +
        " Select 1 As PoNumber, Ledger_ID As PoSupplierID, Name As PoSupplierName, " +
        basic::ToText(DateNumber(basic::Clock::Today())) +
        " As PoDate, 'Within a week' As PoDlvTerm, False As PoCancelled From Ledger_Master Where "
        "Ledger_ID = " +
        basic::ToText(suppliers.front()));
    run("Insert Into " + YearTable("tblPODet") +
        " Select 1 As PoDetPoNo, Item_ID As PoDetItemID, Item_Name As PoDetItemDesc, 24 As PoDetQtyOrder "
        "From " +
        YearTable("ItemMaster") + " Where Item_ID > " + std::to_string(lastItem - 3));
}

LentOrder::~LentOrder() {
    if (lent_) RollbackOpen();
}

}  // namespace qm
