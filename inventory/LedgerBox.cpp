#include "inventory/LedgerBox.h"

#include "core/modGeneral.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Number.h"

namespace qm {

void FillLedgerBox(forms::ComboBox& box, const std::string& sql) {
    box.Clear();
    ado::Recordset ledgers;
    ledgers.Open(sql, shared().Connection);
    for (; !ledgers.Eof(); ledgers.MoveNext()) {
        box.AddItem(basic::TextOrEmpty(ledgers["Name"]));
        box.SetItemData(box.NewIndex(), basic::ToLong(ledgers["Ledger_ID"]));
    }
}

}  // namespace qm
