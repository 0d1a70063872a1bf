#include "screens/ScreenTable.h"

#include <algorithm>
#include <array>

#include "accounts/Ledger_Master.h"
#include "accounts/frmGrpMain.h"
#include "inventory/ItemMaster.h"
#include "inventory/frmIssues.h"
#include "inventory/frmReceipt.h"
#include "platform/basic/Value.h"
#include "platform/forms/window/Form.h"
#include "purchasing/frmPO.h"
#include "reports/frmItemLedger.h"
#include "reports/frmPartyLedger.h"
#include "reports/frmTPL.h"
#include "vouchers/frmDayBook.h"
#include "vouchers/frmVoucher.h"
#include "years/frmFinYear.h"

namespace qm {
namespace {

template <class F>
void ShowModal() {
    forms::Default<F>().Show(forms::vbModal);
}

std::int32_t Number(const std::string& record) {
    return basic::ToLong(basic::Value(record));
}

// Form, key, openers; in the order of the menu, then those that no row leads to.
constexpr auto Table = std::to_array<ScreenEntry>({
    {"frmFinYear", "frmFinYear", ShowModal<frmFinYear>},
    {"frmGrpMain", "frmGrpMain", ShowModal<frmGrpMain>},
    {"Ledger_Master", "Ledger_Master", [] { forms::Default<Ledger_Master>().Load("", ""); },
     [](const std::string& number) { forms::Default<Ledger_Master>().LoadLedger(Number(number)); }},
    {"frmVoucher", "fVoucher", [] { forms::Default<frmVoucher>().Load(0); },
     [](const std::string& number) { forms::Default<frmVoucher>().Load(Number(number)); }},
    {"frmTPL", "frmTPL", ShowModal<frmTPL>},
    {"frmDayBook", "frmDayBook", ShowModal<frmDayBook>},
    {"frmPartyLedger", "frmPartyLedger", ShowModal<frmPartyLedger>},
    {"frmItemLedger", "", ShowModal<frmItemLedger>},
    {"frmReceipt", "", [] { forms::Default<frmReceipt>().Load(0); },
     [](const std::string& number) { forms::Default<frmReceipt>().Load(Number(number)); }},
    {"ItemMaster", "ItemMaster", ShowModal<ItemMaster>,
     [](const std::string& number) { forms::Default<ItemMaster>().LoadItem(Number(number)); }},
    {"frmPO", "", ShowModal<frmPO>,
     [](const std::string& number) { forms::Default<frmPO>().LoadOrder(Number(number)); }},
    {"frmIssues", "", [] { forms::Default<frmIssues>().Load(0); },
     [](const std::string& number) { forms::Default<frmIssues>().Load(Number(number)); }},
});

}  // namespace

std::span<const ScreenEntry> ScreenTable() {
    return Table;
}
const ScreenEntry* ScreenByForm(std::string_view form) {
    const auto found =
        std::find_if(Table.begin(), Table.end(), [&](const ScreenEntry& each) { return each.Form == form; });
    return found == Table.end() ? nullptr : &*found;
}

}  // namespace qm
